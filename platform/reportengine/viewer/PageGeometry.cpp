#include "platform/reportengine/viewer/PageGeometry.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace quorvane::report {

PageGeometry::PageGeometry(const QSizeF& page, int count, double scale, const QSize& viewport, int margin)
    : m_page(static_cast<int>(std::lround(page.width() * scale)),
             static_cast<int>(std::lround(page.height() * scale)))
    , m_count(count)
    , m_scale(scale)
    , m_viewport(viewport)
    , m_margin(margin) {}

QPoint PageGeometry::scrollRange() const {
    if (m_count == 0)
        return {};
    const qint64 height = static_cast<qint64>(m_count) * pitch() + m_margin;
    const qint64 down = height - m_viewport.height();
    return {std::max(0, m_page.width() + 2 * m_margin - m_viewport.width()),
            static_cast<int>(std::clamp<qint64>(down, 0, std::numeric_limits<int>::max()))};
}

QPoint PageGeometry::place(int page, const QPoint& scroll) const {
    const int free = m_viewport.width() - m_page.width();
    const int left = free >= 2 * m_margin ? free / 2 : m_margin - scroll.x();
    // Pages that lie under the last pixel of the scroll bar are too far away to matter here.
    const qint64 top = m_margin + static_cast<qint64>(page) * pitch() - scroll.y();
    constexpr qint64 far = std::numeric_limits<int>::max() / 2;
    return {left, static_cast<int>(std::clamp(top, -far, far))};
}

int PageGeometry::pageAt(int y, const QPoint& scroll) const {
    const qint64 down = static_cast<qint64>(scroll.y()) + y - m_margin / 2;
    return static_cast<int>(std::clamp<qint64>(down / std::max(1, pitch()), 0, std::max(0, m_count - 1)));
}

PageGeometry::Range PageGeometry::visible(const QPoint& scroll) const {
    if (m_count == 0)
        return {};
    return {pageAt(0, scroll), pageAt(m_viewport.height() - 1, scroll)};
}

int PageGeometry::scrollOf(int page) const {
    const qint64 down = static_cast<qint64>(page) * pitch() + m_margin / 2;
    return static_cast<int>(std::min<qint64>(down, scrollRange().y()));
}

PagePlace PageGeometry::toPage(const QPoint& pixel, const QPoint& scroll) const {
    const int page = pageAt(pixel.y(), scroll);
    return {page, QPointF(pixel - place(page, scroll)) / m_scale};
}

QRect PageGeometry::toPixels(const PageArea& area, const QPoint& scroll) const {
    const QPoint corner = (area.rect.topLeft() * m_scale).toPoint();
    const QPoint end = (area.rect.bottomRight() * m_scale).toPoint();
    return QRect(corner, QSize(end.x() - corner.x(), end.y() - corner.y()))
        .translated(place(area.page, scroll));
}

double PageGeometry::scaleToFit(const QSizeF& page, const QSize& viewport, int margin, bool wholePage) {
    const double across = (viewport.width() - 2 * margin) / page.width();
    const double down = (viewport.height() - 2 * margin) / page.height();
    return wholePage ? std::min(across, down) : across;
}

} // namespace quorvane::report
