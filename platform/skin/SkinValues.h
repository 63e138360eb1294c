#pragma once

#include <QBrush>
#include <QColor>
#include <QLatin1StringView>
#include <array>

namespace skin {

/// Plain colours of a skin; the key of each in the style file is in SkinValues.cpp.
enum class Colour {
    Window,
    WindowText,
    DisabledText,
    Pane,
    FieldBase,
    FieldAlternate,
    FieldText,
    PlaceholderText,
    LockedBase,
    LockedText,
    FieldBorder,
    FieldBorderHot,
    FieldBorderDisabled,
    Selection,
    SelectionText,
    IdleSelection,
    IdleSelectionText,
    Link,
    WeekEnd,
    FocusRing,
    FrameBorder,
    FrameTitle,
    ButtonText,
    ButtonBorder,
    ButtonBorderDefault,
    ButtonBorderDisabled,
    HotText,
    HotBorder,
    PressedBorder,
    CheckMark,
    Glyph,
    GlyphDisabled,
    BarBorder,
    BarLight,
    Separator,
    MenuBase,
    MenuText,
    MenuBorder,
    MenuDisabledText,
    TabBorder,
    TabText,
    TabAccent,
    HeaderText,
    HeaderBorder,
    GridLine,
    ToolTipBase,
    ToolTipText,
    Count
};

/// Vertical gradients of a skin, from top to bottom.
enum class Shade {
    MenuBar,
    ToolBar,
    StatusBar,
    Button,
    ButtonHot,
    ButtonPressed,
    ButtonDisabled,
    Hot,
    Pressed,
    Checked,
    Header,
    HeaderHot,
    Tab,
    TabHot,
    Groove,
    Thumb,
    ThumbHot,
    Count
};

/// Measures of a skin, in pixels at 96 dpi.
enum class Measure {
    CornerRadius,
    FocusWidth,
    ButtonWidth,
    ButtonHeight,
    FieldHeight,
    ToolIcon,
    ToolPadding,
    Indicator,
    ScrollBar,
    TabPadding,
    TabHeight,
    MenuItemHeight,
    HeaderHeight,
    StatusHeight,
    Count
};

/// What a measure may be, in pixels at 96 dpi.
struct MeasureRange {
    int least;
    int most;
};

/// Everything that one section of a style file says. A value type: painting reads it, the file reader fills
/// it.
class SkinValues {
public:
    const QColor& colour(Colour role) const { return m_colours[static_cast<std::size_t>(role)]; }
    const QGradientStops& shade(Shade role) const { return m_shades[static_cast<std::size_t>(role)]; }
    int measure(Measure role) const { return m_measures[static_cast<std::size_t>(role)]; }

    void setColour(Colour role, const QColor& value) { m_colours[static_cast<std::size_t>(role)] = value; }
    void setShade(Shade role, QGradientStops stops) {
        m_shades[static_cast<std::size_t>(role)] = std::move(stops);
    }
    void setMeasure(Measure role, int value) { m_measures[static_cast<std::size_t>(role)] = value; }

private:
    std::array<QColor, static_cast<std::size_t>(Colour::Count)> m_colours;
    std::array<QGradientStops, static_cast<std::size_t>(Shade::Count)> m_shades;
    std::array<int, static_cast<std::size_t>(Measure::Count)> m_measures{};
};

/// Key of the value in the style file.
QLatin1StringView keyOf(Colour role);
QLatin1StringView keyOf(Shade role);
QLatin1StringView keyOf(Measure role);

/// Limits that keep a mistyped measure from making the program unusable.
MeasureRange rangeOf(Measure role);

/// Contrast of two opaque colours, 1 (none) to 21 (black on white), as accessibility guidelines define it.
double contrast(const QColor& one, const QColor& other);

} // namespace skin
