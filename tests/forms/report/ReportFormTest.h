#pragma once

#include "forms/FormServices.h"
#include "forms/report/frmSelRpt.h"
#include "tests/reports/ReportFixture.h"
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>

namespace dalvora::test {

/// The selection form over the definitions of a folder, used with real key and mouse events while it is shown
/// modally. Lookups are answered from a list.
class ReportFormTest : public ReportTest, public FormServices {
protected:
    bool QueryLookup(const QString& queryName, const QString& queryFile, const QString& parameters,
                     QStringList& values) override {
        lookups << queryName + u'@' + queryFile + u'#' + parameters;
        values = chosen;
        return !chosen.isEmpty();
    }
    void ShowAbout(const QString&, const QString&) override {}
    void Help(const QString&) override {}
    void previewReport() override {}
    void printReport() override {}
    void showSalespeople() override {}
    void terminate() override {}

    /// Acts on the form as soon as it is shown; a form still open afterwards is closed by its close box.
    void onceShown(std::function<void()> act) {
        QTimer::singleShot(0, qApp, [this, act = std::move(act)] {
            form = qobject_cast<frmSelRpt*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowActive(form));
            act();
            stayedOpen = form->isVisible();
            form->close();
        });
    }
    template<class Control = QWidget> Control& control(const char* name) {
        auto* found = form->findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void enter(const char* name, const QString& text) {
        auto& line = control<QLineEdit>(name);
        line.setFocus();
        line.selectAll();
        for (const QChar c : text)
            QTest::sendKeyEvent(QTest::Click, &line, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
    void click(const char* name) { QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton); }
    void select(int entry) {
        auto& list = control<QComboBox>("cboReporte");
        list.setFocus();
        for (int step = list.currentIndex(); step < entry; ++step)
            QTest::keyClick(&list, Qt::Key_Down);
        for (int step = list.currentIndex(); step > entry; --step)
            QTest::keyClick(&list, Qt::Key_Up);
    }
    bool codeShown() {
        const bool shown = control("TxtCodComision").isVisible();
        EXPECT_EQ(control("LbComision").isVisible(), shown);
        EXPECT_EQ(control("coCodigo").isVisible(), shown);
        return shown;
    }

    frmSelRpt* form = nullptr;
    bool stayedOpen = false;
    QStringList lookups;
    QStringList chosen;
};

} // namespace dalvora::test
