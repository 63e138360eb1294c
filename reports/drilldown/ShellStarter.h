#pragma once

#include "reports/drilldown/ProgramStarter.h"

namespace dalvora {

/// Starts programs of this system. A name without a folder is looked for beside our own program, where the
/// ERP's programs stand together, then where the system looks for commands. The ERP names files as its own
/// system does: "\" parts folders and "C:\" is the root.
class ShellStarter final : public ProgramStarter {
public:
    explicit ShellStarter(QString programFolder) : m_programFolder(std::move(programFolder)) {}

    int open(const QString& file, const QString& workingFolder, int showState) override;

private:
    QString find(const QString& file) const;

    QString m_programFolder;
};

} // namespace dalvora
