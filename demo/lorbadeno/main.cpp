#include "demo/lorbadeno/DocumentProgram.h"
#include "demo/lorbadeno/VncPort.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/session/Profile.h"
#include "platform/skin/ImageList.h"
#include "platform/skin/SkinFramework.h"
#include "platform/skin/UiFont.h"
#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <cstdio>

namespace {

void dress(dalvora::lorbadeno::DocumentWindow& window) {
    skin::SkinFramework framework;
    try {
        framework.loadSkin(QCoreApplication::applicationDirPath() +
                               QStringLiteral("/../Styles/Office2007.cjstyles"),
                           QStringLiteral("LightBlue.ini"));
    } catch (const quorvane::RunTimeError&) {
        // The toolkit's own look will do.
    }
    framework.applyWindow(window);
    framework.setApplyOptions(skin::ApplyToNewWindows);
}

/// Where windows are served over VNC each program is a screen of its own: this one's is beside that of the
/// program that started it.
void takeOwnScreen() {
    const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
    const int port = dalvora::lorbadeno::ownVncPort(platform);
    if (port == 0)
        return;
    qputenv("QT_QPA_PLATFORM", dalvora::lorbadeno::withVncPort(platform, port).toLocal8Bit());
    std::fprintf(stderr, "Los documentos se ven por VNC en el puerto %d.\n", port);
}

bool answers(dalvora::lorbadeno::DocumentProgram& program) {
    try {
        if (program.start())
            return true;
        std::fputs("Lorbadeno ya está en ejecución, o no puede recibir requerimientos.\n", stderr);
    } catch (const quorvane::RunTimeError& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return false;
}

} // namespace

int main(int argc, char** argv) {
    takeOwnScreen();
#ifdef Q_OS_WIN
    // As in the program: one font, that of its look.
    QApplication::setDesktopSettingsAware(false);
#endif
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Spanish));
    QTranslator texts;
    if (texts.load(QStringLiteral("qtbase_es"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&texts);
    QApplication::setApplicationName(QStringLiteral("Lorbadeno"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setFont(skin::uiFont());
    QApplication::setWindowIcon(skin::windowIcon());

    dalvora::lorbadeno::DocumentProgram program(quorvane::Profile::defaultFolder());
    dress(program.window());
    if (!answers(program))
        return 1;
    return QApplication::exec();
}
