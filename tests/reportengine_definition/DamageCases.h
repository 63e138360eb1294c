#pragma once

#include <QByteArray>
#include <vector>

namespace quorvane::report::test {

/// A way to damage the full definition, and what must be said about it.
struct DamageCase {
    const char* name;
    const char* part; ///< the first place of this text is replaced
    const char* replacement;
    const char* place;      ///< the line named is the one in which this text begins in the damaged file
    const char* reason;     ///< is in the description
    bool schemaSees = true; ///< false: a rule that a schema cannot tell
};

const std::vector<DamageCase>& damageCases();
/// The full definition, damaged so.
QByteArray damaged(const DamageCase& damage);

} // namespace quorvane::report::test
