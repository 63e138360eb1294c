#include "platform/skin/SkinValues.h"

#include <cmath>
#include <utility>

namespace skin {

namespace {

using namespace Qt::StringLiterals;

// The tables below stand in the order of their enumerations.
constexpr std::array<QLatin1StringView, static_cast<std::size_t>(Colour::Count)> colourKeys{
    "Window"_L1,
    "WindowText"_L1,
    "DisabledText"_L1,
    "Pane"_L1,
    "FieldBase"_L1,
    "FieldAlternate"_L1,
    "FieldText"_L1,
    "PlaceholderText"_L1,
    "LockedBase"_L1,
    "LockedText"_L1,
    "FieldBorder"_L1,
    "FieldBorderHot"_L1,
    "FieldBorderDisabled"_L1,
    "Selection"_L1,
    "SelectionText"_L1,
    "IdleSelection"_L1,
    "IdleSelectionText"_L1,
    "Link"_L1,
    "WeekEnd"_L1,
    "FocusRing"_L1,
    "FrameBorder"_L1,
    "FrameTitle"_L1,
    "ButtonText"_L1,
    "ButtonBorder"_L1,
    "ButtonBorderDefault"_L1,
    "ButtonBorderDisabled"_L1,
    "HotText"_L1,
    "HotBorder"_L1,
    "PressedBorder"_L1,
    "CheckMark"_L1,
    "Glyph"_L1,
    "GlyphDisabled"_L1,
    "BarBorder"_L1,
    "BarLight"_L1,
    "Separator"_L1,
    "MenuBase"_L1,
    "MenuText"_L1,
    "MenuBorder"_L1,
    "MenuDisabledText"_L1,
    "TabBorder"_L1,
    "TabText"_L1,
    "TabAccent"_L1,
    "HeaderText"_L1,
    "HeaderBorder"_L1,
    "GridLine"_L1,
    "ToolTipBase"_L1,
    "ToolTipText"_L1,
};

constexpr std::array<QLatin1StringView, static_cast<std::size_t>(Shade::Count)> shadeKeys{
    "MenuBarShade"_L1,   "ToolBarShade"_L1,       "StatusBarShade"_L1,      "ButtonShade"_L1,
    "ButtonHotShade"_L1, "ButtonPressedShade"_L1, "ButtonDisabledShade"_L1, "HotShade"_L1,
    "PressedShade"_L1,   "CheckedShade"_L1,       "HeaderShade"_L1,         "HeaderHotShade"_L1,
    "TabShade"_L1,       "TabHotShade"_L1,        "GrooveShade"_L1,         "ThumbShade"_L1,
    "ThumbHotShade"_L1,
};

struct MeasureRule {
    QLatin1StringView key;
    MeasureRange range;
};

constexpr std::array<MeasureRule, static_cast<std::size_t>(Measure::Count)> measureRules{{
    {"CornerRadius"_L1, {0, 8}},
    {"FocusWidth"_L1, {1, 3}},
    {"ButtonWidth"_L1, {40, 160}},
    {"ButtonHeight"_L1, {20, 48}},
    {"FieldHeight"_L1, {18, 48}},
    {"ToolIcon"_L1, {16, 48}},
    {"ToolPadding"_L1, {1, 12}},
    {"Indicator"_L1, {11, 24}},
    {"ScrollBar"_L1, {10, 30}},
    {"TabPadding"_L1, {4, 40}},
    {"TabHeight"_L1, {18, 48}},
    {"MenuItemHeight"_L1, {18, 48}},
    {"HeaderHeight"_L1, {18, 48}},
    {"StatusHeight"_L1, {18, 48}},
}};

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

QLatin1StringView keyOf(Colour role) {
    return colourKeys[static_cast<std::size_t>(role)];
}

QLatin1StringView keyOf(Shade role) {
    return shadeKeys[static_cast<std::size_t>(role)];
}

QLatin1StringView keyOf(Measure role) {
    return measureRules[static_cast<std::size_t>(role)].key;
}

MeasureRange rangeOf(Measure role) {
    return measureRules[static_cast<std::size_t>(role)].range;
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace skin
