#pragma once

#include <QList>
#include <QPixmap>

class QWidget;

namespace tour {

/// The windows and lists that are open beside the main window, from the lowest to the topmost, hints left
/// out.
QList<QWidget*> otherWindows(const QWidget& mainWindow);

/// Whether the window is the active one; asks for it when it is not. Without a window manager nobody makes
/// another window active when one is closed.
bool bringToFront(QWidget& window);

/// What a person would see: the main window with every open window and list over it, each window with a plain
/// title bar, since the offscreen platform draws none.
QPixmap pictureOfScreen(QWidget& mainWindow);

} // namespace tour
