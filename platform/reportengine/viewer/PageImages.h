#pragma once

#include "platform/reportengine/output/PagePainter.h"
#include <QCache>
#include <QImage>
#include <QRect>

namespace quorvane::report {

class ReportPages;

/// Pictures of pages for the screen. A page is drawn in tiles, and only those that are to be seen, so a page
/// at four times its size costs no more memory or time than one at its own; tiles are kept up to a limit, so
/// that scrolling back is a copy.
class PageImages {
public:
    explicit PageImages(ReportPages& pages);

    /// Screen pixels a point; another one throws the tiles away.
    void setScale(double scale, const QSize& pageSize);
    /// Draws what is to be seen of a page whose upper left corner stands at `corner`; `area` is the part of
    /// the painter's surface that wants drawing. Errors are those of ReportPages::page.
    void draw(QPainter& painter, int page, const QPoint& corner, const QRect& area);
    /// Makes one missing tile of a page ahead of its use; false when there is none. Errors as with draw.
    bool makeAhead(int page, const QRect& part);
    /// The pages look different from now on.
    void clear();

private:
    QRect tileRect(int column, int row) const;
    QImage tile(int page, int column, int row);
    QImage drawn(int page, const QRect& rect);
    /// The bands that reach into a part of the page.
    Page within(const Page& page, const QRect& rect) const;
    static quint64 keyOf(int page, int column, int row);

    ReportPages& m_pages;
    PagePainter m_painter;
    double m_scale = 1;
    QSize m_size;
    QCache<quint64, QImage> m_tiles; ///< costs in kilobytes
};

} // namespace quorvane::report
