#include "app/ProgramVersion.h"
#include "app/Version.h"
#include "app/windows/VersionResource.h"
#include <QCoreApplication>
#include <QDir>

namespace dalvora {

// Programs around this one's parts, such as tests, have no resource.
ProgramVersion programVersion() {
    const QString program = QDir::toNativeSeparators(QCoreApplication::applicationFilePath());
    return versionResource(program).value_or(ProgramVersion{versionMajor, versionMinor, versionRevision});
}

} // namespace dalvora
