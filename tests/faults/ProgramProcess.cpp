// The real program as a process of its own, without windows to answer: messages go to the error stream and
// questions are answered with No. When it is given a code it reads and saves that scheme; then it closes.
//
//   fault_program HOME PROGRAM-FOLDER STYLE-FILE USER COMMAND-LINE [CODE]
//
// USER is "nadie" to go on without the superuser's rights, or "mismo". What it finds goes to standard output.

#include "app/Installation.h"
#include "app/Program.h"
#include "data/DBTable.h"
#include "forms/main/frmMain.h"
#include "platform/quorvane32/core/Session.h"
#include <QApplication>
#include <cstdio>
#include <unistd.h>

namespace {

bool giveUpRights() {
    constexpr unsigned nobody = 65534;
    return geteuid() != 0 || (setgid(nobody) == 0 && setuid(nobody) == 0);
}

void tellWhatIsThere(dalvora::Program& program, const QString& code) {
    dalvora::DBTable& table = *program.context().Table;
    std::printf("derechos %s\n", qPrintable(program.context().Session->AccessRights()));
    if (code.isEmpty())
        return;
    table.setTextValue(2, code);
    dalvora::RecordCommands& record = program.form().record();
    const bool found = record.readRecord(0) && table.SysRecordFound;
    std::printf("%s %d lineas\n", found ? "leido" : "no leido", table.DetailsCount());
    std::printf("%s\n", record.saveRecord() ? "grabado" : "no grabado");
}

} // namespace

int main(int argc, char** argv) {
    const QStringList words = [&] {
        QStringList list;
        for (int i = 1; i < argc; ++i)
            list << QString::fromLocal8Bit(argv[i]);
        return list;
    }();
    if (words.size() < 5 || (words[3] == u"nadie" && !giveUpRights()))
        return 2;
    qputenv("QUORVANE_HOME", words[0].toLocal8Bit());
    QApplication application(argc, argv);
    // Where the program's own folder has its modules, which is not this one's.
    QCoreApplication::addLibraryPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../../bin"));
    dalvora::Installation installation(application);
    dalvora::ProgramParts parts = installation.parts();
    parts.application.path = words[1];
    parts.styleFile = words[2];
    dalvora::Program program(std::move(parts));
    if (!program.Form_Initialize(words[4]))
        return 1;
    tellWhatIsThere(program, words.value(5));
    return program.Form_Unload() ? 0 : 1;
}
