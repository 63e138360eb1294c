#include "platform/reportengine/output/FileInPlace.h"
#include "platform/reportengine/output/LaidOut.h"
#include "platform/reportengine/output/PagePainter.h"
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

namespace quorvane::report {

namespace {

/// Dots an inch in which places are written: fine enough for figures to stand exactly under each other.
constexpr int resolution = 1200;
constexpr double pointsPerInch = 72;

} // namespace

bool writePdf(const OutputSource& source, const QString& path, const OutputProgress& progress) {
    FileInPlace file(path);
    QFile& target = file.open();
    PageContext context;
    if (!layOutWhole(source, progress, context))
        return false;
    QPdfWriter writer(&target);
    writer.setTitle(context.definition->title);
    writer.setResolution(resolution);
    writer.setPageLayout(
        QPageLayout(QPageSize(context.definition->pageSize, QPageSize::Point, {}, QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF(), QPageLayout::Point));
    QPainter painter(&writer);
    painter.scale(resolution / pointsPerInch, resolution / pointsPerInch);
    const PagePainter pages(context);
    for (int page = 0; page < context.pageCount; ++page) {
        if (page > 0)
            writer.newPage();
        pages.paint(painter, source.layout->page(page));
        // A disk that is full stays so: the rest need not be drawn.
        if (target.error() != QFileDevice::NoError)
            break;
        if (progress && !progress(page + 1, context.pageCount))
            return false;
    }
    painter.end();
    file.commit();
    return true;
}

} // namespace quorvane::report
