#include "ui/toolbar/tool/SkinDrawing.h"
#include "ui/toolbar/ToolbarSkin.h"
#include <algorithm>

namespace dalvora::toolbar {

namespace {

constexpr QRgb transparent = qRgb(255, 0, 255);

constexpr QRgb rgb(unsigned value) {
    return 0xFF000000U | value;
}

/// Colour at a height between top (0) and bottom (100).
struct Stop {
    int percent;
    QRgb colour;
};

using Shade = std::vector<Stop>;

struct FaceColours {
    QRgb border;
    QRgb divider;  ///< between the two parts of a drop-down button
    QRgb innerTop; ///< the row below the upper border: light on raised faces, dark on sunk ones
    QRgb innerSide;
    Shade shade;
};

QRgb mixed(QRgb one, QRgb other, int percentOfOther) {
    const auto part = [&](int a, int b) { return (a * (100 - percentOfOther) + b * percentOfOther) / 100; };
    return qRgb(part(qRed(one), qRed(other)), part(qGreen(one), qGreen(other)),
                part(qBlue(one), qBlue(other)));
}

QRgb shadeAt(const Shade& shade, int row, int rows) {
    const int percent = row * 100 / (rows - 1);
    for (std::size_t i = 1; i < shade.size(); ++i) {
        const Stop& from = shade[i - 1];
        const Stop& to = shade[i];
        if (percent <= to.percent)
            return mixed(from.colour, to.colour,
                         (percent - from.percent) * 100 / (to.percent - from.percent));
    }
    return shade.back().colour;
}

const Shade barShade{{0, rgb(0xF3F8FE)}, {48, rgb(0xDCE9F8)}, {52, rgb(0xCEDFF4)}, {100, rgb(0xD6E5F7)}};
constexpr QRgb barLight = rgb(0xFFFFFF);
constexpr QRgb barBorder = rgb(0x9DB8DA);
constexpr QRgb groove = rgb(0x9DB6D6);
constexpr QRgb glyph = rgb(0x2B5A94);
constexpr std::array captionColours{rgb(0x15304F), rgb(0x5A2F00), rgb(0x66788E)};

/// In the order of the visual states.
const std::array faceColours{
    FaceColours{rgb(0xD9A93F),
                rgb(0xE8C77C),
                rgb(0xFFFEF8),
                rgb(0xFFF9E2),
                {{0, rgb(0xFFFAE6)}, {48, rgb(0xFFEFC0)}, {52, rgb(0xFFE299)}, {100, rgb(0xFFEBB5)}}},
    FaceColours{rgb(0xA8741C),
                rgb(0xC79240),
                rgb(0xDBA24C),
                rgb(0xEDBA66),
                {{0, rgb(0xEBB45C)}, {30, rgb(0xF5C677)}, {100, rgb(0xFFDD9A)}}},
    FaceColours{rgb(0xC59A45),
                rgb(0xD9B56A),
                rgb(0xF3CF88),
                rgb(0xFFE9BC),
                {{0, rgb(0xFFE3A6)}, {100, rgb(0xFFD27A)}}},
    FaceColours{rgb(0xB8842A),
                rgb(0xCF9F4C),
                rgb(0xF0BC62),
                rgb(0xFFDD9E),
                {{0, rgb(0xFBCB74)}, {48, rgb(0xFFD589)}, {52, rgb(0xFFC65E)}, {100, rgb(0xFFDC94)}}},
};

/// The row's colour of the bar behind a tile, for the soft pixels at round corners.
QRgb barAt(int row) {
    return shadeAt(barShade, row, layout::height);
}

/// Colour of one pixel of a tile. A part of a drop-down button is round only at its outer side.
QRgb tilePixel(const FaceColours& face, FacePart part, int x, int y) {
    constexpr int right = layout::tileWidth - 1;
    constexpr int bottom = layout::height - 1;
    const bool roundLeft = part != FacePart::Arrow;
    const bool roundRight = part != FacePart::Main;
    const int fromLeft = roundLeft ? x : layout::tileWidth;
    const int fromRight = roundRight ? right - x : layout::tileWidth;
    const int aside = std::min(fromLeft, fromRight);
    const int above = std::min(y, bottom - y);
    if (aside + above == 0)
        return transparent;
    if (aside + above == 1)
        return mixed(face.border, barAt(y), 45);
    if (aside == 0 || above == 0 || (aside == 1 && above == 1))
        return face.border;
    if (!roundRight && x == right)
        return face.divider;
    if (y == 1)
        return face.innerTop;
    if (aside == 1 || (part == FacePart::Arrow && x == 0) || (part == FacePart::Main && x == right - 1))
        return mixed(face.innerSide, shadeAt(face.shade, y, layout::height), 40);
    return shadeAt(face.shade, y, layout::height);
}

void drawTiles(QImage& skin) {
    for (const FacePart part : {FacePart::Whole, FacePart::Main, FacePart::Arrow})
        for (std::size_t state = 0; state < faceColours.size(); ++state)
            for (int y = 0; y < layout::height; ++y)
                for (int x = 0; x < layout::tileWidth; ++x) {
                    const int tile = static_cast<int>(part) + static_cast<int>(state);
                    skin.setPixel(tile * layout::tileWidth + x, y, tilePixel(faceColours[state], part, x, y));
                }
}

/// A triangle that points down.
void drawArrow(QImage& skin) {
    constexpr int firstRow = 2;
    for (int row = 0; row * 2 < layout::arrowSize; ++row)
        for (int x = row; x < layout::arrowSize - row; ++x)
            skin.setPixel(layout::arrowX + x, firstRow + row, glyph);
}

/// A groove with its light at the right, fading at both ends.
void drawSeparator(QImage& skin) {
    constexpr int x = layout::separatorX + layout::separatorWidth / 2 - 1;
    constexpr int margin = 3;
    for (int y = margin; y < layout::height - margin; ++y) {
        const int depth = std::min(y, layout::height - 1 - y) - margin;
        const int faded = std::max(0, 60 - 20 * depth);
        skin.setPixel(x, y, mixed(groove, barAt(y), faded));
        skin.setPixel(x + 1, y, mixed(barLight, barAt(y), faded));
    }
}

void drawBackground(QImage& skin) {
    for (int y = 0; y < layout::height; ++y)
        for (int x = 0; x < layout::tileWidth; ++x)
            skin.setPixel(layout::backgroundX + x, y,
                          y == 0                    ? barLight
                          : y == layout::height - 1 ? barBorder
                                                    : barAt(y));
}

/// Each colour goes down to the row of the next one.
void drawCaptionColours(QImage& skin) {
    std::size_t colour = 0;
    for (int y = 0; y < layout::height; ++y) {
        if (colour + 1 < captionColours.size() && y == layout::colourRows[colour + 1])
            ++colour;
        skin.setPixel(layout::colourX, y, captionColours[colour]);
    }
}

} // namespace

QImage drawToolbarSkin() {
    QImage skin(layout::width, layout::height, QImage::Format_RGB32);
    skin.fill(transparent);
    drawTiles(skin);
    drawArrow(skin);
    drawSeparator(skin);
    drawBackground(skin);
    drawCaptionColours(skin);
    return skin.convertToFormat(QImage::Format_RGB888);
}

} // namespace dalvora::toolbar
