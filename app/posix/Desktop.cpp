#include "app/Desktop.h"

namespace dalvora {

QString desktopName() {
    QString name;
    for (const char* variable : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
        name += qEnvironmentVariable(variable) + u'\n';
    return name;
}

void letOthersComeToFront() {
    // Window managers let a program raise its own window.
}

} // namespace dalvora
