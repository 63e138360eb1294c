#pragma once

#include "platform/dde/RequestAnswerer.h"
#include <memory>

namespace quorvane {

/// The answering end of this system's request channel for a topic "application|topic"; it does not answer
/// before it listens. Error 429 when the channel's module cannot be loaded.
std::unique_ptr<RequestAnswerer> makeRequestAnswerer(const QString& topic, RequestAnswerer::Executor execute);

} // namespace quorvane
