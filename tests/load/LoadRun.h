#pragma once

#include "tests/load/LoadChecker.h"
#include "tests/support/TestDatabase.h"

namespace dalvora::test {

/// One run: a company, its users' programs as processes of their own, and one that gets in their way.
struct LoadRun {
    TestEngine engine = TestEngine::Sqlite;
    int users = 8;
    int time = 1000; ///< ms of work
    quint32 seed = 1;
    QString missing; ///< what the programs lack (MissingParts.h)

    /// Runs it and returns all that is known of it.
    LoadHistory run() const;
};

/// What a run came to, in a few lines.
QString reportOf(const LoadRun& run, const LoadHistory& history, const LoadSummary& summary);

} // namespace dalvora::test
