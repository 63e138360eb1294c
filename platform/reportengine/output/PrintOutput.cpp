#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/output/LaidOut.h"
#include "platform/reportengine/output/PagePainter.h"
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

constexpr double pointsPerInch = 72;

[[noreturn]] void failPrinting(const QPrinter& printer) {
    const QString name = printer.printerName();
    throw RunTimeError(ErrorPrinter, name.isEmpty()
                                         ? u"No hay ninguna impresora instalada."_s
                                         : u"No se puede imprimir en la impresora «%1»."_s.arg(name));
}

/// Paper in the size and direction of the report, measured from its edges.
void usePaper(QPrinter& printer, const Definition& definition) {
    const QSizeF size = definition.pageSize;
    const bool lying = size.width() > size.height();
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(lying ? size.transposed() : size, QPageSize::Point));
    printer.setPageOrientation(lying ? QPageLayout::Landscape : QPageLayout::Portrait);
}

} // namespace

bool printPages(const OutputSource& source, QPrinter& printer, int first, int last, int copies,
                const OutputProgress& progress) {
    PageContext context;
    if (!layOutWhole(source, progress, context))
        return false;
    if (first < 1 || last < first || last > context.pageCount || copies < 1)
        raise(ErrorInvalidCall);
    if (!printer.isValid() && printer.outputFormat() == QPrinter::NativeFormat)
        failPrinting(printer);
    usePaper(printer, *context.definition);
    const bool copiesItself = printer.supportsMultipleCopies();
    printer.setCopyCount(copiesItself ? copies : 1);
    QPainter painter;
    if (!painter.begin(&printer))
        failPrinting(printer);
    const double scale = printer.resolution() / pointsPerInch;
    painter.scale(scale, scale);
    const PagePainter pages(context);
    const int count = last - first + 1;
    const int sheets = copiesItself ? count : count * copies;
    for (int sheet = 0; sheet < sheets; ++sheet) {
        if (sheet > 0 && !printer.newPage())
            failPrinting(printer);
        pages.paint(painter, source.layout->page(first - 1 + sheet % count));
        if (progress && !progress(sheet + 1, sheets)) {
            printer.abort();
            return false;
        }
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        failPrinting(printer);
    return true;
}

} // namespace quorvane::report
