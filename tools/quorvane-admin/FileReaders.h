#pragma once

#include <QString>

namespace quorvane::admin {

/// Whether other users of this machine may read a file.
bool othersMayRead(const QString& file);

} // namespace quorvane::admin
