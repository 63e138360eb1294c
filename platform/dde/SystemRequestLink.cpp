#include "platform/dde/SystemRequestLink.h"
#include "platform/dde/RequestChannelFactory.h"

namespace quorvane {

RequestLink& SystemRequestLink::link() {
    if (!m_link)
        m_link = requestChannel().makeLink();
    return *m_link;
}

} // namespace quorvane
