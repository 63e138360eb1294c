#include "app/Installation.h"
#include "app/Program.h"
#include "forms/MessageBoxes.h"
#include "forms/main/frmMain.h"
#include "tools/tour/Tour.h"
#include "ui/toolbar/demo/DemoWindow.h"
#include <QApplication>
#include <QDir>
#include <QStyle>
#include <QTemporaryDir>
#include <cstdio>

namespace {

/// The skinned toolbars, which stand ready for forms, beside plain ones in the toolkit's own look.
QPixmap pictureOfToolbars() {
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
    dalvora::toolbar::DemoWindow window(dalvora::toolbar::shippedSkin());
    window.show();
    window.pointAtButton();
    QApplication::processEvents();
    return window.grab();
}

} // namespace

// Plays the main job in a company of its own and leaves pictures in the folder given as only argument.
int main(int argc, char** argv) {
#ifdef Q_OS_WIN
    // As in the program: one font, that of its look.
    QApplication::setDesktopSettingsAware(false);
#endif
    QApplication application(argc, argv);
    if (application.arguments().size() != 2) {
        std::fprintf(stderr, "usage: dalvora_tour FOLDER\n");
        return 2;
    }
    const QString folder = application.arguments().at(1);
    const QTemporaryDir home;
    if (!QDir().mkpath(folder) || !home.isValid()) {
        std::fprintf(stderr, "%s: no se pudo crear la carpeta\n", qPrintable(folder));
        return 1;
    }
    qputenv("QUORVANE_HOME", home.path().toUtf8());
    // The document program of the tour answers nobody else, and nobody else answers the tour.
    const QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());

    dalvora::MessageBoxes messages;
    dalvora::installMessagePresenter(&messages);
    dalvora::Installation installation(application);
    dalvora::Program program(installation.parts());
    if (!program.Form_Initialize(QStringLiteral("EMPRESA=001")))
        return 1;
    tour::Tour tour(program.form(), folder);
    QObject::connect(&tour, &tour::Tour::finished, &application, &QApplication::quit);
    tour.start();
    QApplication::exec();
    program.Form_Unload();
    tour.addPicture(QStringLiteral("barra-con-piel"), pictureOfToolbars());
    dalvora::installMessagePresenter(nullptr);
    return tour.failures() == 0 ? 0 : 1;
}
