#pragma once

#include <QString>

namespace quorvane {

/// An Argon2id hash of the password with its own random salt, as text; about a tenth of a second and 64 MiB,
/// which is what slows a guesser down. Error 7 when that memory is not there.
QString hashPassword(const QString& password);

/// True when the hash was made from the password. An empty or damaged hash fits no password and takes as
/// long.
bool verifyPassword(const QString& hash, const QString& password);

} // namespace quorvane
