#pragma once

#include <QKeyEvent>

namespace quorvane {

/// Windows virtual key numbers that the grid itself looks at.
enum VirtualKey : int { VirtualKeyF8 = 119 };

/// The Windows virtual key number of a key press; 0 for keys that have none here.
int virtualKey(const QKeyEvent& event);

/// True when the key press types a character, also one typed with AltGr.
bool typesCharacter(const QKeyEvent& event);

} // namespace quorvane
