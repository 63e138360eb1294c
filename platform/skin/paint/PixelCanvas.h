#pragma once

#include "platform/skin/SkinValues.h"

#include <QPainter>
#include <QPainterPath>

namespace skin {

/// Draws in whole device pixels while it lives, so that frames and lines stay crisp at 100, 125, 150 and 200
/// per cent: a frame of one pixel placed at a logical coordinate would otherwise fall between device pixels.
/// Restores the painter's state when it is destroyed.
class PixelCanvas {
public:
    explicit PixelCanvas(QPainter& painter);
    ~PixelCanvas();
    Q_DISABLE_COPY_MOVE(PixelCanvas)

    /// Device rectangle of a logical one, edges rounded to whole device pixels.
    QRect toPixels(const QRectF& logical) const;

    /// Device length of a logical one, at least one pixel; 1 stays one pixel up to a scale of 1.5.
    int pixels(qreal logical) const;

    qreal scale() const { return m_scale; }
    QPainter& painter() { return m_painter; }

    /// A filled box with rounded corners and a frame, all inside the device rectangle.
    void box(const QRect& pixels, qreal radius, const QColor& frame, int frameWidth,
             const QGradientStops& fill);
    void box(const QRect& pixels, qreal radius, const QColor& frame, int frameWidth, const QColor& fill);

    /// Fills a device rectangle from top to bottom.
    void fill(const QRect& pixels, const QGradientStops& stops);
    void fill(const QRect& pixels, const QColor& colour);

private:
    void box(const QRect& pixels, qreal radius, const QColor& frame, int frameWidth, const QBrush& fill);

    QPainter& m_painter;
    QTransform m_toDevice;
    qreal m_scale = 1;
};

/// Brush that runs from the top to the bottom of a rectangle.
QBrush vertical(const QRectF& over, const QGradientStops& stops);

} // namespace skin
