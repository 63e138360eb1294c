#pragma once

#include "platform/help/HelpSystem.h"

#include <QDateTime>
#include <memory>

namespace help {

class HelpFile;
class HelpViewer;

/// Shows compiled help files in the program's own viewer window. Neither the window nor the file is touched
/// before the first call, so a program pays nothing for it at start-up; afterwards one window serves every
/// call.
class ChmHelpSystem : public HelpSystem {
public:
    ChmHelpSystem();
    ~ChmHelpSystem() override;

    void htmlHelp(const QString& file, int command, const QVariant& data = {}) override;

    /// The window, once a call has made it; else null.
    HelpViewer* viewer() const { return m_viewer.get(); }

private:
    std::shared_ptr<const HelpFile> fileAt(const QString& path);
    HelpViewer& usableViewer();

    std::unique_ptr<HelpViewer> m_viewer;
    std::shared_ptr<const HelpFile> m_file;
    QDateTime m_fileTime;
};

} // namespace help
