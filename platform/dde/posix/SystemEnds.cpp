#include "platform/dde/SystemEnds.h"
#include "platform/dde/LocalRequestLink.h"
#include "platform/dde/RequestServer.h"

namespace quorvane {

std::unique_ptr<RequestLink> makeSystemLink() {
    return std::make_unique<LocalRequestLink>();
}

std::unique_ptr<RequestAnswerer> makeSystemAnswerer(const QString& topic, RequestAnswerer::Executor execute) {
    return std::make_unique<RequestServer>(topic, std::move(execute));
}

} // namespace quorvane
