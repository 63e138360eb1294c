#include "platform/help/SystemHelp.h"

#include "platform/help/windows/HtmlHelpSystem.h"

namespace help {

std::unique_ptr<HelpSystem> systemHelp() {
    return std::make_unique<HtmlHelpSystem>();
}

} // namespace help
