#include "reports/processing/MousePointer.h"
#include <QCursor>
#include <QGuiApplication>

namespace dalvora {

void setMousePointer(MousePointer pointer) {
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return; // a program without windows has no pointer
    while (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
    if (pointer == MousePointer::HourGlass)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

} // namespace dalvora
