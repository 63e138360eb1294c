#pragma once

#include "tests/faults/RunningProgram.h"

namespace dalvora::test {

/// One run of the program as a process of its own, from its start to its end.
struct ProgramRun {
    enum class User { Same, Unprivileged };

    /// Runs the program over a profile's folder; with a code it reads and saves that scheme.
    ProgramRun(const QString& profileFolder, const ProgramFiles& files, const QString& commandLine = {},
               const QString& code = {}, User user = User::Same);

    bool crashed = false;
    int result = -1;
    /// What it found: rights, whether the scheme was read, whether it was saved.
    QString found;
    /// The messages that it showed, a line break behind each.
    QString told;
};

} // namespace dalvora::test
