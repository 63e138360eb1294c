#include "forms/report/PrinterDialog.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/engine/Report.h"
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>

namespace dalvora {

namespace {

/// A run that failed leaves the hourglass on; dialogs can be answered at once all the same.
class ArrowPointer {
public:
    ArrowPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowPointer() { QGuiApplication::restoreOverrideCursor(); }
    ArrowPointer(const ArrowPointer&) = delete;
    ArrowPointer& operator=(const ArrowPointer&) = delete;
};

/// Makes the choice a document in a file that the user names.
void chooseFile(QWidget* owner, PrinterChoice& choice) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QFileDialog dialog(owner, QStringLiteral("Imprimir en un archivo"),
                       folder.filePath(QStringLiteral("Reporte.pdf")),
                       QStringLiteral("Documento PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    if (dialog.exec() != QDialog::Accepted)
        quorvane::raise(quorvane::ErrorDialogCancelled);
    choice.driver = quorvane::report::documentDriver.toString();
    choice.port = dialog.selectedFiles().constFirst();
}

/// True when the user asked for a file instead of paper.
bool choosePrinter(QWidget* owner, int pages, QPrinter& printer, PrinterChoice& choice) {
    printer.setFromTo(1, pages);
    QPrintDialog dialog(&printer, owner);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, pages);
    if (dialog.exec() != QDialog::Accepted)
        quorvane::raise(quorvane::ErrorDialogCancelled);
    choice.device = printer.printerName();
    choice.copies = printer.copyCount();
    if (printer.printRange() == QPrinter::PageRange) {
        choice.first = printer.fromPage();
        choice.last = printer.toPage();
    }
    return !printer.outputFileName().isEmpty();
}

} // namespace

// The system's dialog names no file, and shows nothing at all on a machine without printers.
PrinterChoice SystemPrinterDialog::show(QWidget* owner, int pages) {
    const ArrowPointer pointer;
    QPrinter printer(QPrinter::HighResolution);
    PrinterChoice choice;
    choice.last = pages;
    const bool paper = printer.outputFormat() == QPrinter::NativeFormat;
    if (!paper || choosePrinter(owner, pages, printer, choice))
        chooseFile(owner, choice);
    return choice;
}

} // namespace dalvora
