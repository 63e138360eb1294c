#include "platform/dde/SystemRequestLink.h"
#include "platform/quorvane32/base/Module.h"

namespace quorvane {

RequestLink& SystemRequestLink::link() {
    if (!m_link)
        m_link = moduleFactory<RequestLinkFactory>(QStringLiteral("quorvane_dde_module"),
                                                   QStringLiteral("el canal de requerimientos"))
                     .makeLink();
    return *m_link;
}

} // namespace quorvane
