#include "ui/toolbar/ButtonLook.h"
#include <array>
#include <gtest/gtest.h>

namespace toolbar_test {

using namespace dalvora::toolbar;

namespace {

const ButtonFaces none;

ToolbarButton button(quint8 style, int state) {
    ToolbarButton result;
    result.style = style;
    result.state = static_cast<quint8>(state);
    result.rect = {10, 0, 40, 30};
    return result;
}

ButtonFaces whole(FaceState state) {
    return {state, {}, {}};
}

ButtonFaces parts(FaceState main, FaceState arrow) {
    return {{}, main, arrow};
}

} // namespace

TEST(ButtonLook, AHotOrdinaryButtonShowsTheFaceOfItsStateAndNoneForOtherStates) {
    for (const quint8 style : {StyleButton, StyleCheck})
        for (int state = 0; state < 256; ++state) {
            const ButtonFaces faces = facesOf(button(style, state), Pointer::OnButton, false);
            const bool hot = state == 4 || state == 36;
            const bool pressed = state == 6 || state == 38 || state == 7;
            const ButtonFaces expected = hot          ? whole(FaceState::Hot)
                                         : pressed    ? whole(FaceState::Pressed)
                                         : state == 5 ? whole(FaceState::CheckedHot)
                                                      : none;
            EXPECT_EQ(faces, expected) << int(style) << ' ' << state;
        }
}

TEST(ButtonLook, APressedAndCheckedGroupButtonLooksCheckedAndHot) {
    EXPECT_EQ(facesOf(button(StyleCheckGroup, 7), Pointer::OnButton, false), whole(FaceState::CheckedHot));
    EXPECT_EQ(facesOf(button(StyleCheckGroup, 6), Pointer::OnButton, false), whole(FaceState::Pressed));
    EXPECT_EQ(facesOf(button(StyleCheckGroup, 4), Pointer::OnButton, false), whole(FaceState::Hot));
}

TEST(ButtonLook, AHotDropDownButtonShowsBothParts) {
    for (const bool menuOpen : {false, true})
        for (int state = 0; state < 256; ++state) {
            const ToolbarButton dropDown = button(StyleDropDown, state);
            const ButtonFaces onMain = facesOf(dropDown, Pointer::OnButton, menuOpen);
            const ButtonFaces onArrow = facesOf(dropDown, Pointer::OnArrowPart, menuOpen);
            if (state == 4) {
                EXPECT_EQ(onMain, parts(FaceState::Hot, FaceState::Hot));
                EXPECT_EQ(onArrow, parts(FaceState::Hot, menuOpen ? FaceState::Pressed : FaceState::Hot));
            } else if (state == 6) {
                EXPECT_EQ(onMain, parts(FaceState::Pressed, FaceState::Pressed));
                EXPECT_EQ(onArrow, parts(FaceState::Pressed, FaceState::Pressed));
            } else {
                EXPECT_EQ(onMain, none) << state;
                EXPECT_EQ(onArrow, none) << state;
            }
        }
}

TEST(ButtonLook, AButtonThatIsNotHotHasAFaceOnlyWhenChecked) {
    for (const quint8 style : {StyleButton, StyleCheck, StyleCheckGroup, StyleDropDown})
        for (int state = 0; state < 256; ++state)
            EXPECT_EQ(facesOf(button(style, state), Pointer::Away, true),
                      state == 5 || state == 7 ? whole(FaceState::Checked) : none)
                << int(style) << ' ' << state;
}

TEST(ButtonLook, ASeparatorHasNoFace) {
    for (int state = 0; state < 256; ++state) {
        EXPECT_EQ(facesOf(button(StyleSeparator, state), Pointer::OnButton, false), none);
        EXPECT_EQ(facesOf(button(StyleSeparator, state), Pointer::Away, false), none);
    }
}

TEST(ButtonLook, TheLastThirteenPixelsOfADropDownButtonAreItsArrow) {
    const ToolbarButton dropDown = button(StyleDropDown, 4);
    EXPECT_EQ(pointerOn(dropDown, {9, 10}), Pointer::Away);
    EXPECT_EQ(pointerOn(dropDown, {10, 10}), Pointer::OnButton);
    EXPECT_EQ(pointerOn(dropDown, {36, 10}), Pointer::OnButton);
    EXPECT_EQ(pointerOn(dropDown, {37, 10}), Pointer::OnArrowPart);
    EXPECT_EQ(pointerOn(dropDown, {49, 29}), Pointer::OnArrowPart);
    EXPECT_EQ(pointerOn(dropDown, {50, 10}), Pointer::Away);
    EXPECT_EQ(pointerOn(dropDown, {40, 30}), Pointer::Away);
    EXPECT_EQ(pointerOn(button(StyleButton, 4), {40, 10}), Pointer::OnButton);
    EXPECT_EQ(arrowRect(dropDown), QRect(37, 0, 13, 30));
    EXPECT_EQ(contentRect(dropDown), QRect(10, 0, 27, 30));
    EXPECT_EQ(contentRect(button(StyleButton, 4)), QRect(10, 0, 40, 30));
}

TEST(ButtonLook, CaptionColourFollowsTheStateByte) {
    for (const quint8 style : {StyleButton, StyleCheck, StyleDropDown})
        for (int state = 0; state < 256; ++state)
            EXPECT_EQ(captionColourOf(button(style, state)), state == 6 || state == 7 ? CaptionColour::Pressed
                                                             : state >= 4             ? CaptionColour::Normal
                                                                          : CaptionColour::Disabled)
                << state;
}

TEST(ButtonLook, APressedGroupButtonKeepsTheColourThatIsSet) {
    EXPECT_EQ(captionColourOf(button(StyleCheckGroup, 6)), std::nullopt);
    EXPECT_EQ(captionColourOf(button(StyleCheckGroup, 7)), std::nullopt);
    EXPECT_EQ(captionColourOf(button(StyleCheckGroup, 5)), CaptionColour::Normal);
    EXPECT_EQ(captionColourOf(button(StyleCheckGroup, 0)), CaptionColour::Disabled);
}

TEST(ButtonLook, PressedAndCheckedButtonsSink) {
    for (int state = 0; state < 256; ++state)
        EXPECT_EQ(isSunk(button(StyleButton, state)), state == 5 || state == 6 || state == 7) << state;
}

} // namespace toolbar_test
