// Grabs two windows with every kind of control and their pop-ups. With SKIN_PICTURES naming a folder the
// pictures are kept there, to be looked at.

#include "platform/skin/SkinFramework.h"
#include "tests/skin/DemoWindow.h"
#include "tests/skin/GalleryWindow.h"
#include "tests/skin/PlainLook.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Grabs a widget, and keeps the picture where somebody wants to look at it.
void keep(QWidget& widget, const QString& name) {
    const QPixmap picture = widget.grab();
    EXPECT_EQ(picture.size(), (widget.size().toSizeF() * widget.devicePixelRatio()).toSize())
        << qPrintable(name);
    const QString folder = qEnvironmentVariable("SKIN_PICTURES");
    if (folder.isEmpty())
        return;
    const QString file = u"%1/%2-%3.png"_s.arg(folder, name).arg(widget.devicePixelRatio());
    EXPECT_TRUE(picture.save(file)) << qPrintable(file);
}

/// Every visible text has the room it asks for.
template<typename Control> void expectUnclipped(const QWidget& window) {
    for (const Control* control : window.findChildren<Control*>()) {
        if (!control->isVisible())
            continue;
        const QSize wanted = control->minimumSizeHint();
        EXPECT_GE(control->width(), wanted.width()) << qPrintable(control->text());
        EXPECT_GE(control->height(), wanted.height()) << qPrintable(control->text());
    }
}

void expectNothingClipped(const QWidget& window) {
    expectUnclipped<QLabel>(window);
    expectUnclipped<QCheckBox>(window);
    expectUnclipped<QRadioButton>(window);
    expectUnclipped<QPushButton>(window);
}

} // namespace

TEST(Pictures, NoTextOfTheMainWindowIsClipped) {
    const PlainLook plain;
    skin::SkinFramework framework;
    framework.loadSkin(QStringLiteral(STYLES_FOLDER "/Office2007.cjstyles"), u"LightBlue.ini"_s);
    framework.setApplyOptions(skin::ApplyToNewWindows);
    DemoWindow window;
    framework.applyWindow(window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    expectNothingClipped(window);
    window.grid->setFocus();
    auto* save = window.toolBar->widgetForAction(window.findChild<QAction*>(u"grabar"_s));
    QTest::mouseMove(save);
    QTest::qWait(50);
    keep(window, u"window"_s);
    window.editMenu->popup(window.mapToGlobal(QPoint(0, 20)));
    window.editMenu->setActiveAction(window.editMenu->actions().at(1));
    QTest::qWait(50);
    keep(*window.editMenu, u"menu"_s);
    window.editMenu->close();
    auto box = window.question();
    box->show();
    QTest::qWait(50);
    keep(*box, u"question"_s);
}

TEST(Pictures, NoTextOfTheDialogIsClippedAndItsPopUpsOpen) {
    const PlainLook plain;
    skin::SkinFramework framework;
    framework.loadSkin(QStringLiteral(STYLES_FOLDER "/Office2007.cjstyles"), u"LightBlue.ini"_s);
    framework.setApplyOptions(skin::ApplyToNewWindows);
    GalleryWindow window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    expectNothingClipped(window);
    window.findChild<QLineEdit*>(u"selected"_s)->setFocus();
    keep(window, u"gallery"_s);
    window.list->setFocus();
    window.list->showPopup();
    QTest::qWait(50);
    keep(*window.list->view()->window(), u"list"_s);
    window.list->hidePopup();
    QMenu* menu = window.contextMenu();
    menu->popup(window.mapToGlobal(QPoint(20, 20)));
    QTest::qWait(50);
    keep(*menu, u"context"_s);
    menu->close();
    QTest::mouseClick(window.date, Qt::LeftButton, {}, QPoint(window.date->width() - 8, 10));
    QTest::qWait(50);
    QWidget* calendar = QApplication::activePopupWidget();
    ASSERT_NE(calendar, nullptr);
    keep(*calendar, u"calendar"_s);
}
