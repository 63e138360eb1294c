#include "app/ProgramVersion.h"
#include "app/Version.h"

namespace dalvora {

ProgramVersion programVersion() {
    return {versionMajor, versionMinor, versionRevision};
}

} // namespace dalvora
