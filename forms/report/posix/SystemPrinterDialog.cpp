#include "forms/report/PrinterDialog.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/engine/Report.h"
#include <QDir>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QTabWidget>

namespace dalvora {

namespace {

/// What the toolkit's own dialog offers beside printer, pages and copies: a report takes none of it.
constexpr QLatin1StringView notOffered[] = {
    QLatin1StringView("properties"),    QLatin1StringView("pagesRadioButton"),
    QLatin1StringView("pagesLineEdit"), QLatin1StringView("pageSetLabel"),
    QLatin1StringView("pageSetCombo"),  QLatin1StringView("collate"),
    QLatin1StringView("outputIcon"),    QLatin1StringView("reverse"),
};

/// The toolkit's dialog without what a report does not take. It decides as it is shown what it offers.
class ReportPrintDialog final : public QPrintDialog {
public:
    using QPrintDialog::QPrintDialog;

protected:
    void showEvent(QShowEvent* event) override {
        QPrintDialog::showEvent(event);
        for (const QLatin1StringView name : notOffered)
            if (auto* control = findChild<QWidget*>(name))
                control->hide();
        if (auto* tabs = findChild<QTabWidget*>(QLatin1String("tabs")))
            tabs->setTabVisible(tabs->indexOf(tabs->findChild<QWidget*>(QLatin1String("optionsTab"))), false);
    }
};

PrinterChoice choiceOf(const QPrinter& printer, int pages) {
    PrinterChoice choice;
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        choice.driver = quorvane::report::documentDriver.toString();
        choice.port = printer.outputFileName();
    } else {
        choice.device = printer.printerName();
    }
    choice.copies = printer.copyCount();
    const bool some = printer.printRange() == QPrinter::PageRange;
    choice.first = some ? printer.fromPage() : 1;
    choice.last = some ? printer.toPage() : pages;
    return choice;
}

} // namespace

PrinterChoice SystemPrinterDialog::show(QWidget* owner, int pages) {
    QPrinter printer(QPrinter::HighResolution);
    // Without a printer there is the file to begin with.
    if (printer.outputFormat() == QPrinter::PdfFormat)
        printer.setOutputFileName(QDir::home().filePath(QStringLiteral("Reporte.pdf")));
    printer.setFromTo(1, pages);
    ReportPrintDialog dialog(&printer, owner);
    dialog.setWindowTitle(QStringLiteral("Imprimir"));
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, pages);
    // A run that failed leaves the hourglass on; the dialog can be answered at once all the same.
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    const int answer = dialog.exec();
    QGuiApplication::restoreOverrideCursor();
    if (answer != QDialog::Accepted)
        quorvane::raise(quorvane::ErrorDialogCancelled);
    return choiceOf(printer, pages);
}

} // namespace dalvora
