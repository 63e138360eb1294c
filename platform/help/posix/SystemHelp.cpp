#include "platform/help/SystemHelp.h"

#include "platform/help/ChmHelpSystem.h"

namespace help {

std::unique_ptr<HelpSystem> systemHelp() {
    return std::make_unique<ChmHelpSystem>();
}

} // namespace help
