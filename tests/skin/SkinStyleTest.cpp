// What the style paints is read back from grabbed pictures, in device pixels, so that the same tests hold at
// every scale (the suite runs with scale factors 1, 1.5 and 2).

#include "platform/skin/SkinStyle.h"

#include "platform/skin/ImageList.h"
#include "platform/skin/SkinFramework.h"
#include "platform/skin/StyleFile.h"
#include "tests/skin/DemoWindow.h"
#include "tests/skin/PlainLook.h"
#include "tests/skin/StyleFiles.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QStyleOption>
#include <QTabBar>
#include <QTest>
#include <QTextCharFormat>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using skin::Colour;

namespace {

class SkinStyleTest : public testing::Test {
protected:
    SkinStyleTest() {
        m_framework.loadSkin(StyleFiles::shipped(), StyleFiles::section());
        m_framework.setApplyOptions(skin::ApplyToNewWindows);
    }

    QColor colour(Colour role) const { return m_values.colour(role); }

    static QImage picture(QWidget& widget) {
        return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    /// How many device pixels from the start, walking right along a row, have a colour.
    static int run(const QImage& image, int x, int y, const QColor& wanted) {
        int length = 0;
        while (x + length < image.width() && image.pixelColor(x + length, y) == wanted)
            ++length;
        return length;
    }

    static int count(const QImage& image, const QColor& wanted) {
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                found += image.pixelColor(x, y) == wanted;
        }
        return found;
    }

    /// Shows a widget on a window of its own and waits for it.
    template<typename Widget> Widget* shown(Widget* widget) {
        widget->setParent(&m_window);
        widget->move(10, 10);
        m_window.resize(300, 120);
        m_window.show();
        widget->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        mouseAway(m_window);
        return widget;
    }

    /// The pointer stays where the test before has left it.
    static void mouseAway(QWidget& window) {
        QTest::mouseMove(&window, QPoint(window.width() - 2, window.height() - 2));
        QTest::qWait(20);
    }

    PlainLook m_plain;
    skin::SkinFramework m_framework;
    skin::SkinValues m_values = skin::readStyleFile(StyleFiles::shipped(), StyleFiles::section());
    QWidget m_window;
};

} // namespace

TEST_F(SkinStyleTest, AFieldHasAFrameOfWholeDevicePixelsAtAnyPlace) {
    auto* field = new QLineEdit(&m_window);
    for (const int x : {10, 11, 12, 13}) {
        shown(field);
        field->setGeometry(x, 11, 120, 23);
        m_window.setFocus();
        const QImage image = picture(m_window);
        const qreal ratio = image.devicePixelRatio();
        const int left = qRound(x * ratio);
        const int middle = qRound(22 * ratio);
        const int frame = qRound(ratio - 0.01);
        EXPECT_EQ(image.pixelColor(left - 1, middle), colour(Colour::Window)) << x;
        EXPECT_EQ(run(image, left, middle, colour(Colour::FieldBorder)), frame) << x;
        EXPECT_EQ(image.pixelColor(left + frame, middle), colour(Colour::FieldBase)) << x;
    }
}

TEST_F(SkinStyleTest, TheFieldWithTheKeyboardHasTheFocusRing) {
    auto* field = shown(new QLineEdit);
    field->resize(120, 23);
    field->setFocus();
    QImage image = picture(*field);
    const int middle = image.height() / 2;
    const int ring = qRound(2 * image.devicePixelRatio() - 0.01);
    EXPECT_EQ(run(image, 0, middle, colour(Colour::FocusRing)), ring);
    field->clearFocus();
    image = picture(*field);
    EXPECT_EQ(run(image, 0, middle, colour(Colour::FocusRing)), 0);
}

TEST_F(SkinStyleTest, ALockedFieldHasItsOwnGroundAndReadableText) {
    auto* field = shown(new QLineEdit(u"MMMM"_s));
    field->setEnabled(false);
    const QImage image = picture(*field);
    EXPECT_GT(count(image, colour(Colour::LockedBase)), image.width() * image.height() / 2);
    EXPECT_EQ(count(image, colour(Colour::FieldBase)), 0);
    EXPECT_EQ(field->palette().color(QPalette::Disabled, QPalette::Text), colour(Colour::LockedText));
}

TEST_F(SkinStyleTest, AToolButtonShowsItsHotFaceAndImageUnderTheMouse) {
    DemoWindow window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    mouseAway(window);
    auto* save = window.toolBar->widgetForAction(window.findChild<QAction*>(u"grabar"_s));
    EXPECT_EQ(count(picture(*save), colour(Colour::HotBorder)), 0);
    const QColor brightInk(0x17, 0x66, 0xCC);
    EXPECT_EQ(count(picture(*save), brightInk), 0);
    QTest::mouseMove(save);
    QTest::qWait(20);
    const QImage hot = picture(*save);
    EXPECT_GT(count(hot, colour(Colour::HotBorder)), hot.width());
    EXPECT_GT(count(hot, brightInk), 4);
    QTest::mousePress(save, Qt::LeftButton);
    EXPECT_GT(count(picture(*save), colour(Colour::PressedBorder)), hot.width());
    QTest::mouseRelease(save, Qt::LeftButton);
}

TEST_F(SkinStyleTest, ADisabledToolButtonStaysFlat) {
    DemoWindow window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    mouseAway(window);
    auto* erase = window.toolBar->widgetForAction(window.findChild<QAction*>(u"eliminar"_s));
    QTest::mouseMove(erase);
    QTest::qWait(20);
    EXPECT_EQ(count(picture(*erase), colour(Colour::HotBorder)), 0);
}

TEST_F(SkinStyleTest, CommandButtonsHaveTheLeastSizeAndSmallOnesStaySmall) {
    QPushButton command(u"&Sí"_s);
    EXPECT_EQ(command.sizeHint(), QSize(84, 26));
    EXPECT_EQ(QPushButton(u"No"_s).sizeHint(), QSize(84, 26));
    for (const QString& sign : {u"?"_s, u"..."_s})
        EXPECT_EQ(QPushButton(sign).sizeHint(), QSize(26, 26));
    QPushButton longText(u"Asignación de comisiones a vendedores"_s);
    EXPECT_GT(longText.sizeHint().width(), longText.fontMetrics().horizontalAdvance(longText.text()));
}

TEST_F(SkinStyleTest, TheButtonThatEnterPressesIsMarked) {
    auto* button = shown(new QPushButton(u"&Aceptar"_s));
    button->clearFocus();
    button->setDefault(false);
    EXPECT_EQ(count(picture(*button), colour(Colour::ButtonBorderDefault)), 0);
    button->setDefault(true);
    const QImage image = picture(*button);
    EXPECT_GT(count(image, colour(Colour::ButtonBorderDefault)), image.width());
}

TEST_F(SkinStyleTest, OnlyTheSelectedTabHasTheStripe) {
    auto* bar = shown(new QTabBar);
    bar->addTab(u"Productos"_s);
    bar->addTab(u"Montos"_s);
    bar->resize(bar->sizeHint());
    const QImage image = picture(*bar);
    const qreal ratio = image.devicePixelRatio();
    const QRect first(QPoint(0, 0), bar->tabRect(0).size() * ratio);
    EXPECT_GT(count(image.copy(first), colour(Colour::TabAccent)), first.width() / 2);
    const QRect second = QRect((bar->tabRect(1).topLeft().toPointF() * ratio).toPoint() + QPoint(2, 0),
                               bar->tabRect(1).size() * ratio);
    EXPECT_EQ(count(image.copy(second), colour(Colour::TabAccent)), 0);
}

TEST_F(SkinStyleTest, AGroupBoxLeavesAGapForItsTitle) {
    auto* box = shown(new QGroupBox(u"Período de Vigencia"_s));
    box->resize(200, 80);
    const QImage image = picture(*box);
    const qreal ratio = image.devicePixelRatio();
    QStyleOptionGroupBox option;
    option.initFrom(box);
    option.text = box->title();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    const auto rectOf = [&](QStyle::SubControl part) {
        return box->style()->subControlRect(QStyle::CC_GroupBox, &option, part, box);
    };
    const QRect frame = rectOf(QStyle::SC_GroupBoxFrame);
    const QRect title = rectOf(QStyle::SC_GroupBoxLabel);
    const int row = qRound(frame.top() * ratio);
    EXPECT_EQ(image.pixelColor(qRound((title.right() + 20) * ratio), row), colour(Colour::FrameBorder));
    const QRect inTitle(QPoint(qRound(title.left() * ratio), row), QSize(qRound(title.width() * ratio), 1));
    EXPECT_EQ(count(image.copy(inTitle), colour(Colour::FrameBorder)), 0);
    EXPECT_LE(title.bottom(), box->contentsRect().top() + title.height());
    EXPECT_GE(title.width(), box->fontMetrics().horizontalAdvance(box->title()));
}

TEST_F(SkinStyleTest, StatusPanelsAreSeparatedAndTheirTextsIndented) {
    QStatusBar bar;
    QList<QLabel*> panels;
    for (const int stretch : {1, 0, 0}) {
        panels.append(new QLabel(u"Panel"_s));
        bar.addWidget(panels.last(), stretch);
    }
    bar.resize(500, 25);
    bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    EXPECT_EQ(bar.sizeHint().height(), 25);
    EXPECT_EQ(panels.first()->indent(), 6);
    const QImage image = picture(bar);
    const int middle = image.height() / 2;
    int separators = 0;
    for (int x = 0; x < image.width(); ++x) {
        const int length = run(image, x, middle, colour(Colour::Separator));
        separators += length > 0;
        x += length;
    }
    EXPECT_EQ(separators, 2);
}

TEST_F(SkinStyleTest, TheSelectedMenuItemHasTheHotFaceUnlessItIsOff) {
    DemoWindow window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.editMenu->popup(window.mapToGlobal(QPoint(0, 20)));
    const QList<QAction*> items = window.editMenu->actions();
    window.editMenu->setActiveAction(items.at(1));
    EXPECT_GT(count(picture(*window.editMenu), colour(Colour::HotBorder)), 100);
    window.editMenu->setActiveAction(items.at(2));
    EXPECT_EQ(count(picture(*window.editMenu), colour(Colour::HotBorder)), 0);
    window.editMenu->close();
}

TEST_F(SkinStyleTest, MessageBoxesShowOurIconsAndNoneOnTheirButtons) {
    QMessageBox box(QMessageBox::Question, u"Quorvane ERP - Dalvora"_s, u"¿ Seguro ?"_s,
                    QMessageBox::Yes | QMessageBox::No);
    const QPixmap shownIcon = box.iconPixmap();
    EXPECT_EQ(shownIcon.deviceIndependentSize(), QSizeF(32, 32));
    EXPECT_EQ(shownIcon.toImage(),
              skin::messageIcon(u"pregunta"_s).pixmap(QSize(32, 32), shownIcon.devicePixelRatio()).toImage());
    EXPECT_TRUE(box.button(QMessageBox::Yes)->icon().isNull());
}

TEST_F(SkinStyleTest, ATextFitsIntoAFieldOfTheLeastHeight) {
    const QLineEdit field;
    EXPECT_GE(field.sizeHint().height(), 23);
    QComboBox list;
    list.addItem(u"ÁÉgjpqy"_s);
    EXPECT_GE(list.sizeHint().height(), 23);
    EXPECT_LE(QFontMetrics(field.font()).height() + 4, 23);
}

TEST_F(SkinStyleTest, RotatedPaintingStillWorks) {
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(50, 50);
    painter.rotate(30);
    QStyleOptionFrame option;
    option.rect = QRect(-30, -10, 60, 20);
    option.lineWidth = 1;
    option.state = QStyle::State_Enabled;
    QApplication::style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, nullptr);
    painter.end();
    EXPECT_LT(count(image, Qt::white), 100 * 100);
}

TEST_F(SkinStyleTest, WeekendsOfACalendarAreReadable) {
    QCalendarWidget calendar;
    calendar.ensurePolished();
    EXPECT_EQ(calendar.weekdayTextFormat(Qt::Sunday).foreground().color(), colour(Colour::WeekEnd));
    EXPECT_EQ(calendar.weekdayTextFormat(Qt::Monday).foreground().style(), Qt::NoBrush);
    QCalendarWidget own;
    QTextCharFormat green;
    green.setForeground(Qt::darkGreen);
    own.setWeekdayTextFormat(Qt::Sunday, green);
    own.ensurePolished();
    EXPECT_EQ(own.weekdayTextFormat(Qt::Sunday).foreground().color(), QColor(Qt::darkGreen));
}
