#pragma once

#include <QString>

namespace dalvora {

/// The shell's "open" verb on a program.
class ProgramStarter {
public:
    virtual ~ProgramStarter() = default;

    /// Starts a program without parameters and does not wait for it. `showState` 1 shows its window as usual.
    /// Above 32 when it was started, else the shell's number of the reason (2 not found, 3 no such folder, 5
    /// not allowed, 11 no program).
    virtual int open(const QString& file, const QString& workingFolder, int showState) = 0;
};

} // namespace dalvora
