#pragma once

#include <QString>

namespace help {
class HelpSystem;
}

namespace dalvora {

/// Opens a help file at a topic: "0" or nothing is the table of contents, -1 the index, any other number a
/// help context, and a text the page of that name. Errors are told in a message box and never leave it.
void Help(help::HelpSystem& system, const QString& helpFile, const QString& topic);

} // namespace dalvora
