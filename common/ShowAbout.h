#pragma once

#include <QString>

namespace dalvora {

struct ComponentServices;

/// Shows the about box with the program's version. Errors are told in a message box and never leave it.
void ShowAbout(const ComponentServices& services, const QString& title, const QString& description);

} // namespace dalvora
