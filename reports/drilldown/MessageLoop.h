#pragma once

namespace dalvora {

/// Lets the program answer one round of what has happened meanwhile: paints, keys, clicks, timers. Gives the
/// processor away for a moment as well, so that 20,000 yields are a second or more on any machine and a
/// program that was just started gets to run.
void yieldToMessageLoop();

} // namespace dalvora
