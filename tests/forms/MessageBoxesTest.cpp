// The windows behind ShowMessage.
#include "forms/MessageBoxes.h"
#include "tests/support/QtPrinters.h"
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;

namespace {

class MessageBoxesTest : public testing::Test {
protected:
    /// Shows a box, looks at it and answers it with a key.
    qint16 answer(int style, Qt::Key key, const QString& text = u"Texto"_s) {
        QTimer::singleShot(0, [this, key] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            icon = box->icon();
            title = box->windowTitle();
            shown = box->text();
            buttons.clear();
            for (const QAbstractButton* button : box->buttons())
                buttons << button->text().remove(u'&');
            pointer = QGuiApplication::overrideCursor() ? QGuiApplication::overrideCursor()->shape()
                                                        : Qt::BlankCursor;
            QTest::keyClick(box, key);
        });
        return boxes.show(text, style, u"Título"_s);
    }

    MessageBoxes boxes;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title;
    QString shown;
    QStringList buttons;
    Qt::CursorShape pointer = Qt::BlankCursor;
};

} // namespace

TEST_F(MessageBoxesTest, PictureFollowsTheStyle) {
    const std::pair<int, QMessageBox::Icon> cases[] = {{16, QMessageBox::Critical},
                                                       {36, QMessageBox::Question},
                                                       {48, QMessageBox::Warning},
                                                       {64, QMessageBox::Information}};
    for (const auto& [style, expected] : cases) {
        answer(style, Qt::Key_Return);
        EXPECT_EQ(icon, expected) << style;
        EXPECT_EQ(title, u"Título"_s);
    }
}

TEST_F(MessageBoxesTest, ButtonsAreSpanish) {
    EXPECT_EQ(answer(64, Qt::Key_Return), ButtonOk);
    EXPECT_EQ(buttons, QStringList{u"Aceptar"_s});
    EXPECT_EQ(answer(36, Qt::Key_Return), ButtonYes);
    EXPECT_EQ(buttons, (QStringList{u"Sí"_s, u"No"_s}));
    EXPECT_EQ(answer(36, Qt::Key_Escape), ButtonNo);
}

TEST_F(MessageBoxesTest, AQuestionInTheMiddleOfWorkHasItsOwnPointer) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    answer(36, Qt::Key_Return);
    EXPECT_EQ(pointer, Qt::ArrowCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();
}

TEST_F(MessageBoxesTest, VeryLongTextsAreCutAndMarkupStaysText) {
    answer(64, Qt::Key_Return, QString(50000, u'x'));
    EXPECT_LT(shown.size(), 3000);
    answer(64, Qt::Key_Return, u"<b>no</b>"_s);
    EXPECT_EQ(shown, u"<b>no</b>"_s);
}
