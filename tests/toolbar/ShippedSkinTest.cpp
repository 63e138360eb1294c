#include "tests/toolbar/MapSkin.h"
#include "ui/toolbar/tool/SkinDrawing.h"
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

QImage shippedPicture() {
    return QImage(QStringLiteral(STYLES_FOLDER "/LightBlueToolbar.bmp"));
}

/// Part of the contrast formula of the accessibility guidelines.
double luminance(const QColor& colour) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// Least contrast of a colour with the inner pixels of a picture.
double leastContrast(const QColor& colour, const QImage& picture) {
    double least = 21;
    for (int y = 3; y < picture.height() - 3; ++y)
        least = std::min(least, contrast(colour, picture.pixelColor(picture.width() / 2, y)));
    return least;
}

} // namespace

TEST(ShippedSkin, IsWhatTheDrawingProgramDraws) {
    const QImage shipped = shippedPicture();
    ASSERT_FALSE(shipped.isNull());
    EXPECT_EQ(shipped.convertToFormat(QImage::Format_RGB32),
              drawToolbarSkin().convertToFormat(QImage::Format_RGB32));
}

TEST(ShippedSkin, FitsItsLayoutExactly) {
    EXPECT_EQ(shippedPicture().size(), QSize(216, 23));
    EXPECT_TRUE(ToolbarSkin(shippedPicture()).isUsable());
}

TEST(ShippedSkin, EveryTileDiffersFromTheOthersOfItsPart) {
    const ToolbarSkin skin(shippedPicture());
    for (const FacePart part : {FacePart::Whole, FacePart::Main, FacePart::Arrow}) {
        std::vector<QImage> seen;
        for (const FaceState state :
             {FaceState::Hot, FaceState::Pressed, FaceState::Checked, FaceState::CheckedHot}) {
            const QImage face = skin.face(state, part, {30, 30});
            EXPECT_EQ(std::count(seen.begin(), seen.end(), face), 0);
            seen.push_back(face);
        }
    }
}

TEST(ShippedSkin, CaptionsAreReadableOnEveryFace) {
    const ToolbarSkin skin(shippedPicture());
    const auto face = [&](FaceState state) { return skin.face(state, FacePart::Whole, {60, 40}); };
    const QColor normal = skin.captionColour(CaptionColour::Normal);
    const QColor pressed = skin.captionColour(CaptionColour::Pressed);
    const QColor disabled = skin.captionColour(CaptionColour::Disabled);
    EXPECT_GE(leastContrast(normal, skin.background({60, 40})), 4.5);
    EXPECT_GE(leastContrast(normal, face(FaceState::Hot)), 4.5);
    EXPECT_GE(leastContrast(normal, face(FaceState::Checked)), 4.5);
    EXPECT_GE(leastContrast(normal, face(FaceState::CheckedHot)), 4.5);
    EXPECT_GE(leastContrast(pressed, face(FaceState::Pressed)), 4.5);
    EXPECT_GE(leastContrast(pressed, face(FaceState::Checked)), 4.5);
    EXPECT_GE(leastContrast(disabled, skin.background({60, 40})), 3.0);
}

TEST(ShippedSkin, TheDemonstrationLeavesAPicture) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"demo.png"_s);
    EXPECT_EQ(QProcess::execute(QStringLiteral(DEMO_PROGRAM), {u"--grab"_s, file}), 0);
    const QImage picture(file);
    ASSERT_FALSE(picture.isNull());
    // The first skinned bar shows the skin's background below its buttons, and a hot face.
    const QRgb bottomRow = drawToolbarSkin().pixel(195, 22);
    const QRgb hotBorder = drawToolbarSkin().pixel(7, 0);
    int bottom = 0;
    int hot = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            bottom += picture.pixel(x, y) == bottomRow ? 1 : 0;
            hot += picture.pixel(x, y) == hotBorder ? 1 : 0;
        }
    EXPECT_GT(bottom, 1000);
    EXPECT_GT(hot, 100);
}

} // namespace toolbar_test
