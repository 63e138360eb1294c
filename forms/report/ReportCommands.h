#pragma once

#include <QString>

class QWidget;

namespace quorvane::report {
class Report;
} // namespace quorvane::report

namespace dalvora {

class FormServices;
class PrinterDialog;
class ReportPresenter;
struct SessionContext;

/// The main form's report commands: choose a report, then see it or print it.
class ReportCommands {
public:
    /// What the commands work with; everything outlives them.
    struct Parts {
        SessionContext& context;
        FormServices& services;
        ReportPresenter& viewer;
        PrinterDialog& printers;
        QWidget& window;       ///< over which forms and dialogs open
        QString programFolder; ///< without a trailing separator
    };
    explicit ReportCommands(Parts parts);

    /// Lets the user choose a report and its filters; `chosen` tells whether one was.
    void SelectReport(QString& name, bool& chosen);
    /// Shows the chosen report. Errors are told.
    void PreviewReport();
    /// Prints the chosen report on the printer that the user chooses. Errors are told; a cancelled dialog is
    /// none.
    void PrintReport();

private:
    void print(int processed);

    Parts m_parts;
};

} // namespace dalvora
