#pragma once

#include "platform/help/HelpSystem.h"

namespace help {

/// Shows compiled help files in the system's own viewer, through the HTML help call. Its library is loaded
/// with the first call, so that a program starts without it; it stays loaded, since the viewer may have
/// threads of its own in it. The viewer's windows end with this object.
class HtmlHelpSystem : public HelpSystem {
public:
    /// `library`: the file that offers the call, looked for in the system's folder; tests give another.
    explicit HtmlHelpSystem(QString library = QStringLiteral("hhctrl.ocx"));
    ~HtmlHelpSystem() override;
    HtmlHelpSystem(const HtmlHelpSystem&) = delete;
    HtmlHelpSystem& operator=(const HtmlHelpSystem&) = delete;

    /// As the interface tells; what the viewer does not show is error 3265 for a topic or context and 5
    /// otherwise. Error 75 for a file whose folders cannot be named in the system's code page.
    void htmlHelp(const QString& file, int command, const QVariant& data = {}) override;

private:
    /// Loads the library; error ErrorViewerNotUsable when it or its entry point is missing.
    void load();

    QString m_library;
    QFunctionPointer m_entryPoint = nullptr;
};

} // namespace help
