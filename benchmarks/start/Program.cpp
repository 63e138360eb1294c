// The program's own start, ended as soon as its main form is enabled and painted. Leaves at once: what is
// measured is the start.
#include "app/Program.h"
#include "app/Installation.h"
#include "forms/MessageBoxes.h"
#include "forms/main/frmMain.h"
#include <QApplication>
#include <cstdlib>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    dalvora::MessageBoxes messages;
    dalvora::installMessagePresenter(&messages);
    dalvora::Installation installation(application);
    dalvora::Program program(installation.parts());
    const bool running = program.Form_Initialize(QStringLiteral("EMPRESA=001"));
    QCoreApplication::processEvents();
    std::_Exit(running && program.form().isEnabled() ? 0 : 1);
}
