#include "tests/toolbar/scenes/SceneComparison.h"
#include "ui/toolbar/ContentLayout.h"
#include <QFontMetrics>
#include <cstdlib>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr int tolerance = 3; ///< pixels
constexpr int roundings = 3; ///< of the three colours of a half transparent pixel

QImage paintedBy(const Scene& scene, const ToolbarDescription& bar) {
    return ToolbarPainter(ToolbarSkin(scene.skin)).paint(bar, scene.images, QRect({}, bar.size));
}

int distance(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
}

} // namespace

SceneComparison::SceneComparison(const Scene& scene) : m_scene(scene), m_drawn(paintedBy(scene, scene.bar)) {
    ToolbarDescription bare = scene.bar;
    for (ToolbarButton& button : bare.buttons) {
        button.caption.clear();
        button.image = -1;
    }
    m_bare = paintedBy(scene, bare);
    QRegion letters;
    for (const ToolbarButton& button : scene.bar.buttons) {
        if (button.style == StyleSeparator || button.caption.isEmpty() || button.rect.isEmpty())
            continue;
        ++m_captions;
        letters += placesOf(button);
        compareImage(button);
        compareCaption(button);
    }
    compareBeside(letters);
}

void SceneComparison::tell(const ToolbarButton& button, const QString& what) {
    m_differences << u"button at %1,%2 (style %3, state %4): %5"_s.arg(button.rect.x())
                         .arg(button.rect.y())
                         .arg(button.style)
                         .arg(button.state)
                         .arg(what);
}

void SceneComparison::keepDistance(QPoint moved) {
    m_farthest = std::max({m_farthest, std::abs(moved.x()), std::abs(moved.y())});
}

void SceneComparison::compareBeside(const QRegion& letters) {
    for (int y = 0; y < m_drawn.height(); ++y)
        for (int x = 0; x < m_drawn.width(); ++x)
            if (m_drawn.pixel(x, y) != m_scene.shown.pixel(x, y) && !letters.contains(QPoint(x, y))) {
                m_differences << u"another pixel at %1,%2"_s.arg(x).arg(y);
                return;
            }
}

/// Where a button with a caption shows it and its image, with room for another system's letters.
QRegion SceneComparison::placesOf(const ToolbarButton& button) {
    const QSize icon = button.image < 0 ? QSize() : m_scene.bar.iconSize;
    const QSize caption =
        QFontMetrics(m_scene.bar.font).size(Qt::TextShowMnemonic | Qt::TextSingleLine, button.caption);
    ContentLayout places = layoutContent(contentRect(button), icon, caption, m_scene.bar.textOnRight);
    if (isSunk(button)) {
        places.image.translate(1, 1);
        places.caption.translate(1, 1);
    }
    m_drawnImage = m_shownImage = places.image;
    QRegion region;
    for (const QRect& place : {places.image, places.caption})
        if (!place.isEmpty())
            region += place.adjusted(-tolerance, -tolerance, tolerance, tolerance);
    return region;
}

void SceneComparison::compareImage(const ToolbarButton& button) {
    if (m_drawnImage.isEmpty())
        return;
    const QImage image = drawnImage();
    for (int y = -tolerance; y <= tolerance; ++y)
        for (int x = -tolerance; x <= tolerance; ++x)
            if (showsImage(image, m_drawnImage.topLeft() + QPoint(x, y))) {
                m_shownImage = m_drawnImage.translated(x, y);
                keepDistance({x, y});
                return;
            }
    tell(button, u"its image is not near its place"_s);
}

/// The image that this system draws, with what is behind it transparent.
QImage SceneComparison::drawnImage() const {
    QImage image = m_drawn.copy(m_drawnImage).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == m_bare.pixel(m_drawnImage.topLeft() + QPoint(x, y)))
                image.setPixel(x, y, qRgba(0, 0, 0, 0));
    return image;
}

bool SceneComparison::showsImage(const QImage& image, QPoint place) const {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QPoint target = place + QPoint(x, y);
            if (!m_scene.shown.valid(target))
                return false;
            if (qAlpha(image.pixel(x, y)) != 0 &&
                distance(image.pixel(x, y), m_scene.shown.pixel(target)) > roundings)
                return false;
        }
    return true;
}

QRect SceneComparison::inkOf(const QImage& picture, const ToolbarButton& button, const QRect& image) const {
    QRect ink;
    const QRect area = contentRect(button) & picture.rect();
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (picture.pixel(x, y) != m_bare.pixel(x, y) && !image.contains(x, y))
                ink |= QRect(x, y, 1, 1);
    return ink;
}

/// Which of the three colours of captions comes nearest in a picture.
int SceneComparison::colourOf(const QImage& picture, const QRect& ink) const {
    int best = -1;
    int nearest = 3 * 256;
    for (std::size_t i = 0; i < layout::colourRows.size(); ++i) {
        const QRgb colour = m_scene.skin.pixel(layout::colourX, layout::colourRows[i]);
        for (int y = ink.top(); y <= ink.bottom(); ++y)
            for (int x = ink.left(); x <= ink.right(); ++x)
                if (const int far = distance(picture.pixel(x, y), colour); far < nearest) {
                    nearest = far;
                    best = static_cast<int>(i);
                }
    }
    return best;
}

void SceneComparison::compareCaption(const ToolbarButton& button) {
    const QRect shown = inkOf(m_scene.shown, button, m_shownImage);
    const QRect drawn = inkOf(m_drawn, button, m_drawnImage);
    if (shown.isEmpty() != drawn.isEmpty()) {
        tell(button, u"its caption is there in one picture only"_s);
        return;
    }
    if (drawn.isEmpty())
        return;
    keepDistance(shown.topLeft() - drawn.topLeft());
    keepDistance(shown.bottomRight() - drawn.bottomRight());
    const QRect near = drawn.adjusted(-tolerance, -tolerance, tolerance, tolerance);
    const QRect core = drawn.adjusted(tolerance, tolerance, -tolerance, -tolerance);
    if (!near.contains(shown) || !shown.contains(core))
        tell(button, u"its caption is at %1,%2 %3x%4, not at %5,%6 %7x%8"_s.arg(shown.x())
                         .arg(shown.y())
                         .arg(shown.width())
                         .arg(shown.height())
                         .arg(drawn.x())
                         .arg(drawn.y())
                         .arg(drawn.width())
                         .arg(drawn.height()));
    if (colourOf(m_scene.shown, shown) != colourOf(m_drawn, drawn))
        tell(button, u"its caption has another colour"_s);
}

} // namespace toolbar_test
