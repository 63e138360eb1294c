#include "platform/reportengine/output/FontFaces.h"
#include <QPaintDevice>
#include <algorithm>

namespace quorvane::report {

namespace {

/// Above this size letters that stand too far apart are seen, so pairs are kerned; below it figures and names
/// gain nothing from it and their widths are sums.
constexpr double kernedFrom = 11;
constexpr float unknown = -1;

bool isFigure(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || c == u'.' || c == u',' || c == u'-' || c == u'/' || c == u' ';
    });
}

} // namespace

QFont pointFont(const Style& style, QPaintDevice* device) {
    QFont font;
    if (!style.family.isEmpty()) {
        QStringList families = style.family.split(u',');
        for (QString& family : families)
            family = family.trimmed();
        font.setFamilies(families);
    }
    // The painter is scaled to points, so a font as many units high as it has points is wanted, while a
    // font's own points are counted by the device's resolution.
    font.setPointSizeF(style.size * 72.0 / device->logicalDpiY());
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setKerning(style.size > kernedFrom);
    // Rounded to whole pixels, letters would stand differently at every zoom.
    font.setHintingPreference(QFont::PreferNoHinting);
    return {font, device};
}

FontFace::FontFace(const Style& style, QPaintDevice* device)
    : m_font(pointFont(style, device))
    , m_metrics(m_font, device)
    , m_ascent(m_metrics.ascent())
    , m_descent(m_metrics.descent()) {
    m_advances.fill(unknown);
}

double FontFace::advance(QChar character) const {
    if (character.unicode() >= commonCharacters)
        return m_metrics.horizontalAdvance(character);
    float& known = m_advances[character.unicode()];
    if (known == unknown)
        known = static_cast<float>(m_metrics.horizontalAdvance(character));
    return known;
}

double FontFace::roughWidth(QStringView text) const {
    double width = 0;
    for (const QChar character : text)
        width += advance(character);
    return width;
}

double FontFace::width(QStringView text) const {
    if (!m_font.kerning() && isFigure(text))
        return roughWidth(text);
    return m_metrics.horizontalAdvance(text.toString());
}

QString FontFace::elided(const QString& text, double room) const {
    if (roughWidth(text) <= room || m_metrics.horizontalAdvance(text) <= room)
        return text;
    return m_metrics.elidedText(text, Qt::ElideRight, room);
}

const FontFace& FontFaces::face(const std::vector<Style>& styles, int style, QPaintDevice* device) {
    if (device->logicalDpiY() != m_dpi || m_faces.size() != styles.size()) {
        m_dpi = device->logicalDpiY();
        m_faces.clear();
        m_faces.resize(styles.size());
    }
    std::unique_ptr<FontFace>& face = m_faces[style];
    if (!face)
        face = std::make_unique<FontFace>(styles[style], device);
    return *face;
}

} // namespace quorvane::report
