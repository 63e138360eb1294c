// The program's own start, ended as soon as its main form is enabled and painted. Leaves at once: what is
// measured is the start.
#include "app/Program.h"
#include "app/FirstInstance.h"
#include "app/Installation.h"
#include "forms/MessageBoxes.h"
#include "forms/main/frmMain.h"
#include "platform/quorvane32/session/Profile.h"
#include <QApplication>
#include <cstdlib>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    dalvora::MessageBoxes messages;
    dalvora::installMessagePresenter(&messages);
    dalvora::Installation installation(application);
    dalvora::FirstInstance instance(quorvane::Profile::defaultFolder());
    dalvora::ProgramParts parts = installation.parts();
    parts.givesWay = [&instance](const QString& company) { return instance.givesWay(company); };
    dalvora::Program program(std::move(parts));
    const bool running = program.Form_Initialize(QStringLiteral("EMPRESA=001"));
    QCoreApplication::processEvents();
    std::_Exit(running && program.form().isEnabled() ? 0 : 1);
}
