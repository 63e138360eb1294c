#pragma once

#include <QString>

namespace dalvora {

/// Which of the user's desktops this program's windows appear on, where he can have several at a time.
QString desktopName();

/// Lets the program that is asked next put its window before this one's. Where the system keeps windows of
/// programs that nobody is using in the back, only the one in use can give that away.
void letOthersComeToFront();

} // namespace dalvora
