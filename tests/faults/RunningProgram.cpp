#include "tests/faults/RunningProgram.h"
#include "data/DBTable.h"
#include "forms/main/StatusPanels.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;

ProgramFiles::ProgramFiles() {
    QDir folder(m_folder.path());
    EXPECT_TRUE(folder.mkpath(u"bin"_s) && folder.mkpath(u"Styles"_s));
    EXPECT_TRUE(QFile::copy(QStringLiteral(DALVORA_SOURCE "/app/DALVORA.qry"), queryFile()));
    EXPECT_TRUE(QFile::copy(QStringLiteral(DALVORA_SOURCE "/Styles/Office2007.cjstyles"), styleFile()));
    EXPECT_TRUE(QFile::copy(QStringLiteral(DALVORA_HELP_FILE), helpFile()));
}

RunningProgram::RunningProgram(QString profileFolder, const ProgramFiles& files)
    : m_profileFolder(std::move(profileFolder)), m_installation(*qApp) {
    ProgramParts parts = m_installation.parts();
    parts.application.path = files.programFolder();
    parts.styleFile = files.styleFile();
    m_program = std::make_unique<Program>(std::move(parts));
}

RunningProgram::~RunningProgram() {
    if (context().Table)
        m_program->Form_Unload();
}

bool RunningProgram::start(const QString& commandLine) {
    qputenv("QUORVANE_HOME", m_profileFolder.toUtf8());
    return m_program->Form_Initialize(commandLine);
}

void RunningProgram::bringUp() {
    form().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
}

void RunningProgram::settle() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !controls().timFocus->isActive(); }));
    QCoreApplication::processEvents();
}

void RunningProgram::click(const QString& key) {
    bringUp();
    QTest::mouseClick(controls().Toolbar->widgetForAction(&controls().button(key)), Qt::LeftButton);
    settle();
}

void RunningProgram::type(const QString& text) {
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(c),
                            Qt::NoModifier);
}

void RunningProgram::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void RunningProgram::enter(QWidget& control, const QString& text) {
    bringUp();
    control.setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        press(Qt::Key_Delete);
    type(text);
    press(Qt::Key_Tab);
}

void RunningProgram::read(const QString& code) {
    enter(*controls().TxtCodigo, code);
    click(u"leer"_s);
}

void RunningProgram::showTabOf(const quorvane::XGrid& grid) {
    const auto grids = controls().grids();
    controls().SSTab1->setCurrentIndex(
        static_cast<int>(std::find(grids.begin(), grids.end(), &grid) - grids.begin()));
}

void RunningProgram::enterCell(quorvane::XGrid& grid, int row, int column, const QString& text) {
    bringUp();
    showTabOf(grid);
    grid.setFocus();
    grid.setRow(row);
    grid.setCol(column);
    type(text);
    press(Qt::Key_Return);
}

QStringList RunningProgram::screen() {
    const MainControls& all = controls();
    QStringList seen{all.TxtCodigo->text(),
                     all.TxtGlosa->text(),
                     all.FecIni->text(),
                     all.FecFin->text(),
                     all.CheckP->isChecked() ? u"S"_s : u"N"_s,
                     all.StatusBar->text(panelPeriodo)};
    for (const quorvane::XGrid* grid : all.grids())
        for (int row = 1; row < grid->rows(); ++row)
            for (int column = 1; column < grid->cols(); ++column)
                seen << grid->text(row, column);
    return seen;
}

} // namespace dalvora::test
