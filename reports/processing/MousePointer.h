#pragma once

namespace dalvora {

/// The shapes of the program's mouse pointer that reports use.
enum class MousePointer : int { Default = 0, HourGlass = 11 };

/// Gives the pointer its shape over the whole program. There is one pointer and no memory of earlier shapes:
/// whoever sets it back sets it back for all.
void setMousePointer(MousePointer pointer);

} // namespace dalvora
