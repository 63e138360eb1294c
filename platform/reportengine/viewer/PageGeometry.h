#pragma once

#include "platform/reportengine/viewer/PagePlace.h"
#include <QPoint>
#include <QRect>
#include <QSize>

namespace quorvane::report {

/// Where pages lie under one another in the viewer, all of one size. Everything is in the screen's own
/// pixels, so that a page never begins between two of them and letters stay sharp at every screen scale.
class PageGeometry {
public:
    /// `page` in points, `viewport`, `margin` (around and between pages) in screen pixels; `scale` is screen
    /// pixels a point.
    PageGeometry(const QSizeF& page = {}, int count = 0, double scale = 1, const QSize& viewport = {},
                 int margin = 0);

    int count() const { return m_count; }
    double scale() const { return m_scale; }
    const QSize& page() const { return m_page; }
    const QSize& viewport() const { return m_viewport; }
    /// How far the pages can be scrolled.
    QPoint scrollRange() const;

    /// Upper left corner of a page on the viewport that is scrolled so far.
    QPoint place(int page, const QPoint& scroll) const;
    /// The page that a line of the viewport shows, the nearest one between pages.
    int pageAt(int y, const QPoint& scroll) const;
    /// The pages that are to be seen, `last` below `first` when there are none.
    struct Range {
        int first = 0;
        int last = -1;
    };
    Range visible(const QPoint& scroll) const;
    /// How far to scroll until a page's upper edge stands at the top.
    int scrollOf(int page) const;

    PagePlace toPage(const QPoint& pixel, const QPoint& scroll) const;
    QRect toPixels(const PageArea& area, const QPoint& scroll) const;

    /// The scale at which a page is as wide as the viewport, or wholly within it.
    static double scaleToFit(const QSizeF& page, const QSize& viewport, int margin, bool wholePage);

private:
    int pitch() const { return m_page.height() + m_margin; }

    QSize m_page;
    int m_count;
    double m_scale;
    QSize m_viewport;
    int m_margin;
};

} // namespace quorvane::report
