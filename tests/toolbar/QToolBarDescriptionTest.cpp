#include "ui/toolbar/QToolBarDescription.h"
#include <QActionGroup>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

namespace toolbar_test {

using namespace Qt::StringLiterals;
using namespace dalvora::toolbar;

namespace {

QPixmap filled(QRgb colour) {
    QPixmap pixmap(24, 24);
    pixmap.fill(QColor(colour));
    return pixmap;
}

class QToolBarDescriptionTest : public testing::Test {
protected:
    QToolBarDescriptionTest() { toolbar.setToolButtonStyle(Qt::ToolButtonTextUnderIcon); }

    QAction* add(const QString& caption) { return toolbar.addAction(filled(qRgb(0, 200, 0)), caption); }

    QToolButton* buttonOf(QAction* action) const {
        return qobject_cast<QToolButton*>(toolbar.widgetForAction(action));
    }

    ToolbarDescription describe(int width = 600) {
        toolbar.resize(width, 60);
        toolbar.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&toolbar));
        return describeToolbar(toolbar, false, images);
    }

    QToolBar toolbar;
    IconImages images{{24, 24}, 1};
};

} // namespace

TEST_F(QToolBarDescriptionTest, ButtonsAreDescribedInTheirOrderAndPlace) {
    QAction* first = add(u"Uno"_s);
    toolbar.addSeparator();
    QAction* last = add(u"Dos"_s);
    const ToolbarDescription bar = describe();
    ASSERT_EQ(bar.buttons.size(), 3U);
    EXPECT_EQ(bar.buttons[0].caption, u"Uno"_s);
    EXPECT_EQ(bar.buttons[0].rect, buttonOf(first)->geometry());
    EXPECT_EQ(bar.buttons[1].style, StyleSeparator);
    EXPECT_EQ(bar.buttons[2].rect, buttonOf(last)->geometry());
    EXPECT_EQ(bar.size, toolbar.size());
}

TEST_F(QToolBarDescriptionTest, TheStateByteTellsEnabledCheckedAndPressed) {
    QAction* action = add(u"Uno"_s);
    action->setCheckable(true);
    EXPECT_EQ(describe().buttons.front().state, 4);
    action->setChecked(true);
    EXPECT_EQ(describe().buttons.front().state, 5);
    buttonOf(action)->setDown(true);
    EXPECT_EQ(describe().buttons.front().state, 7);
    action->setChecked(false);
    buttonOf(action)->setDown(true);
    EXPECT_EQ(describe().buttons.front().state, 6);
    buttonOf(action)->setDown(false);
    action->setEnabled(false);
    EXPECT_EQ(describe().buttons.front().state, 0);
    action->setChecked(true);
    EXPECT_EQ(describe().buttons.front().state, 1);
}

TEST_F(QToolBarDescriptionTest, KindsOfButtonAreTold) {
    add(u"Botón"_s);
    add(u"Casilla"_s)->setCheckable(true);
    QAction* grouped = add(u"Opción"_s);
    grouped->setCheckable(true);
    QActionGroup group(nullptr);
    group.addAction(grouped);
    auto* exclusive = new QToolButton;
    exclusive->setCheckable(true);
    exclusive->setAutoExclusive(true);
    toolbar.addWidget(exclusive);
    for (const auto mode : {QToolButton::MenuButtonPopup, QToolButton::InstantPopup})
        buttonOf(add(u"Menú"_s))->setPopupMode(mode);
    std::vector<quint8> styles;
    for (const ToolbarButton& button : describe().buttons)
        styles.push_back(button.style);
    EXPECT_EQ(styles, (std::vector<quint8>{StyleButton, StyleCheck, StyleCheckGroup, StyleCheckGroup,
                                           StyleDropDown, StyleButton}));
}

TEST_F(QToolBarDescriptionTest, ImageAndCaptionFollowTheStyleOfTheToolbar) {
    QAction* action = add(u"Uno"_s);
    toolbar.addAction(u"Sin imagen"_s);
    ToolbarDescription bar = describe();
    EXPECT_EQ(bar.buttons[0].image, 0);
    EXPECT_EQ(bar.buttons[0].caption, u"Uno"_s);
    EXPECT_LT(bar.buttons[1].image, 0);
    toolbar.setToolButtonStyle(Qt::ToolButtonIconOnly);
    bar = describe();
    EXPECT_EQ(bar.buttons[0].caption, QString());
    EXPECT_EQ(bar.buttons[1].caption, u"Sin imagen"_s) << "it would be empty without";
    toolbar.setToolButtonStyle(Qt::ToolButtonTextOnly);
    EXPECT_LT(describe().buttons[0].image, 0);
    buttonOf(action)->setToolButtonStyle(Qt::ToolButtonIconOnly);
    bar = describe();
    EXPECT_GE(bar.buttons[0].image, 0) << "a button may have a style of its own";
    EXPECT_EQ(bar.buttons[0].caption, QString());
}

TEST_F(QToolBarDescriptionTest, HiddenButtonsAndOtherControlsAreLeftOut) {
    add(u"Uno"_s);
    toolbar.addWidget(new QLabel(u"Texto"_s));
    QAction* hidden = add(u"Dos"_s);
    EXPECT_EQ(describe().buttons.size(), 2U);
    hidden->setVisible(false);
    QTest::qWait(1);
    EXPECT_EQ(describe().buttons.size(), 1U);
}

TEST_F(QToolBarDescriptionTest, ButtonsWithoutRoomAndTheOneThatListsThemAreLeftOut) {
    for (int i = 0; i < 20; ++i)
        add(u"Comisiones"_s);
    const ToolbarDescription bar = describe(200);
    EXPECT_GT(bar.buttons.size(), 0U);
    EXPECT_LT(bar.buttons.size(), 20U);
    for (const ToolbarButton& button : bar.buttons)
        EXPECT_EQ(button.caption, u"Comisiones"_s);
    const auto* extension = toolbar.findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    ASSERT_NE(extension, nullptr);
    EXPECT_FALSE(isPaintedChild(*extension)) << "it paints itself";
}

TEST_F(QToolBarDescriptionTest, FontIconSizeAndMouseAreThoseOfTheToolbar) {
    QFont font = toolbar.font();
    font.setPixelSize(23);
    toolbar.setFont(font);
    toolbar.setIconSize({31, 17});
    toolbar.move(100, 50);
    describe();
    QCursor::setPos(toolbar.mapToGlobal(QPoint(7, 8)));
    const ToolbarDescription bar = describe();
    EXPECT_EQ(bar.font.pixelSize(), 23);
    EXPECT_EQ(bar.iconSize, QSize(31, 17));
    EXPECT_EQ(bar.cursor, QPoint(7, 8));
    EXPECT_FALSE(bar.menuOpen);
}

TEST_F(QToolBarDescriptionTest, AnIconGivesTheImagesThatItHas) {
    const auto colour = [&](ImageListKind list, int index) {
        const QPixmap image = images.image(list, index);
        return image.isNull() ? 0 : image.toImage().pixel(12, 12);
    };
    const int plain = images.add(filled(qRgb(0, 200, 0)));
    QIcon icon(filled(qRgb(0, 200, 0)));
    icon.addPixmap(filled(qRgb(0, 250, 0)), QIcon::Active);
    icon.addPixmap(filled(qRgb(90, 90, 90)), QIcon::Disabled);
    const int rich = images.add(icon);
    EXPECT_EQ(colour(ImageListKind::Normal, plain), qRgb(0, 200, 0));
    EXPECT_EQ(colour(ImageListKind::Hot, plain), qRgb(0, 200, 0));
    EXPECT_EQ(colour(ImageListKind::Disabled, plain), 0U) << "the painter makes one";
    EXPECT_EQ(colour(ImageListKind::Normal, rich), qRgb(0, 200, 0));
    EXPECT_EQ(colour(ImageListKind::Hot, rich), qRgb(0, 250, 0));
    EXPECT_EQ(colour(ImageListKind::Disabled, rich), qRgb(90, 90, 90));
}

} // namespace toolbar_test
