#pragma once

#include "ui/toolbar/NativeWindows.h"
#include <memory>

namespace dalvora::toolbar {

/// The native windows of this computer.
std::unique_ptr<NativeWindows> windowSystem();

} // namespace dalvora::toolbar
