#pragma once

#include "platform/skin/SkinValues.h"

#include <QString>

namespace skin {

/// Reads one section of a style file (format: docs/styles.md). Nothing is changed when it fails.
/// Raises 53 when the file is missing, 75 when it cannot be read, 5 when it is damaged; the description is
/// Spanish and names the file and, where there is one, the line.
SkinValues readStyleFile(const QString& path, const QString& section);

} // namespace skin
