#include "ui/toolbar/ToolbarSkin.h"
#include <algorithm>
#include <cstring>

namespace dalvora::toolbar {

namespace {

constexpr QRgb magenta = qRgb(255, 0, 255);

/// One direction of a piece: how many of its pixels belong to the near end, the middle and the far end.
struct Span {
    int head;
    int middle;
    int tail;
};

/// Column or row of the piece that each pixel of the drawing shows. Ends that do not fit give way from the
/// inside.
std::vector<int> sourceOf(const Span& span, int length) {
    const int head = std::min(span.head, (length + 1) / 2);
    const int tail = std::min(span.tail, length - head);
    const int stretched = length - head - tail;
    std::vector<int> source(static_cast<std::size_t>(length));
    for (int i = 0; i < length; ++i) {
        int& place = source[static_cast<std::size_t>(i)];
        if (i < head)
            place = i;
        else if (i < head + stretched)
            place = span.head + (i - head) * span.middle / stretched;
        else
            place = span.head + span.middle + span.tail - (length - i);
    }
    return source;
}

const QRgb* pixels(const QImage& image, int row) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(row));
}

/// Fills a picture with a piece at a column of the bitmap: for each of its columns and rows the one of the
/// piece.
void compose(QImage& picture, const QImage& bitmap, int x, const std::vector<int>& columns,
             const std::vector<int>& rows) {
    for (int y = 0; y < picture.height(); ++y) {
        auto* target = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const auto row = static_cast<std::size_t>(y);
        if (y > 0 && rows[row] == rows[row - 1]) {
            std::memcpy(target, pixels(picture, y - 1), columns.size() * sizeof(QRgb));
            continue;
        }
        const QRgb* source = pixels(bitmap, rows[row]) + x;
        for (const int column : columns)
            *target++ = source[column];
    }
}

QImage composed(const QImage& bitmap, int x, const Span& across, const Span& down, QSize size) {
    QImage piece(size, bitmap.format());
    compose(piece, bitmap, x, sourceOf(across, size.width()), sourceOf(down, size.height()));
    return piece;
}

/// The stretch of a direction that a number of finer pixels shows, beginning at a place.
std::vector<int> magnified(const std::vector<int>& source, int first, int count, qreal scale) {
    std::vector<int> result;
    result.reserve(static_cast<std::size_t>(count));
    const int last = static_cast<int>(source.size()) - 1;
    for (int i = 0; i < count; ++i) {
        const int place = std::min(first + static_cast<int>((i + 0.5) / scale), last);
        result.push_back(source[static_cast<std::size_t>(place)]);
    }
    return result;
}

constexpr Span tileAcross{layout::edge, layout::tileWidth - 2 * layout::edge, layout::edge};
constexpr Span tileDown{layout::edge, layout::height - 2 * layout::edge, layout::edge};
constexpr Span wholeWidth{0, layout::tileWidth, 0};
constexpr Span separatorAcross{0, layout::separatorWidth, 0};
constexpr Span separatorDown{layout::separatorEdge, layout::height - 2 * layout::separatorEdge,
                             layout::separatorEdge};

} // namespace

ToolbarSkin::ToolbarSkin(const QImage& picture) {
    if (picture.width() < layout::width || picture.height() < layout::height)
        return;
    m_opaque = picture.convertToFormat(QImage::Format_RGB32);
    m_picture = m_opaque.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < m_picture.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(m_picture.scanLine(y));
        std::replace(row, row + m_picture.width(), magenta, qRgba(0, 0, 0, 0));
    }
    for (std::size_t i = 0; i < m_colours.size(); ++i)
        m_colours[i] = m_opaque.pixelColor(layout::colourX, layout::colourRows[i]);
}

void ToolbarSkin::fillBackground(QImage& picture, QSize size, QPoint origin) const {
    const qreal scale = picture.devicePixelRatio();
    compose(picture, m_opaque, layout::backgroundX,
            magnified(sourceOf(wholeWidth, size.width()), origin.x(), picture.width(), scale),
            magnified(sourceOf(tileDown, size.height()), origin.y(), picture.height(), scale));
}

QImage ToolbarSkin::background(QSize size) const {
    return composed(m_opaque, layout::backgroundX, wholeWidth, tileDown, size);
}

QImage ToolbarSkin::face(FaceState state, FacePart part, QSize size) const {
    const int tile = static_cast<int>(state) + static_cast<int>(part);
    return composed(m_picture, tile * layout::tileWidth, tileAcross, tileDown, size);
}

QImage ToolbarSkin::separator(int height) const {
    return composed(m_picture, layout::separatorX, separatorAcross, separatorDown,
                    {layout::separatorWidth, height});
}

QImage ToolbarSkin::arrow(bool enabled) const {
    QImage glyph = m_picture.copy(layout::arrowX, 0, layout::arrowSize, layout::arrowSize);
    if (enabled)
        return glyph;
    const QRgb disabled = captionColour(CaptionColour::Disabled).rgb();
    for (int y = 0; y < glyph.height(); ++y)
        for (int x = 0; x < glyph.width(); ++x)
            if (qAlpha(glyph.pixel(x, y)) != 0)
                glyph.setPixel(x, y, disabled);
    return glyph;
}

} // namespace dalvora::toolbar
