#pragma once

#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/FormServices.h"
#include "forms/main/GridLayout.h"
#include "forms/main/StatusPanels.h"
#include "forms/main/frmMain.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/support/FakeSession.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TestDatabase.h"
#include <QTest>
#include <gtest/gtest.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;

/// The real main form over a real database of each engine, used with real key and mouse
/// events. Messages are recorded, lookups answered from a list.
class MainFormTest : public testing::TestWithParam<TestEngine>, public FormServices {
protected:
    MainFormTest();
    ~MainFormTest() override;

    MainControls& controls() { return form->controls(); }
    DBTable& table() { return *context.Table; }

    /// Presses a toolbar button with the mouse and waits for the deferred command.
    void click(const QString& key);
    /// Triggers a menu item and waits for its command.
    void choose(const QString& menuItem);
    void settle();
    /// Sends the text to the control with the focus, key by key.
    void type(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Types a text into a header control and leaves it with Tab.
    void enter(QWidget& control, const QString& text);
    /// Types code C1 and its period, which reads it.
    void readC1();
    /// Puts the cursor on a cell, types a text over it and ends with Enter.
    void enterCell(quorvane::XGrid& grid, int row, int column, const QString& text);

    void expectTold(const std::vector<Message>& expected) { EXPECT_EQ(recorder.take(), expected); }
    void expectSilence() { EXPECT_EQ(recorder.take(), std::vector<Message>()); }
    /// Rows of a query, values joined by "|".
    QStringList rows(const QString& select);
    void execute(const QString& statement) { context.Connection->execute(statement); }

    bool QueryLookup(const QString& queryName, const QString& queryFile, const QString& parameters,
                     QStringList& values) override;
    void ShowAbout(const QString& title, const QString& description) override;
    void Help(const QString& topic) override { calls << u"Help "_s + topic; }
    void previewReport() override { calls << u"preview"_s; }
    void printReport() override { calls << u"print"_s; }
    void showSalespeople() override { calls << u"salespeople"_s; }
    void terminate() override { calls << u"terminate"_s; }

    TestDatabase database{GetParam()};
    MessageRecorder recorder;
    QStringList calls;
    /// The row that the next lookup gives; nothing chosen when empty.
    QStringList chosen;
    SessionContext context;
    FakeSession* session = nullptr;
    std::unique_ptr<frmMain> form;
};

} // namespace dalvora::test
