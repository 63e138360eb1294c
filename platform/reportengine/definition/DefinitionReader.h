#pragma once

#include "platform/reportengine/definition/Definition.h"

namespace quorvane::report {

/// Reads a definition file. Error 53 when there is no such file, 75 when it cannot be read, 321 when it is
/// damaged: the description then gives file, line and reason in Spanish.
Definition readDefinition(const QString& path);

} // namespace quorvane::report
