#include "ui/toolbar/Emboss.h"
#include <QPainter>

namespace dalvora::toolbar {

namespace {

/// The image as a stencil of one colour: the darker a pixel is, the more of it shows.
QImage stencil(const QImage& image, const QColor& colour) {
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const int cover = qAlpha(row[x]) * (255 - qGray(row[x])) / 255;
            row[x] = qRgba(colour.red(), colour.green(), colour.blue(), std::min(cover * 3 / 2, 255));
        }
    }
    return result;
}

} // namespace

QImage embossed(const QImage& image, const QColor& light, const QColor& shadow) {
    QImage result(image.size(), QImage::Format_ARGB32_Premultiplied);
    result.setDevicePixelRatio(image.devicePixelRatio());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.drawImage(1, 1, stencil(image, light));
    painter.drawImage(0, 0, stencil(image, shadow));
    return result;
}

} // namespace dalvora::toolbar
