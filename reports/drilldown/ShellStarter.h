#pragma once

#include "reports/drilldown/ProgramStarter.h"

namespace dalvora {

/// Starts programs as the system's shell does. On Windows it is that shell. Elsewhere a name without a folder
/// is looked for beside our own program, where the ERP's programs stand together, then where the system looks
/// for commands; the ERP names files as Windows does: "\" parts folders and "C:\" is the root.
class ShellStarter final : public ProgramStarter {
public:
    explicit ShellStarter(QString programFolder) : m_programFolder(std::move(programFolder)) {}

    int open(const QString& file, const QString& workingFolder, int showState) override;

private:
    QString m_programFolder;
};

} // namespace dalvora
