#include "platform/dde/SystemEnds.h"
#include "platform/dde/windows/DdeAnswerer.h"
#include "platform/dde/windows/DdeRequestLink.h"

namespace quorvane {

std::unique_ptr<RequestLink> makeSystemLink() {
    return std::make_unique<DdeRequestLink>();
}

std::unique_ptr<RequestAnswerer> makeSystemAnswerer(const QString& topic, RequestAnswerer::Executor execute) {
    return std::make_unique<DdeAnswerer>(topic, std::move(execute));
}

} // namespace quorvane
