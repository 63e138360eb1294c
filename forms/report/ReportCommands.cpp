#include "forms/report/ReportCommands.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/report/PrinterDialog.h"
#include "forms/report/ReportPresenter.h"
#include "forms/report/frmSelRpt.h"
#include "reports/processing/MousePointer.h"

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::RunTimeError;

namespace {

constexpr int reportReady = 0;
constexpr int noRows = -1;

} // namespace

ReportCommands::ReportCommands(Parts parts) : m_parts(std::move(parts)) {}

void ReportCommands::SelectReport(QString& name, bool& chosen) {
    frmSelRpt form(*m_parts.context.Table, m_parts.services, m_parts.programFolder, &m_parts.window);
    form.FormShow(name);
    chosen = !name.isEmpty();
}

void ReportCommands::PreviewReport() {
    QString name;
    bool chosen = false;
    SelectReport(name, chosen);
    if (!chosen)
        return;
    setMousePointer(MousePointer::HourGlass);
    DBTable& table = *m_parts.context.Table;
    table.reportName = name;
    const int result = table.CR_ProcessReport();
    if (result == reportReady && table.Report())
        m_parts.viewer.show(*table.Report());
    else if (result != reportReady && result != noRows)
        ShowMessage(u"Error al ejecutar ProcessReport (%1)"_s.arg(result), MessageError);
    setMousePointer(MousePointer::Default);
}

void ReportCommands::PrintReport() {
    QString name;
    bool chosen = false;
    SelectReport(name, chosen);
    if (!chosen)
        return;
    setMousePointer(MousePointer::HourGlass);
    DBTable& table = *m_parts.context.Table;
    table.reportName = name;
    const int processed = table.CR_ProcessReport();
    try {
        print(processed);
    } catch (const RunTimeError& error) {
        if (error.number() != quorvane::ErrorDialogCancelled)
            ShowRunTimeError(u"Error al imprimir reporte"_s, error);
    }
    setMousePointer(MousePointer::Default);
}

// A run that failed goes on with the report of the run before it, as long as there is one.
void ReportCommands::print(int processed) {
    quorvane::report::Report* const report = m_parts.context.Table->Report();
    if (!report && processed == noRows)
        return; // told already
    if (!report)
        quorvane::raise(quorvane::ErrorObjectNotSet);
    const PrinterChoice choice = m_parts.printers.show(&m_parts.window, report->pageCount());
    report->selectPrinter(choice.driver, choice.device, choice.port);
    report->printOut(false, choice.copies, choice.first, choice.last);
}

} // namespace dalvora
