#include "tests/toolbar/MapSkin.h"
#include <gtest/gtest.h>

namespace toolbar_test {

namespace {

constexpr std::array parts{FacePart::Whole, FacePart::Main, FacePart::Arrow};
constexpr std::array states{FaceState::Hot, FaceState::Pressed, FaceState::Checked, FaceState::CheckedHot};

} // namespace

TEST(ToolbarSkin, EveryTileIsTakenFromItsColumnOfTheBitmap) {
    const ToolbarSkin skin(mapPicture());
    int tiles = 0;
    for (const FacePart part : parts)
        for (const FaceState state : states) {
            const int left = (static_cast<int>(state) + static_cast<int>(part)) * 15;
            EXPECT_EQ(left, tiles++ * 15);
            const QImage face = skin.face(state, part, {15, 23});
            for (int y = 0; y < 23; ++y)
                for (int x = 0; x < 15; ++x)
                    ASSERT_EQ(colourAt(face, x, y), mapPixel(left + x, y)) << left << ' ' << x << ' ' << y;
        }
}

TEST(ToolbarSkin, CornersKeepTheirSizeAndEdgesStretch) {
    const ToolbarSkin skin(mapPicture());
    const int left = (1 + 4) * 15;
    const QSize size(60, 62);
    const QImage face = skin.face(FaceState::Pressed, FacePart::Main, size);
    for (int i = 0; i < 5; ++i)
        for (int j = 0; j < 5; ++j) {
            EXPECT_EQ(colourAt(face, i, j), mapPixel(left + i, j));
            EXPECT_EQ(colourAt(face, 55 + i, j), mapPixel(left + 10 + i, j));
            EXPECT_EQ(colourAt(face, i, 57 + j), mapPixel(left + i, 18 + j));
            EXPECT_EQ(colourAt(face, 55 + i, 57 + j), mapPixel(left + 10 + i, 18 + j));
        }
    // 5 columns over 50 pixels, 13 rows over 52.
    for (int x = 0; x < 50; ++x)
        for (int y = 0; y < 52; ++y)
            ASSERT_EQ(colourAt(face, 5 + x, 5 + y), mapPixel(left + 5 + x / 10, 5 + y / 4));
}

TEST(ToolbarSkin, AFaceSmallerThanItsCornersKeepsTheOuterPixels) {
    const QImage face = ToolbarSkin(mapPicture()).face(FaceState::Hot, FacePart::Whole, {4, 1});
    EXPECT_EQ(colourAt(face, 0, 0), mapPixel(0, 0));
    EXPECT_EQ(colourAt(face, 1, 0), mapPixel(1, 0));
    EXPECT_EQ(colourAt(face, 2, 0), mapPixel(13, 0));
    EXPECT_EQ(colourAt(face, 3, 0), mapPixel(14, 0));
}

TEST(ToolbarSkin, TheBackgroundKeepsTopAndBottomRowsAndStretchesAcross) {
    const QImage bar = ToolbarSkin(mapPicture()).background({150, 49});
    for (int x = 0; x < 150; ++x) {
        for (int y = 0; y < 5; ++y) {
            ASSERT_EQ(colourAt(bar, x, y), mapPixel(195 + x / 10, y));
            ASSERT_EQ(colourAt(bar, x, 44 + y), mapPixel(195 + x / 10, 18 + y));
        }
        for (int y = 0; y < 39; ++y)
            ASSERT_EQ(colourAt(bar, x, 5 + y), mapPixel(195 + x / 10, 5 + y / 3));
    }
}

TEST(ToolbarSkin, TheSeparatorKeepsSevenRowsAtBothEnds) {
    const QImage line = ToolbarSkin(mapPicture()).separator(7 + 18 + 7);
    EXPECT_EQ(line.width(), 8);
    for (int x = 0; x < 8; ++x) {
        for (int y = 0; y < 7; ++y) {
            ASSERT_EQ(colourAt(line, x, y), mapPixel(187 + x, y));
            ASSERT_EQ(colourAt(line, x, 25 + y), mapPixel(187 + x, 16 + y));
        }
        for (int y = 0; y < 18; ++y)
            ASSERT_EQ(colourAt(line, x, 7 + y), mapPixel(187 + x, 7 + y / 2));
    }
}

TEST(ToolbarSkin, TheArrowIsSevenPixelsSquareInTheDisabledColourWhenOff) {
    QImage picture = mapPicture();
    picture.setPixel(180, 0, magenta);
    picture.setPixel(215, 10, qRgb(1, 2, 3));
    const ToolbarSkin skin(picture);
    const QImage on = skin.arrow(true);
    EXPECT_EQ(on.size(), QSize(7, 7));
    EXPECT_EQ(colourAt(on, 1, 0), mapPixel(181, 0));
    EXPECT_EQ(colourAt(on, 6, 6), mapPixel(186, 6));
    EXPECT_EQ(qAlpha(on.pixel(0, 0)), 0);
    const QImage off = skin.arrow(false);
    EXPECT_EQ(off.pixel(6, 6), qRgb(1, 2, 3));
    EXPECT_EQ(qAlpha(off.pixel(0, 0)), 0);
}

TEST(ToolbarSkin, MagentaIsTransparentInPiecesThatAreCopiedOntoTheBar) {
    QImage picture = mapPicture();
    picture.setPixel(2, 3, magenta);
    picture.setPixel(187, 0, magenta);
    picture.setPixel(3, 3, qRgb(255, 0, 254));
    const ToolbarSkin skin(picture);
    const QImage face = skin.face(FaceState::Hot, FacePart::Whole, {30, 30});
    EXPECT_EQ(qAlpha(face.pixel(2, 3)), 0);
    EXPECT_EQ(face.pixel(3, 3), qRgb(255, 0, 254));
    EXPECT_EQ(qAlpha(skin.separator(23).pixel(0, 0)), 0);
}

TEST(ToolbarSkin, CaptionColoursAreSampledFromTheirThreePixels) {
    const ToolbarSkin skin(mapPicture());
    EXPECT_EQ(skin.captionColour(CaptionColour::Normal).rgb(), mapPixel(215, 0));
    EXPECT_EQ(skin.captionColour(CaptionColour::Pressed).rgb(), mapPixel(215, 6));
    EXPECT_EQ(skin.captionColour(CaptionColour::Disabled).rgb(), mapPixel(215, 10));
}

TEST(ToolbarSkin, ABitmapTooSmallForTheLayoutIsNoSkin) {
    EXPECT_FALSE(ToolbarSkin().isUsable());
    EXPECT_FALSE(ToolbarSkin(QImage()).isUsable());
    EXPECT_FALSE(ToolbarSkin(mapPicture().copy(0, 0, 215, 23)).isUsable());
    EXPECT_FALSE(ToolbarSkin(mapPicture().copy(0, 0, 216, 22)).isUsable());
    EXPECT_TRUE(ToolbarSkin(mapPicture()).isUsable());
}

TEST(ToolbarSkin, ALargerBitmapAndOtherPixelFormatsWork) {
    const ToolbarSkin skin(mapPicture().copy(0, 0, 300, 40).convertToFormat(QImage::Format_RGB888));
    ASSERT_TRUE(skin.isUsable());
    EXPECT_EQ(colourAt(skin.face(FaceState::Checked, FacePart::Whole, {15, 23}), 14, 22), mapPixel(44, 22));
}

} // namespace toolbar_test
