#include "tests/toolbar/FailureRecorder.h"
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

namespace toolbar_test {

using namespace Qt::StringLiterals;
using namespace dalvora::toolbar;

namespace {

class SubclassFailure : public testing::Test {
protected:
    SubclassFailure() { QCoreApplication::setApplicationName(u"Dalvora"_s); }
};

} // namespace

TEST_F(SubclassFailure, IsLoggedAndShownWithProgramAndRoutine) {
    FailureRecorder recorder;
    reportFailure(recorder, u"AddMessage"_s, notInitializedText());
    EXPECT_EQ(recorder.log, QStringList{u"Dalvora.AddMessage: Thunk hasn't been initialized"_s});
    ASSERT_EQ(recorder.shown.size(), 1);
    EXPECT_TRUE(recorder.shown.front().startsWith(u"Error in Dalvora.AddMessage"_s));
    EXPECT_TRUE(recorder.shown.front().endsWith(u"Thunk hasn't been initialized"_s));
    EXPECT_EQ(recorder.styles, std::vector<int>{48});
}

TEST_F(SubclassFailure, TextsAreTheSystemsOwn) {
    EXPECT_EQ(invalidHandleText(), u"Invalid window handle"_s);
    EXPECT_EQ(foreignProcessText(), u"Window handle belongs to another process"_s);
    EXPECT_EQ(alreadySubclassedText(), u"Window handle is already subclassed"_s);
    EXPECT_EQ(setWindowLongText(1400), u"SetWindowLong failed, error #1400"_s);
    EXPECT_EQ(callbackMissingText(), u"Callback method not found"_s);
    EXPECT_EQ(messageNotFoundText(0x20F), u"Message &H20F not found in table"_s);
    EXPECT_EQ(tableOverflowText(),
              u"Message table overflow. Either increase the value of Const MSG_ENTRIES or use "
              u"ALL_MESSAGES instead of specific message values"_s);
}

TEST_F(SubclassFailure, TheMessageBoxHasTheExclamationIcon) {
    QString text;
    auto icon = QMessageBox::NoIcon;
    QTimer::singleShot(0, qApp, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            text = box->text();
            icon = box->icon();
            box->accept();
        }
    });
    SystemFailureReporter().showMessage(u"Error in Dalvora.AddMessage"_s, failureMessageStyle);
    EXPECT_EQ(text, u"Error in Dalvora.AddMessage"_s);
    EXPECT_EQ(icon, QMessageBox::Warning);
}

} // namespace toolbar_test
