#include "data/SessionContext.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"

namespace dalvora {

SessionContext::SessionContext() : AppTitle(messageTitle.toString()) {}

SessionContext::~SessionContext() {
    Table.reset();
    Session.reset();
    Connection.reset();
}

} // namespace dalvora
