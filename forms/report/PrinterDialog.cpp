#include "forms/report/PrinterDialog.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/engine/Report.h"
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>

namespace dalvora {

PrinterChoice SystemPrinterDialog::show(QWidget* owner, int pages) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QStringLiteral("Reporte"));
    printer.setFromTo(1, pages);
    QPrintDialog dialog(&printer, owner);
    dialog.setWindowTitle(QStringLiteral("Imprimir"));
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                      QAbstractPrintDialog::PrintShowPageSize);
    dialog.setMinMax(1, pages);
    // A report that failed leaves the hourglass on; the dialog can be answered at once all the same.
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    const int answer = dialog.exec();
    QGuiApplication::restoreOverrideCursor();
    if (answer != QDialog::Accepted)
        quorvane::raise(quorvane::ErrorDialogCancelled);
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

} // namespace dalvora
