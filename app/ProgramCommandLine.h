#pragma once

#include <QString>

namespace dalvora {

/// What stands behind the program's name on its command line, as one text.
QString programCommandLine();

} // namespace dalvora
