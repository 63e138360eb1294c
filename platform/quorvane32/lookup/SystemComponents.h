#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/core/Components.h"
#include <memory>

namespace quorvane {

/// The components of the system that the program runs on: on Windows those that the ERP has registered, ours
/// where it has not; elsewhere ours.
std::unique_ptr<ComponentFactory> systemComponents(const RegionalSettings& regional);

} // namespace quorvane
