#include "ui/toolbar/Emboss.h"
#include <gtest/gtest.h>

namespace toolbar_test {

using dalvora::toolbar::embossed;

TEST(Emboss, PutsLightBelowTheShadow) {
    QImage icon(6, 6, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    icon.setPixel(2, 2, qRgb(0, 0, 0));
    icon.setPixel(0, 5, qRgb(255, 255, 255));
    const QImage result = embossed(icon, Qt::white, Qt::gray);
    EXPECT_EQ(result.pixelColor(2, 2), QColor(Qt::gray));
    EXPECT_EQ(result.pixelColor(3, 3), QColor(Qt::white));
    EXPECT_EQ(qAlpha(result.pixel(0, 5)), 0) << "what is light already leaves no trace";
}

TEST(Emboss, KeepsSizeAndScale) {
    QImage icon(48, 32, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::black);
    icon.setDevicePixelRatio(2);
    const QImage result = embossed(icon, Qt::white, Qt::gray);
    EXPECT_EQ(result.size(), icon.size());
    EXPECT_EQ(result.devicePixelRatio(), 2);
    EXPECT_EQ(result.pixelColor(47, 31), QColor(Qt::gray)) << "every pixel of it is drawn";
}

} // namespace toolbar_test
