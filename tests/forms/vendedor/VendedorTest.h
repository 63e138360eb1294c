#pragma once

#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/main/StatusPanels.h"
#include "forms/vendedor/FM_Vendedor.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/support/FailEngine.h"
#include "tests/support/FakeSession.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TestDatabase.h"
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;

/// The real salespeople form over a real database of each engine, used with real key and
/// mouse events. Company 01 has the salespeople 11 to 15, company 02 has one of code 11. The engine fails
/// where `fail` says, the record holds no scheme.
class VendedorTest : public testing::TestWithParam<TestEngine> {
protected:
    VendedorTest();
    ~VendedorTest() override;

    VendedorControls& controls() { return form->controls(); }
    quorvane::XGrid& grid() { return *controls().XGrid; }

    /// Shows the form, which loads it, and takes what was told meanwhile for granted only when silent.
    void open();
    void openSilently();
    /// Puts a scheme code into the record.
    void loadScheme(const QString& code) { context.Table->setTextValue(2, code); }

    void clickCell(int row, int column, Qt::KeyboardModifiers held = Qt::NoModifier);
    void dragCells(int fromRow, int toRow);
    void clickButton(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier);
    /// Types a filter and Enter into TxtCodigo.
    void filter(const QString& text);

    /// Rows as "code|description|scheme", marked ones with "*" in front.
    QStringList shown();
    QString marks();
    QString panel(QStringView key) { return controls().SB->text(key); }
    QRect cell(int row, int column);

    /// Rows of a query over a connection that never fails, values joined by "|".
    QStringList rows(const QString& select);
    void execute(const QString& statement);
    /// Everything that the database holds, in one text.
    QString wholeDatabase();
    void expectTold(const std::vector<Message>& expected) { EXPECT_EQ(recorder.take(), expected); }
    void expectSilence() { expectTold({}); }

    TestDatabase database{GetParam()};
    MessageRecorder recorder;
    FailPlan fail;
    SessionContext context;
    FakeSession* session = nullptr;
    QStringList statements; ///< what the form sent
    std::unique_ptr<FM_Vendedor> form;
};

} // namespace dalvora::test
