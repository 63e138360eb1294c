#include "platform/quorvane32/lookup/SystemComponents.h"
#include "platform/quorvane32/lookup/StandardComponents.h"
#include "platform/quorvane32/lookup/windows/RegisteredComponents.h"

namespace quorvane {

std::unique_ptr<ComponentFactory> systemComponents(const RegionalSettings& regional) {
    return std::make_unique<RegisteredComponents>(std::make_unique<StandardComponents>(regional));
}

} // namespace quorvane
