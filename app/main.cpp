#include "app/Installation.h"
#include "app/Program.h"
#include "forms/MessageBoxes.h"
#include "forms/main/frmMain.h"
#include <QApplication>

int main(int argc, char** argv) {
#ifdef Q_OS_WIN
    // The system would give lists and tables a font of its own, beside the one of the program's look.
    QApplication::setDesktopSettingsAware(false);
#endif
    QApplication application(argc, argv);
    dalvora::MessageBoxes messages;
    dalvora::installMessagePresenter(&messages);
    dalvora::Installation installation(application);

    dalvora::Program program(installation.parts());
    QObject::connect(&program, &dalvora::Program::ended, &application, &QApplication::quit,
                     Qt::QueuedConnection);
    const QString commandLine = application.arguments().mid(1).join(u' ');
    const bool running = program.Form_Initialize(commandLine);
    const int result = running ? QApplication::exec() : 1;
    dalvora::installMessagePresenter(nullptr);
    return result;
}
