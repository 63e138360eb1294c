#pragma once

#include "platform/reportengine/definition/Definition.h"
#include <QFont>
#include <QFontMetricsF>
#include <array>
#include <memory>

class QPaintDevice;

namespace quorvane::report {

/// A style's font for painters whose unit is one point, with the widths of its characters at hand: measuring
/// a figure is then a handful of additions instead of a text layout.
class FontFace {
public:
    FontFace(const Style& style, QPaintDevice* device);

    const QFont& font() const { return m_font; }
    double ascent() const { return m_ascent; }
    double descent() const { return m_descent; }
    /// Points. Exact for text without letters (figures, dates), and for any text of a large font.
    double width(QStringView text) const;
    /// Never less than the text's width by more than a hair; cheap.
    double roughWidth(QStringView text) const;
    /// The text, or as much of it as fits with "…" behind.
    QString elided(const QString& text, double room) const;

private:
    static constexpr int commonCharacters = 0x180; ///< Latin with all its accents
    double advance(QChar character) const;

    QFont m_font;
    QFontMetricsF m_metrics;
    double m_ascent;
    double m_descent;
    mutable std::array<float, commonCharacters> m_advances;
};

/// The faces of a definition's styles on one device; another device (of another resolution) makes them anew.
class FontFaces {
public:
    const FontFace& face(const std::vector<Style>& styles, int style, QPaintDevice* device);

private:
    int m_dpi = 0;
    std::vector<std::unique_ptr<FontFace>> m_faces;
};

/// A font of the given size in points for a painter whose unit is one point.
QFont pointFont(const Style& style, QPaintDevice* device);

} // namespace quorvane::report
