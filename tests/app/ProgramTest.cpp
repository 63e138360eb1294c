// The program from its command line to its end, over a real database of each engine.
#include "app/Program.h"
#include "data/DBTable.h"
#include "forms/main/StatusPanels.h"
#include "forms/main/frmMain.h"
#include "forms/vendedor/FM_Vendedor.h"
#include "platform/help/HelpSystem.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/reportengine/engine/Report.h"
#include "tests/common/FakeComponents.h"
#include "tests/support/FakeSession.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TestDatabase.h"
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;

namespace {

/// Notes how the program signs in, and opens the given database or gives up or fails.
class SigningSession final : public quorvane::Session {
public:
    struct Script {
        QString connectString;
        QStringList calls;
        bool cancel = false;
        std::optional<quorvane::RunTimeError> error;
        QString warning;
        std::optional<quorvane::RunTimeError> endError;
        std::function<void()> beforeReports = [] {}; ///< happens just before the reports connect
    };
    explicit SigningSession(Script& script) : m_script(script) {}

    void SetApplication(const quorvane::ApplicationInfo& application) override {
        m_script.calls << u"SetApplication "_s + application.helpFile;
    }
    void SetClientInfo(const QString& info) override {
        m_script.calls << (info.isEmpty() ? u"SetClientInfo"_s : u"SetClientInfo text"_s);
    }
    void Initialize(quorvane::Connection& connection, const QString& module, const QString& program,
                    const QString& version, const QString& company, bool& cancel) override {
        m_script.calls << QStringList{u"Initialize"_s, module, program, version, u'[' + company + u']'}.join(
            u' ');
        if (m_script.error)
            throw *m_script.error;
        cancel = m_script.cancel;
        if (!cancel)
            connection.open(m_script.connectString);
    }
    QString CompanyName() const override {
        // The start asks for it just before the reports connect.
        m_script.beforeReports();
        return u"Comercial de Prueba"_s;
    }
    QString CompanyCode() const override { return u"01"_s; }
    QString UserName() const override { return u"ana"_s; }
    QString AccessRights() const override { return u"RWXD"_s; }
    QString Warning() const override { return m_script.warning; }
    void Audit(int code, const QString& text) override {
        if (m_script.endError && code == quorvane::AuditEnd)
            throw *m_script.endError;
        m_script.calls << u"Audit %1 [%2]"_s.arg(code).arg(text);
    }

private:
    Script& m_script;
};

class HelpRecorder final : public help::HelpSystem {
public:
    void htmlHelp(const QString& file, int command, const QVariant& data) override {
        calls << u"%1 %2 %3"_s.arg(QFileInfo(file).fileName()).arg(command).arg(data.toString());
    }
    QStringList calls;
};

class ProgramTest : public testing::TestWithParam<TestEngine> {
protected:
    ProgramTest() {
        script.connectString = database.connectString();
        database.run(u"INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Texto, Valor2) VALUES"
                     " ('01', 'GEN_MONEDA', 'PESO', '', 2),"
                     " ('01', 'CONFIG.EMPRESA', 'MONEDA', 'PESO', 0)"_s);
    }

    Program& start(const QString& commandLine, bool expected = true) {
        program = std::make_unique<Program>(
            ProgramParts{{folder.path(), helpFile, 7, 13, 1203},
                         QStringLiteral(DALVORA_STYLES) + u"/Office2007.cjstyles"_s,
                         {},
                         [this] { return std::make_unique<SigningSession>(script); },
                         components,
                         help});
        EXPECT_EQ(program->Form_Initialize(commandLine), expected);
        return *program;
    }
    /// A definition of a list of schemes beside the program.
    void define(const QString& name) {
        const QString definitions = folder.filePath(u"reportes/VELTRANO"_s);
        QDir().mkpath(definitions);
        QFile file(definitions + u'/' + name + u".rpt"_s);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(
            R"(<report title="CODIGOS"><page width="210" height="297" left="10" top="10" right="10" )"
            R"(bottom="10"/><styles><style name="s"/></styles><columns><column name="codigo" )"
            R"(type="text"/></columns><sections><details height="5"><field name="Field1" )"
            R"(column="codigo" left="0" top="0" width="20" height="5"/></details></sections></report>)");
    }
    /// Presses Aceptar in the selection form as soon as it is shown.
    static void acceptSelection() {
        QTimer::singleShot(0, qApp, [] {
            QWidget* const form = QApplication::activeModalWidget();
            ASSERT_NE(form, nullptr);
            QTest::mouseClick(form->findChild<QPushButton*>(u"coAceptar"_s), Qt::LeftButton);
        });
    }
    TestDatabase database{GetParam()};
    QTemporaryDir folder;
    QString helpFile = u"dalvora.chm"_s;
    MessageRecorder recorder;
    SigningSession::Script script;
    FakeComponents components;
    HelpRecorder help;
    std::unique_ptr<Program> program;
};

} // namespace

TEST_P(ProgramTest, StartsSignedInWithAnEmptyRecord) {
    start(u"EMPRESA=01;USUARIO=x"_s);
    EXPECT_EQ(script.calls,
              (QStringList{u"SetApplication "_s + folder.path() + QDir::separator() + u"dalvora.chm"_s,
                           u"SetClientInfo text"_s, u"Initialize DALVORA VELTRANO 7.13.12 [01]"_s,
                           u"Audit 2 []"_s}));
    EXPECT_EQ(recorder.take(), std::vector<Message>());
    frmMain& form = program->form();
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(form.windowTitle(), u"Veltrano"_s);
    EXPECT_EQ(form.controls().StatusBar->text(panelMensaje), QString());
    EXPECT_EQ(form.controls().StatusBar->text(panelEmpresa), u"Comercial de Prueba"_s);
    for (const quorvane::XGrid* grid : form.controls().grids())
        EXPECT_EQ(grid->rows(), 2);
    EXPECT_FALSE(program->context().Table->SysRecordEnabled);
    EXPECT_EQ(program->context().AppTitle, u"Quorvane ERP - Dalvora"_s);
    EXPECT_EQ(program->context().Table->SysPrograma, u"VELTRANO"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_P(ProgramTest, WithoutACompanyTheSessionDecides) {
    start(QString());
    EXPECT_EQ(script.calls.value(2), u"Initialize DALVORA VELTRANO 7.13.12 []"_s);
}

TEST_P(ProgramTest, GivingUpTheSignInEndsSilently) {
    script.cancel = true;
    start(u"EMPRESA=01"_s, false);
    EXPECT_EQ(recorder.take(), std::vector<Message>());
    EXPECT_TRUE(program->Form_Unload());
}

TEST_P(ProgramTest, AnErrorWhileStartingIsToldAndEndsTheStart) {
    script.error = quorvane::RunTimeError(53, u"No se encontró la base de datos x"_s);
    start(u"EMPRESA=01"_s, false);
    EXPECT_EQ(recorder.take(),
              (std::vector<Message>{
                  {u"Error al iniciar aplicación\n53 - No se encontró la base de datos x"_s, 16}}));
}

TEST_P(ProgramTest, ACommandLineTooLongIsAnErrorWhileStarting) {
    start(QString(40000, u'x'), false);
    EXPECT_EQ(recorder.take(),
              (std::vector<Message>{{u"Error al iniciar aplicación\n6 - Desbordamiento"_s, 16}}));
}

TEST_P(ProgramTest, MissingConfigurationEndsTheStartWithItsOneMessage) {
    database.run(u"DELETE FROM gen_tabcod"_s);
    start(u"EMPRESA=01"_s, false);
    EXPECT_EQ(
        recorder.take(),
        (std::vector<Message>{{u"No existe la siguiente configuración.\n\n"
                               "- Definición de monedas en parámetros generales.\n"
                               "- Definición de moneda local en parámetros o en la tabla de monedas.\n"_s,
                               64}}));
    EXPECT_EQ(script.calls.mid(3), (QStringList{u"Audit 2 []"_s, u"Audit 3 []"_s}));
}

TEST_P(ProgramTest, WhatTheSessionHasToSayIsSaidOnce) {
    script.warning = u"La base de datos es de sólo lectura."_s;
    start(u"EMPRESA=01"_s);
    EXPECT_EQ(recorder.take(), (std::vector<Message>{{u"La base de datos es de sólo lectura."_s, 48}}));
}

TEST_P(ProgramTest, HelpFileWithAFolderStaysAsItIs) {
    helpFile = u"/ayuda/otra.chm"_s;
    start(u"EMPRESA=01"_s);
    EXPECT_EQ(script.calls.first(), u"SetApplication /ayuda/otra.chm"_s);
}

TEST_P(ProgramTest, HelpKeyOpensTheMainContext) {
    frmMain& form = start(u"EMPRESA=01"_s).form();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::keyClick(&form, Qt::Key_F1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !help.calls.isEmpty(); }));
    EXPECT_EQ(help.calls, QStringList{u"dalvora.chm 15 138"_s});
}

TEST_P(ProgramTest, ReportsComeFromTheFolderBesideTheProgram) {
    define(u"Lista"_s);
    start(u"EMPRESA=01"_s);
    DBTable& table = *program->context().Table;
    EXPECT_EQ(table.ProgramName, u"VELTRANO"_s);
    ASSERT_EQ(table.ReportsCount(), 1);
    EXPECT_EQ(table.ReportsFile(0), u"Lista"_s);
}

TEST_P(ProgramTest, PreviewMakesTheChosenReport) {
    define(u"Lista"_s);
    start(u"EMPRESA=01"_s);
    program->context().Connection->execute(
        u"INSERT INTO Comisiones (Empresa, Codigo, Descripcion) VALUES ('01', 'C1', 'Esquema')"_s);
    acceptSelection();
    QString shown;
    QTimer leaveViewer;
    QObject::connect(&leaveViewer, &QTimer::timeout, [&shown] {
        QWidget* const form = QApplication::activeModalWidget();
        if (form && form->objectName() == u"FO_ViewReport"_s) {
            shown = form->windowTitle();
            form->findChild<QAction*>(u"arcSalir"_s)->trigger();
        }
    });
    leaveViewer.start(20);
    program->previewReport();
    EXPECT_EQ(shown, u"Visualiza Reportes"_s);
    EXPECT_EQ(recorder.take(), std::vector<Message>());
    ASSERT_NE(program->context().Table->Report(), nullptr);
    EXPECT_EQ(program->context().Table->Report()->pageCount(), 1);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_P(ProgramTest, WithoutDefinitionsThereIsNothingToPreviewOrPrint) {
    start(u"EMPRESA=01"_s);
    acceptSelection();
    program->previewReport();
    acceptSelection();
    program->printReport();
    EXPECT_EQ(recorder.take(), std::vector<Message>());
}

TEST_P(ProgramTest, MoreThanFiftyOneDefinitionsEndTheStartSilently) {
    for (int i = 0; i < 52; ++i)
        define(u"R%1"_s.arg(i));
    start(u"EMPRESA=01"_s, false);
    EXPECT_EQ(recorder.take(), std::vector<Message>());
}

TEST_P(ProgramTest, ReportsThatCannotConnectEndTheStartWithAMessage) {
    const TestDatabase tried(GetParam());
    quorvane::Connection user;
    user.open(tried.connectString());
    if (!tried.closeToOthers())
        GTEST_SKIP() << "this system keeps a file that is open";
    script.beforeReports = [this] { database.closeToOthers(); };
    start(u"EMPRESA=01"_s, false);
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told.front().text.startsWith(u"Error al iniciar aplicación\n"_s));
    EXPECT_EQ(told.front().style, 16);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_P(ProgramTest, MenuAndButtonShowTheSameSalespeopleForm) {
    frmMain& form = start(u"EMPRESA=01"_s).form();
    EXPECT_EQ(program->salespeople(), nullptr);
    ASSERT_TRUE(program->context().Table->DBRead(0)); // assigning needs the right to write what was read
    form.record().refreshCommands();
    form.controls().menuItem(u"mnuAsignar").trigger();
    FM_Vendedor* const salespeople = program->salespeople();
    ASSERT_NE(salespeople, nullptr);
    EXPECT_TRUE(salespeople->isVisible());
    EXPECT_FALSE(salespeople->isModal());
    EXPECT_TRUE(form.isEnabled());
    salespeople->close();
    QTest::mouseClick(form.controls().Toolbar->widgetForAction(&form.controls().button(u"cliente")),
                      Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return salespeople->isVisible(); }));
    EXPECT_EQ(program->salespeople(), salespeople);
    EXPECT_EQ(recorder.take(), std::vector<Message>());
}

TEST_P(ProgramTest, TheMainFormGoesOnWorkingBesideTheSalespeople) {
    frmMain& form = start(u"EMPRESA=01"_s).form();
    program->showSalespeople();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    form.controls().TxtCodigo->setFocus();
    QTest::keyClicks(form.controls().TxtCodigo, u"C9"_s);
    QTest::keyClick(form.controls().TxtCodigo, Qt::Key_Tab);
    program->showSalespeople();
    ASSERT_TRUE(QTest::qWaitForWindowActive(program->salespeople()));
    EXPECT_EQ(program->salespeople()->controls().SB->text(panelMensaje), u"Comisión: C9"_s);
}

TEST_P(ProgramTest, TheSalespeopleFormClosesWithTheProgram) {
    frmMain& form = start(u"EMPRESA=01"_s).form();
    program->showSalespeople();
    form.close();
    EXPECT_FALSE(program->salespeople()->isVisible());
    EXPECT_EQ(recorder.take(), std::vector<Message>());
}

TEST_P(ProgramTest, ClosingTheWindowEndsTheProgram) {
    start(u"EMPRESA=01"_s);
    int ended = 0;
    QObject::connect(program.get(), &Program::ended, [&ended] { ++ended; });
    program->form().close();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(script.calls.last(), u"Audit 3 []"_s);
    EXPECT_FALSE(program->form().isVisible());
    EXPECT_EQ(program->context().Table, nullptr);
    program->terminate();
    EXPECT_EQ(ended, 1);
}

TEST_P(ProgramTest, AnErrorAtTheEndIsTold) {
    start(u"EMPRESA=01"_s);
    script.endError = quorvane::RunTimeError(91, u"Variable de objeto no establecida"_s);
    program->terminate();
    EXPECT_EQ(recorder.take(),
              (std::vector<Message>{
                  {u"Error al terminar la aplicación\n91 - Variable de objeto no establecida"_s, 16}}));
}

TEST_P(ProgramTest, AMissingStyleFileIsOneWarning) {
    program =
        std::make_unique<Program>(ProgramParts{{folder.path(), helpFile, 1, 0, 0},
                                               folder.filePath(u"no.cjstyles"_s),
                                               {},
                                               [this] { return std::make_unique<SigningSession>(script); },
                                               components,
                                               help});
    EXPECT_TRUE(program->Form_Initialize(u"EMPRESA=01"_s));
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told.front().style, 48);
    EXPECT_TRUE(told.front().text.contains(u"no.cjstyles"_s));
}

TEST_P(ProgramTest, TheFormIsBusyWhileAComponentAsks) {
    start(u"EMPRESA=01"_s);
    int busy = 0;
    components.show = [&] {
        busy += program->form().isBusy() ? 1 : 0;
        return QString();
    };
    QStringList values;
    program->QueryLookup(u"CodigosComision"_s, u"DALVORA.qry"_s, u"01"_s, values);
    EXPECT_FALSE(program->form().isBusy());
    program->ShowAbout(u"Veltrano"_s, u"Dalvora"_s);
    EXPECT_FALSE(program->form().isBusy());
    EXPECT_EQ(busy, 2);
}

INSTANTIATE_TEST_SUITE_P(Engines, ProgramTest, testing::ValuesIn(windowEngines), engineName);
