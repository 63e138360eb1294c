#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/engine/Report.h"
#include "platform/reportengine/output/Output.h"
#include <QPrinter>
#include <QPrinterInfo>

namespace quorvane::report {

namespace {

void requirePrinter(const QString& device) {
    if (device.isEmpty() && QPrinterInfo::defaultPrinter().isNull())
        throw RunTimeError(ErrorPrinter, QStringLiteral("No hay ninguna impresora instalada"));
    if (!device.isEmpty() && QPrinterInfo::printerInfo(device).isNull())
        throw RunTimeError(ErrorPrinter, QStringLiteral("No se encontró la impresora «%1»").arg(device));
}

} // namespace

void Report::printOut(bool prompt, int copies, int first, int last) {
    const int pages = pageCount();
    if (prompt || copies < 1 || first < 1 || first > last || last > pages)
        raise(ErrorInvalidCall);
    QPrinter printer(QPrinter::HighResolution);
    if (m_printer.driver == documentDriver) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(m_printer.port);
    } else {
        requirePrinter(m_printer.device);
        if (!m_printer.device.isEmpty())
            printer.setPrinterName(m_printer.device);
    }
    PageContext context;
    context.definition = &m_definition;
    context.regional = m_regional;
    printPages({m_layout.get(), context}, printer, first, last, copies, {});
}

} // namespace quorvane::report
