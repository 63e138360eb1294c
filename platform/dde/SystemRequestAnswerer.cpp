#include "platform/dde/SystemRequestAnswerer.h"
#include "platform/dde/RequestChannelFactory.h"

namespace quorvane {

std::unique_ptr<RequestAnswerer> makeRequestAnswerer(const QString& topic,
                                                     RequestAnswerer::Executor execute) {
    return requestChannel().makeAnswerer(topic, std::move(execute));
}

} // namespace quorvane
