#pragma once

#include "data/SessionContext.h"
#include "forms/FormServices.h"
#include "forms/report/PrinterDialog.h"
#include "forms/report/ReportPresenter.h"
#include "platform/quorvane32/core/Session.h"
#include <QObject>
#include <functional>
#include <memory>

namespace quorvane {
class ComponentFactory;
} // namespace quorvane
namespace help {
class HelpSystem;
} // namespace help

namespace dalvora {

class FM_Vendedor;
class frmMain;
class ReportCommands;
struct ComponentServices;

/// What the program is built from; tests put their own parts here.
struct ProgramParts {
    quorvane::ApplicationInfo application;
    QString styleFile;
    quorvane::RegionalSettings regional;
    std::function<std::unique_ptr<quorvane::Session>()> makeSession;
    quorvane::ComponentFactory& components;
    help::HelpSystem& help;
    /// Asked with each company that the start comes to know: true when this program is to end, since another
    /// one is at work for that company and has come to the front.
    std::function<bool(const QString& company)> givesWay = [](const QString&) { return false; };
};

/// The program from start to end: builds the session context, signs the user in, shows the main form with an
/// empty record, and at last unloads the forms and releases the record.
class Program : public QObject, public FormServices, public ReportPresenter {
    Q_OBJECT
public:
    explicit Program(ProgramParts parts);
    ~Program() override;

    /// The start-up sequence. False when the process is to end: the user gave up signing in, a message has
    /// said why, or the program gave way to another.
    bool Form_Initialize(const QString& commandLine);
    /// The start ended since the company's window was there already, and is in front now.
    bool gaveWay() const { return m_gaveWay; }
    /// The shutdown sequence; asks nothing. True when it ran to its end without an error.
    bool Form_Unload();

    frmMain& form() { return *m_form; }
    /// Null until the salespeople have been shown once.
    FM_Vendedor* salespeople() { return m_salespeople.get(); }
    SessionContext& context() { return m_context; }

    bool QueryLookup(const QString& queryName, const QString& queryFile, const QString& parameters,
                     QStringList& values) override;
    void ShowAbout(const QString& title, const QString& description) override;
    void Help(const QString& topic) override;
    void previewReport() override;
    void printReport() override;
    void showSalespeople() override;
    void terminate() override;
    void show(quorvane::report::Report& report) override;

Q_SIGNALS:
    /// The shutdown sequence has run: the process ends.
    void ended();

private:
    bool givesWay(const QString& company);
    bool initializeApplication(const QString& commandLine, bool ShowProgress);
    void showInitializing();
    /// Makes the record and shows it empty; false after a message of the record's.
    bool openRecord(bool ShowProgress);
    /// False after a message when the reports' connection cannot be opened.
    bool connectReports();
    ReportCommands reportCommands();
    /// False when the user gave up.
    bool signIn(const QString& company);
    void findHelpFile();
    ComponentServices services() const;

    ProgramParts m_parts;
    SessionContext m_context;
    std::unique_ptr<frmMain> m_form;
    std::unique_ptr<FM_Vendedor> m_salespeople;
    SystemPrinterDialog m_printers;
    bool m_unloading = false;
    bool m_gaveWay = false;
};

} // namespace dalvora
