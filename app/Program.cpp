#include "app/Program.h"
#include "app/CommandLine.h"
#include "common/ComponentServices.h"
#include "common/Help.h"
#include "common/QueryLookup.h"
#include "common/ShowAbout.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "forms/HourGlass.h"
#include "forms/main/GridLayout.h"
#include "forms/main/StatusPanels.h"
#include "forms/main/frmMain.h"
#include "forms/report/FO_ViewReport.h"
#include "forms/report/ReportCommands.h"
#include "forms/vendedor/FM_Vendedor.h"
#include "platform/dde/SystemRequestLink.h"
#include "platform/quorvane32/core/ClientMachine.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/reportengine/viewer/ReportViewer.h"
#include "reports/drilldown/MessageLoop.h"
#include "reports/drilldown/ShellStarter.h"
#include "reports/processing/MousePointer.h"
#include "reports/processing/ReportProcessing.h"
#include <QApplication>
#include <QDir>
#include <QScopeGuard>
#include <algorithm>
#include <utility>

namespace dalvora {

namespace {

constexpr QStringView moduleName = u"DALVORA";
constexpr QStringView programName = u"VELTRANO";
constexpr int mainHelpContext = 138;

} // namespace

Program::Program(ProgramParts parts) : m_parts(std::move(parts)) {
    m_context.Regional = m_parts.regional;
}

Program::~Program() = default;

bool Program::givesWay(const QString& company) {
    m_gaveWay = m_parts.givesWay(company);
    return m_gaveWay;
}

bool Program::Form_Initialize(const QString& commandLine) {
    m_form = std::make_unique<frmMain>(m_context, *this, m_parts.styleFile);
    connect(m_form.get(), &frmMain::unloaded, this, &Program::Form_Unload);
    m_form->setInitializing(true);
    m_form->Form_Load();
    m_context.Version =
        FormateaVersion(m_parts.application.major, m_parts.application.minor, m_parts.application.revision);
    const bool running = initializeApplication(commandLine, true) && connectReports();
    if (running)
        m_form->setInitializing(false);
    return running;
}

bool Program::connectReports() {
    try {
        m_context.Table->CR_Connect(m_context.Connection->connectString());
        return true;
    } catch (const quorvane::RunTimeError& error) {
        setMousePointer(MousePointer::Default);
        ShowRunTimeError(QStringLiteral("Error al iniciar aplicación"), error);
        return false;
    }
}

bool Program::initializeApplication(const QString& commandLine, bool ShowProgress) {
    m_form->tintGrids();
    try {
        m_context.AppTitle = messageTitle.toString();
        findHelpFile();
        m_form->setProperty("HelpContextID", mainHelpContext);
        const QString company = ParseKeyValues(commandLine, QStringLiteral("EMPRESA"));
        if (givesWay(company)) // before a window shows
            return false;
        if (ShowProgress)
            showInitializing();
        m_context.Session = m_parts.makeSession();
        m_context.Connection = std::make_unique<quorvane::Connection>();
        return signIn(company) && !givesWay(m_context.Session->CompanyCode()) && openRecord(ShowProgress);
    } catch (const quorvane::RunTimeError& error) {
        ShowRunTimeError(QStringLiteral("Error al iniciar aplicación"), error);
        return false;
    }
}

void Program::showInitializing() {
    m_form->setEnabled(false);
    // The text is there when the window shows: it is painted once.
    m_form->controls().StatusBar->setText(panelMensaje, QStringLiteral("Inicializando aplicación ..."));
    m_form->show();
    QCoreApplication::processEvents();
}

bool Program::openRecord(bool ShowProgress) {
    StatusPanels& panels = *m_form->controls().StatusBar;
    {
        const HourGlass working;
        m_context.Table =
            std::make_unique<DBTable>(*m_context.Connection, *m_context.Session, m_context.Regional);
        m_context.Table->SysPrograma = programName.toString();
        m_context.Table->ProgramName = programName.toString();
        m_context.Table->setReport(std::make_unique<ReportProcessing>(
            *m_context.Table, *m_context.Session, ReportProcessing::Parts{m_parts.application.path}));
        if (!m_context.Table->DBInitialize())
            return false;
        SetupGrids(m_form->controls(), *m_context.Table);
        m_form->record().newRecord();
    }
    if (ShowProgress) {
        m_form->setEnabled(true);
        panels.setText(panelMensaje, {});
    } else {
        m_form->show();
    }
    panels.setText(panelEmpresa, m_context.Session->CompanyName());
    m_form->rememberSize();
    m_context.Table->carga_inicio();
    m_form->record().refreshCommands();
    m_form->controls().TxtCodigo->setFocus();
    return true;
}

void Program::findHelpFile() {
    QString& file = m_parts.application.helpFile;
    // Both separators mark a folder: the ERP's settings may come from either system.
    if (!file.contains(u'\\') && !file.contains(u'/'))
        file = m_parts.application.path + QDir::separator() + file;
}

bool Program::signIn(const QString& company) {
    quorvane::Session& session = *m_context.Session;
    session.SetApplication(m_parts.application);
    session.SetClientInfo(quorvane::ClientMachine().name());
    bool cancel = false;
    session.Initialize(*m_context.Connection, moduleName.toString(), programName.toString(),
                       m_context.Version, company, cancel);
    if (!cancel && !session.Warning().isEmpty())
        ShowMessage(session.Warning(), MessageWarning);
    return !cancel;
}

bool Program::Form_Unload() {
    if (m_unloading)
        return true;
    m_unloading = true;
    bool ok = true;
    try {
        QWidgetList windows = QApplication::topLevelWidgets();
        std::reverse(windows.begin(), windows.end());
        for (QWidget* window : std::as_const(windows))
            if (window != m_form.get())
                window->close();
        m_form->unload();
        if (m_context.Table) {
            m_context.Table->DBTerminate();
            m_context.Table.reset();
        }
    } catch (const quorvane::RunTimeError& error) {
        ShowRunTimeError(QStringLiteral("Error al terminar aplicación"), error);
        ok = false;
    }
    Q_EMIT ended();
    return ok;
}

void Program::terminate() {
    Form_Unload();
}

ComponentServices Program::services() const {
    return {*m_context.Connection, m_parts.components, m_parts.application};
}

bool Program::QueryLookup(const QString& queryName, const QString& queryFile, const QString& parameters,
                          QStringList& values) {
    m_form->setAsking(true);
    const auto answered = qScopeGuard([this] { m_form->setAsking(false); });
    return dalvora::QueryLookup(services(), queryName, queryFile, parameters, values);
}

void Program::ShowAbout(const QString& title, const QString& description) {
    m_form->setAsking(true);
    const auto answered = qScopeGuard([this] { m_form->setAsking(false); });
    dalvora::ShowAbout(services(), title, description);
}

void Program::Help(const QString& topic) {
    dalvora::Help(m_parts.help, m_parts.application.helpFile, topic);
}

ReportCommands Program::reportCommands() {
    return ReportCommands({m_context, *this, *this, m_printers, *m_form, m_parts.application.path});
}

void Program::previewReport() {
    reportCommands().PreviewReport();
}

void Program::printReport() {
    reportCommands().PrintReport();
}

void Program::show(quorvane::report::Report& report) {
    const QString folder = QDir::toNativeSeparators(m_parts.application.path);
    ShellStarter starter(folder);
    quorvane::SystemRequestLink link;
    const TopicSurroundings surroundings{starter, folder, MessageLoop(), [](int pointer) {
                                             setMousePointer(static_cast<MousePointer>(pointer));
                                         }};
    FO_ViewReport viewer(m_context, link, surroundings, m_form.get());
    viewer.viewer().setReportSource(report);
    viewer.ShowReport();
    viewer.showModal();
}

void Program::showSalespeople() {
    if (!m_salespeople) {
        m_salespeople = std::make_unique<FM_Vendedor>(m_context);
    }
    m_salespeople->open();
}

} // namespace dalvora
