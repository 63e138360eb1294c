#pragma once

#include "app/ProgramVersion.h"
#include <QString>
#include <optional>

namespace dalvora {

/// The version in a program file's version resource: its first, second and fourth number. Nothing when the
/// file has none.
std::optional<ProgramVersion> versionResource(const QString& file);

} // namespace dalvora
