#include "platform/reportengine/viewer/ViewerDialogs.h"
#include "platform/reportengine/viewer/PrinterSetup.h"
#include <QDesktopServices>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QUrl>

namespace quorvane::report {

namespace {

QString askFile(QWidget* owner, const ViewerDialogs::FileQuestion& question) {
    // With a default suffix the dialog asks before it replaces the file that is really written.
    QFileDialog dialog(owner, question.title, question.suggestion, question.filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(question.suffix);
    dialog.selectFile(question.suggestion);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool askPrinter(QWidget* owner, QPrinter& printer, ViewerDialogs::Pages& pages, int current) {
    QPrintDialog dialog(&printer, owner);
    dialog.setWindowTitle(QStringLiteral("Imprimir el informe"));
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
    dialog.setMinMax(pages.first, pages.last);
    dialog.setFromTo(pages.first, pages.last);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    if (dialog.printRange() == QAbstractPrintDialog::PageRange)
        pages = {dialog.fromPage(), dialog.toPage()};
    else if (dialog.printRange() == QAbstractPrintDialog::CurrentPage)
        pages = {current, current};
    return true;
}

std::optional<QString> askPrinterName(QWidget* owner, const QString& chosen) {
    PrinterSetup dialog(installedPrinters(), chosen, owner);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.chosen()) : std::nullopt;
}

} // namespace

ViewerDialogs ViewerDialogs::ofTheSystem() {
    return {askFile, askPrinter, askPrinterName,
            [](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); }};
}

} // namespace quorvane::report
