#pragma once

#include <QString>

namespace quorvane::admin {

/// Reads a password: at a terminal with its letters hidden and asked for twice, else one line of the standard
/// input. Error 5 when the two differ or nothing comes.
QString readPassword();

} // namespace quorvane::admin
