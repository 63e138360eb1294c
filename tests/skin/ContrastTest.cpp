#include "platform/skin/SkinValues.h"
#include "platform/skin/StyleFile.h"
#include "tests/skin/StyleFiles.h"

#include <gtest/gtest.h>

using skin::Colour;
using skin::Shade;

namespace {

struct OnColour {
    Colour text;
    Colour ground;
    double least;
};

struct OnShade {
    Colour text;
    Shade ground;
    double least;
};

constexpr double readable = 4.5;
/// What is off must be told from the ground, no more.
constexpr double visible = 3.0;

constexpr OnColour onColours[] = {
    {Colour::WindowText, Colour::Window, readable},
    {Colour::WindowText, Colour::Pane, readable},
    {Colour::FrameTitle, Colour::Window, readable},
    {Colour::FrameTitle, Colour::Pane, readable},
    {Colour::FieldText, Colour::FieldBase, readable},
    {Colour::FieldText, Colour::FieldAlternate, readable},
    {Colour::FieldText, Colour::LockedBase, readable},
    {Colour::PlaceholderText, Colour::FieldBase, readable},
    {Colour::LockedText, Colour::LockedBase, readable},
    {Colour::LockedText, Colour::FieldBase, readable},
    {Colour::SelectionText, Colour::Selection, readable},
    {Colour::IdleSelectionText, Colour::IdleSelection, readable},
    {Colour::Link, Colour::Window, readable},
    {Colour::Link, Colour::FieldBase, readable},
    {Colour::WeekEnd, Colour::FieldBase, readable},
    {Colour::MenuText, Colour::MenuBase, readable},
    {Colour::ToolTipText, Colour::ToolTipBase, readable},
    {Colour::TabText, Colour::Pane, readable},
    {Colour::DisabledText, Colour::Window, visible},
    {Colour::DisabledText, Colour::Pane, visible},
    {Colour::MenuDisabledText, Colour::MenuBase, visible},
    {Colour::FocusRing, Colour::Window, visible},
    {Colour::FocusRing, Colour::FieldBase, visible},
    {Colour::CheckMark, Colour::FieldBase, readable},
    {Colour::Glyph, Colour::FieldBase, visible},
};

constexpr OnShade onShades[] = {
    {Colour::MenuText, Shade::MenuBar, readable},      {Colour::WindowText, Shade::ToolBar, readable},
    {Colour::WindowText, Shade::StatusBar, readable},  {Colour::ButtonText, Shade::Button, readable},
    {Colour::ButtonText, Shade::ButtonHot, readable},  {Colour::ButtonText, Shade::ButtonPressed, readable},
    {Colour::HotText, Shade::Hot, readable},           {Colour::HotText, Shade::Pressed, readable},
    {Colour::HotText, Shade::Checked, readable},       {Colour::HeaderText, Shade::Header, readable},
    {Colour::HeaderText, Shade::HeaderHot, readable},  {Colour::TabText, Shade::Tab, readable},
    {Colour::TabText, Shade::TabHot, readable},        {Colour::DisabledText, Shade::ButtonDisabled, visible},
    {Colour::DisabledText, Shade::StatusBar, visible}, {Colour::Glyph, Shade::Groove, visible},
};

skin::SkinValues shipped() {
    return skin::readStyleFile(StyleFiles::shipped(), StyleFiles::section());
}

} // namespace

TEST(Contrast, FollowsTheAccessibilityGuidelines) {
    EXPECT_NEAR(skin::contrast(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(skin::contrast(Qt::white, Qt::black), 21.0, 0.01);
    EXPECT_DOUBLE_EQ(skin::contrast(Qt::red, Qt::red), 1.0);
    EXPECT_NEAR(skin::contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST(Contrast, TheShippedSkinIsReadableOnItsGrounds) {
    const skin::SkinValues values = shipped();
    for (const OnColour& pair : onColours) {
        EXPECT_GE(skin::contrast(values.colour(pair.text), values.colour(pair.ground)), pair.least)
            << keyOf(pair.text).data() << " on " << keyOf(pair.ground).data();
    }
}

TEST(Contrast, TheShippedSkinIsReadableOnEveryPlaceOfItsShades) {
    const skin::SkinValues values = shipped();
    for (const OnShade& pair : onShades) {
        for (const auto& [at, ground] : values.shade(pair.ground)) {
            EXPECT_GE(skin::contrast(values.colour(pair.text), ground), pair.least)
                << keyOf(pair.text).data() << " on " << keyOf(pair.ground).data() << " at " << at;
        }
    }
}
