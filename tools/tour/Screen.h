#pragma once

#include <QPixmap>

class QWidget;

namespace tour {

/// What a person would see: the main window with every open window and list over it, each window with a plain
/// title bar, since the offscreen platform draws none.
QPixmap pictureOfScreen(QWidget& mainWindow);

} // namespace tour
