#pragma once

#include "app/Program.h"
#include "platform/help/SystemHelp.h"
#include "platform/quorvane32/login/LoginWindow.h"
#include "platform/quorvane32/lookup/SystemComponents.h"
#include <QTranslator>

class QApplication;

namespace dalvora {

/// The parts of the real program: its folder, its language, the session over the user's profile, the
/// components and the help. Makes the application speak Spanish.
class Installation {
public:
    explicit Installation(QApplication& application);

    ProgramParts parts();

private:
    /// The session; the first start creates the demonstration company and its profile.
    std::unique_ptr<quorvane::Session> makeSession();

    quorvane::RegionalSettings m_regional;
    QTranslator m_buttons;
    quorvane::LoginWindowPrompt m_login{QStringLiteral("Veltrano")};
    std::unique_ptr<quorvane::ComponentFactory> m_components;
    std::unique_ptr<help::HelpSystem> m_help = help::systemHelp();
};

} // namespace dalvora
