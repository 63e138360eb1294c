#pragma once

#include "demo/Commission.h"
#include <vector>

namespace dalvora::demo {

/// The commission schemes of the demonstration company, each period an entry of its own.
std::vector<Scheme> demonstrationSchemes();

/// The scheme code assigned to a salesperson; "" for the one who has none.
QString assignedScheme(const QString& salesperson);

} // namespace dalvora::demo
