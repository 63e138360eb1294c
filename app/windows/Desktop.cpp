#include "app/Desktop.h"
#include <windows.h>

namespace dalvora {

// Locks and conversations never leave the session of the user who signed in, which has one desktop.
QString desktopName() {
    return {};
}

void letOthersComeToFront() {
    AllowSetForegroundWindow(ASFW_ANY);
}

} // namespace dalvora
