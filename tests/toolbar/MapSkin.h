#pragma once

#include "ui/toolbar/ToolbarSkin.h"
#include <QImage>

namespace toolbar_test {

using namespace dalvora::toolbar;

inline constexpr QRgb magenta = qRgb(255, 0, 255);

/// What a pixel of the map shows: every pixel of the bitmap tells its own place.
inline QRgb mapPixel(int x, int y) {
    return qRgb(x, y, 77);
}

/// A skin bitmap that is a map of itself. What is painted from it tells where it came from.
inline QImage mapPicture() {
    QImage picture(layout::width, layout::height, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, mapPixel(x, y));
    return picture;
}

/// Colour of the pixel without its transparency.
inline QRgb colourAt(const QImage& image, int x, int y) {
    return image.pixel(x, y) | 0xFF000000U;
}

} // namespace toolbar_test
