#pragma once

namespace dalvora {

/// The program's version. The revision packs a build number behind its leading digits (see FormateaVersion).
struct ProgramVersion {
    int major = 0;
    int minor = 0;
    int revision = 0;
    bool operator==(const ProgramVersion&) const = default;
};

/// The running program's version: that of its version resource on Windows, the build's elsewhere.
ProgramVersion programVersion();

} // namespace dalvora
