#pragma once

#include "tests/load/LoadHistory.h"

namespace dalvora::test {

/// What a run came to.
struct LoadSummary {
    std::map<LoadKind, int> done;
    std::map<LoadKind, qint64> longest; ///< ns
    int notFound = 0;
    int refused = 0;      ///< "modificado por otro usuario"
    int duplicates = 0;   ///< "Ya existe un registro"
    int lockTimeouts = 0; ///< 1222
    int deadlocks = 0;    ///< 1205
    int repeated = 0;     ///< saves tried again after these two
    int auditEntries = 0;
    int cells = 0; ///< compared at the end
};

/// Holds the history of many users against what the program promises. Each line of the result is one promise
/// that was not kept:
///
/// - a read shows what one save wrote, whole, and neither what was overwritten before it began nor what had
///   not been begun when it ended; so does the database at the end;
/// - of two saves or deletions from the same reading one at most succeeds, where every save moves the period;
/// - a save is refused only when somebody else's came first, and a key is a duplicate only when there is one;
/// - every failure told exactly its message, every success none;
/// - the audit trail holds one entry for each operation that succeeded, and no other.
QStringList checkHistory(const LoadHistory& history, LoadSummary& summary);

} // namespace dalvora::test
