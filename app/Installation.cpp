#include "app/Installation.h"
#include "app/ProgramVersion.h"
#include "app/Regional.h"
#include "demo/Demonstration.h"
#include "platform/quorvane32/session/ErpSession.h"
#include "platform/quorvane32/session/Profile.h"
#include "platform/skin/ImageList.h"
#include "platform/skin/UiFont.h"
#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>

namespace dalvora {

Installation::Installation(QApplication& application)
    : m_regional(regionalSettings(QLocale::system())), m_components(quorvane::systemComponents(m_regional)) {
    QLocale::setDefault(QLocale(QLocale::Spanish));
    if (m_buttons.load(QStringLiteral("qtbase_es"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&m_buttons);
    QApplication::setApplicationName(QStringLiteral("Dalvora"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setFont(skin::uiFont());
    QApplication::setWindowIcon(skin::windowIcon());
    application.setQuitOnLastWindowClosed(false);
}

std::unique_ptr<quorvane::Session> Installation::makeSession() {
    const QString folder = quorvane::Profile::defaultFolder();
    if (!quorvane::Profile::exists(folder))
        demo::createDemonstration(folder);
    return std::make_unique<quorvane::ErpSession>(folder, &m_login);
}

ProgramParts Installation::parts() {
    const ProgramVersion version = programVersion();
    quorvane::ApplicationInfo application{QDir::toNativeSeparators(QCoreApplication::applicationDirPath()),
                                          QStringLiteral("dalvora.chm"), version.major, version.minor,
                                          version.revision};
    const QString styleFile = application.path + QStringLiteral("/../Styles/Office2007.cjstyles");
    return {std::move(application),           styleFile,     m_regional,
            [this] { return makeSession(); }, *m_components, *m_help};
}

} // namespace dalvora
