#include "platform/reportengine/viewer/PageImages.h"
#include "platform/reportengine/viewer/ReportPages.h"
#include <QPainter>

namespace quorvane::report {

namespace {

constexpr QSize tileSize{1536, 512};
constexpr int mostKilobytes = 64 * 1024;
/// Letters may reach out of their section by this much, in points.
constexpr double bandSlack = 12;

} // namespace

PageImages::PageImages(ReportPages& pages)
    : m_pages(pages), m_painter(pages.context()), m_tiles(mostKilobytes) {}

void PageImages::setScale(double scale, const QSize& pageSize) {
    if (scale == m_scale && pageSize == m_size)
        return;
    m_scale = scale;
    m_size = pageSize;
    m_tiles.clear();
}

void PageImages::clear() {
    m_tiles.clear();
    m_painter.setContext(m_pages.context());
}

quint64 PageImages::keyOf(int page, int column, int row) {
    return static_cast<quint64>(page) << 16 | static_cast<quint64>(row) << 8 | static_cast<quint64>(column);
}

QRect PageImages::tileRect(int column, int row) const {
    const QPoint corner(column * tileSize.width(), row * tileSize.height());
    return QRect(corner, tileSize) & QRect(QPoint(0, 0), m_size);
}

void PageImages::draw(QPainter& painter, int page, const QPoint& corner, const QRect& area) {
    const QRect part = area.translated(-corner) & QRect(QPoint(0, 0), m_size);
    if (part.isEmpty())
        return;
    for (int row = part.top() / tileSize.height(); row <= part.bottom() / tileSize.height(); ++row)
        for (int column = part.left() / tileSize.width(); column <= part.right() / tileSize.width(); ++column)
            painter.drawImage(corner + tileRect(column, row).topLeft(), tile(page, column, row));
}

bool PageImages::makeAhead(int page, const QRect& wanted) {
    const QRect part = wanted & QRect(QPoint(0, 0), m_size);
    if (part.isEmpty())
        return false;
    for (int row = part.top() / tileSize.height(); row <= part.bottom() / tileSize.height(); ++row)
        for (int column = part.left() / tileSize.width(); column <= part.right() / tileSize.width(); ++column)
            if (!m_tiles.contains(keyOf(page, column, row))) {
                tile(page, column, row);
                return true;
            }
    return false;
}

QImage PageImages::tile(int page, int column, int row) {
    const quint64 key = keyOf(page, column, row);
    if (const QImage* kept = m_tiles.object(key))
        return *kept;
    QImage image = drawn(page, tileRect(column, row));
    m_tiles.insert(key, new QImage(image), 1 + image.sizeInBytes() / 1024);
    return image;
}

Page PageImages::within(const Page& page, const QRect& rect) const {
    const double top = rect.top() / m_scale - bandSlack;
    const double bottom = (rect.bottom() + 1) / m_scale + bandSlack;
    Page part;
    part.number = page.number;
    for (const Band& band : page.bands)
        if (band.top < bottom && band.top + m_pages.definition().sections[band.section].height > top)
            part.bands.push_back(band);
    return part;
}

QImage PageImages::drawn(int page, const QRect& rect) {
    const std::shared_ptr<const ShownPage> shown = m_pages.page(page);
    QImage image(rect.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.translate(-rect.topLeft());
    painter.scale(m_scale, m_scale);
    m_painter.paint(painter, within(shown->page, rect));
    return image;
}

} // namespace quorvane::report
