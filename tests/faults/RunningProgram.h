#pragma once

#include "app/Installation.h"
#include "app/Program.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/main/frmMain.h"
#include "tests/faults/TestCompany.h"
#include <QTemporaryDir>
#include <memory>

namespace dalvora::test {

/// What stands beside an installed program, copied into a folder of its own so that a test can damage it.
class ProgramFiles {
public:
    ProgramFiles();

    QString programFolder() const { return m_folder.filePath(QStringLiteral("bin")); }
    QString queryFile() const { return programFolder() + QStringLiteral("/DALVORA.qry"); }
    QString helpFile() const { return programFolder() + QStringLiteral("/dalvora.chm"); }
    QString styleFile() const { return m_folder.filePath(QStringLiteral("Styles/Office2007.cjstyles")); }

private:
    QTemporaryDir m_folder;
};

/// The real program with its real parts over the profile of a folder, used with real key and mouse events.
class RunningProgram {
public:
    RunningProgram(QString profileFolder, const ProgramFiles& files);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    /// The start-up sequence; false when the process would end.
    bool start(const QString& commandLine = {});

    frmMain& form() { return m_program->form(); }
    MainControls& controls() { return form().controls(); }
    SessionContext& context() { return m_program->context(); }
    DBTable& table() { return *context().Table; }

    /// Presses a toolbar button with the mouse and waits for its command.
    void click(const QString& key);
    /// Types a text into a header control and leaves it with Tab.
    void enter(QWidget& control, const QString& text);
    /// Types a code, which with its dates empty reads on the button, and reads its first period.
    void read(const QString& code);
    void showTabOf(const quorvane::XGrid& grid);
    /// Puts the cursor on a cell, types a text over it and ends with Enter.
    void enterCell(quorvane::XGrid& grid, int row, int column, const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Everything that the user sees of the scheme: header, period and all cells of the three grids.
    QStringList screen();

private:
    void bringUp();
    void type(const QString& text);
    void settle();

    QString m_profileFolder;
    Installation m_installation;
    std::unique_ptr<Program> m_program;
};

} // namespace dalvora::test
