#pragma once

#include <QPointF>
#include <QRectF>

namespace quorvane::report {

/// A point of a report: a page, counted from 0, and points from its upper left corner.
struct PagePlace {
    int page = 0;
    QPointF point;
};

/// A part of a page, in points.
struct PageArea {
    int page = 0;
    QRectF rect;
};

} // namespace quorvane::report
