#pragma once

#include "platform/dde/RequestAnswerer.h"
#include "platform/dde/RequestLink.h"
#include <memory>

namespace quorvane {

// Both ends of the channel in the way of this system: DDE on Windows, local sockets elsewhere.

std::unique_ptr<RequestLink> makeSystemLink();
std::unique_ptr<RequestAnswerer> makeSystemAnswerer(const QString& topic, RequestAnswerer::Executor execute);

} // namespace quorvane
