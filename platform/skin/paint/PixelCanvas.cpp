#include "platform/skin/paint/PixelCanvas.h"

#include <algorithm>

namespace skin {

PixelCanvas::PixelCanvas(QPainter& painter) : m_painter(painter) {
    m_painter.save();
    const QTransform device = m_painter.deviceTransform();
    // Rotated or sheared painting has no pixel rows to meet: it is drawn in logical coordinates.
    if (device.type() > QTransform::TxScale || device.m11() <= 0 || device.m22() <= 0)
        return;
    m_toDevice = device;
    m_scale = device.m11();
    m_painter.setWorldTransform(device.inverted() * m_painter.worldTransform());
}

PixelCanvas::~PixelCanvas() {
    m_painter.restore();
}

QRect PixelCanvas::toPixels(const QRectF& logical) const {
    const QRectF device = m_toDevice.mapRect(logical);
    const QPoint topLeft(qRound(device.left()), qRound(device.top()));
    const QPoint behind(qRound(device.right()), qRound(device.bottom()));
    return {topLeft, QSize(behind.x() - topLeft.x(), behind.y() - topLeft.y())};
}

int PixelCanvas::pixels(qreal logical) const {
    constexpr qreal thinSide = 0.01; // 1.5 device pixels become one, not two
    return std::max(1, qRound(logical * m_scale - thinSide));
}

void PixelCanvas::box(const QRect& pixels, qreal radius, const QColor& frame, int frameWidth,
                      const QGradientStops& fill) {
    box(pixels, radius, frame, frameWidth, vertical(pixels, fill));
}

void PixelCanvas::box(const QRect& pixels, qreal radius, const QColor& frame, int frameWidth,
                      const QColor& fill) {
    box(pixels, radius, frame, frameWidth, QBrush(fill));
}

void PixelCanvas::box(const QRect& pixels, qreal radius, const QColor& frame, int frameWidth,
                      const QBrush& fill) {
    if (pixels.width() <= 2 * frameWidth || pixels.height() <= 2 * frameWidth)
        return;
    const qreal outer = radius * m_scale;
    const qreal inner = std::max(0.0, outer - frameWidth);
    const QRectF inside = QRectF(pixels).adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth);
    QPainterPath ring;
    ring.setFillRule(Qt::OddEvenFill);
    ring.addRoundedRect(pixels, outer, outer);
    ring.addRoundedRect(inside, inner, inner);
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(fill);
    // The fill reaches under half of the frame, so that no background shines through between the two.
    m_painter.drawRoundedRect(inside.adjusted(-0.5, -0.5, 0.5, 0.5), inner + 0.5, inner + 0.5);
    m_painter.setBrush(frame);
    m_painter.drawPath(ring);
}

void PixelCanvas::fill(const QRect& pixels, const QGradientStops& stops) {
    m_painter.fillRect(pixels, vertical(pixels, stops));
}

void PixelCanvas::fill(const QRect& pixels, const QColor& colour) {
    m_painter.fillRect(pixels, colour);
}

QBrush vertical(const QRectF& over, const QGradientStops& stops) {
    QLinearGradient gradient(over.topLeft(), over.bottomLeft());
    gradient.setStops(stops);
    return gradient;
}

} // namespace skin
