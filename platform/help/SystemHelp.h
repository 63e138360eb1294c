#pragma once

#include "platform/help/HelpSystem.h"

#include <memory>

namespace help {

/// The help of the system that the program runs on: on Windows the system's own viewer, elsewhere ours.
/// Costs nothing until it is asked for a page.
std::unique_ptr<HelpSystem> systemHelp();

} // namespace help
