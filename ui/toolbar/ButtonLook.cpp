#include "ui/toolbar/ButtonLook.h"
#include <array>

namespace dalvora::toolbar {

namespace {

/// Face of a button under the mouse for one state byte; state bytes that are not listed show none.
struct HotFace {
    quint8 state;
    FaceState face;
    FaceState checkGroupFace;
};

constexpr std::array hotFaces{
    HotFace{StateEnabled, FaceState::Hot, FaceState::Hot},
    HotFace{StateEnabled | StateWrapped, FaceState::Hot, FaceState::Hot},
    HotFace{StateEnabled | StateChecked, FaceState::CheckedHot, FaceState::CheckedHot},
    HotFace{StateEnabled | StatePressed, FaceState::Pressed, FaceState::Pressed},
    HotFace{StateEnabled | StatePressed | StateWrapped, FaceState::Pressed, FaceState::Pressed},
    HotFace{StateEnabled | StatePressed | StateChecked, FaceState::Pressed, FaceState::CheckedHot},
};

bool isCheckedState(quint8 state) {
    return state == (StateEnabled | StateChecked) || state == (StateEnabled | StateChecked | StatePressed);
}

ButtonFaces hotFacesOf(const ToolbarButton& button) {
    for (const HotFace& row : hotFaces)
        if (row.state == button.state)
            return {button.style == StyleCheckGroup ? row.checkGroupFace : row.face, {}, {}};
    return {};
}

ButtonFaces hotDropDownFaces(quint8 state, Pointer pointer, bool menuOpen) {
    // At the end of a line a drop-down button has no faces: its state byte with the wrapped bit is not known
    // here.
    switch (state) {
    case StateEnabled:
        return {{},
                FaceState::Hot,
                pointer == Pointer::OnArrowPart && menuOpen ? FaceState::Pressed : FaceState::Hot};
    case StateEnabled | StatePressed:
        return {{}, FaceState::Pressed, FaceState::Pressed};
    default:
        return {};
    }
}

} // namespace

Pointer pointerOn(const ToolbarButton& button, QPoint cursor) {
    if (!button.rect.contains(cursor))
        return Pointer::Away;
    return button.style == StyleDropDown && arrowRect(button).contains(cursor) ? Pointer::OnArrowPart
                                                                               : Pointer::OnButton;
}

ButtonFaces facesOf(const ToolbarButton& button, Pointer pointer, bool menuOpen) {
    if (button.style == StyleSeparator)
        return {};
    if (pointer == Pointer::Away)
        return isCheckedState(button.state) ? ButtonFaces{FaceState::Checked, {}, {}} : ButtonFaces{};
    return button.style == StyleDropDown ? hotDropDownFaces(button.state, pointer, menuOpen)
                                         : hotFacesOf(button);
}

std::optional<CaptionColour> captionColourOf(const ToolbarButton& button) {
    switch (button.state) {
    case StateEnabled | StateChecked:
        return CaptionColour::Normal;
    case StateEnabled | StatePressed:
    case StateEnabled | StatePressed | StateChecked:
        // A check-group button sets no colour of its own here: right of a disabled button its caption looks
        // disabled while it is held down.
        if (button.style == StyleCheckGroup)
            return std::nullopt;
        return CaptionColour::Pressed;
    default:
        // The number counts, not its bits: a wrapped button (32) has the normal colour even when it is
        // disabled, and one that is pressed and wrapped (38) keeps it.
        return button.state >= StateEnabled ? CaptionColour::Normal : CaptionColour::Disabled;
    }
}

// At the end of a line, where the state byte has one bit more, a pressed button shows its pressed face but
// does not sink.
bool isSunk(const ToolbarButton& button) {
    return isCheckedState(button.state) || button.state == (StateEnabled | StatePressed);
}

QRect contentRect(const ToolbarButton& button) {
    return button.style == StyleDropDown ? button.rect.adjusted(0, 0, -arrowPartWidth, 0) : button.rect;
}

QRect arrowRect(const ToolbarButton& button) {
    return {button.rect.right() + 1 - arrowPartWidth, button.rect.top(), arrowPartWidth,
            button.rect.height()};
}

} // namespace dalvora::toolbar
