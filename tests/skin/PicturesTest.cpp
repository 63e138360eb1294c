// Grabs the demonstration window and its pop-ups. With SKIN_PICTURES naming a folder the pictures are kept
// there, to be looked at.

#include "platform/skin/SkinFramework.h"
#include "tests/skin/DemoWindow.h"
#include "tests/skin/GalleryWindow.h"
#include "tests/skin/PlainLook.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void keep(QWidget& widget, const QString& name) {
    const QString folder = qEnvironmentVariable("SKIN_PICTURES");
    if (folder.isEmpty())
        return;
    const QString file = u"%1/%2-%3.png"_s.arg(folder, name).arg(widget.devicePixelRatio());
    EXPECT_TRUE(widget.grab().save(file)) << qPrintable(file);
}

} // namespace

TEST(Pictures, DemoWindow) {
    const PlainLook plain;
    skin::SkinFramework framework;
    framework.loadSkin(QStringLiteral(STYLES_FOLDER "/Office2007.cjstyles"), u"LightBlue.ini"_s);
    framework.setApplyOptions(skin::ApplyToNewWindows);
    DemoWindow window;
    framework.applyWindow(window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
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

TEST(Pictures, GalleryWindow) {
    const PlainLook plain;
    skin::SkinFramework framework;
    framework.loadSkin(QStringLiteral(STYLES_FOLDER "/Office2007.cjstyles"), u"LightBlue.ini"_s);
    framework.setApplyOptions(skin::ApplyToNewWindows);
    GalleryWindow window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
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
    if (QWidget* popup = QApplication::activePopupWidget())
        keep(*popup, u"calendar"_s);
}
