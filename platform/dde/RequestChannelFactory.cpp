#include "platform/dde/RequestChannelFactory.h"
#include "platform/quorvane32/base/Module.h"

namespace quorvane {

RequestChannelFactory& requestChannel() {
    return moduleFactory<RequestChannelFactory>(QStringLiteral("quorvane_dde_module"),
                                                QStringLiteral("el canal de requerimientos"));
}

} // namespace quorvane
