#pragma once

#include "ui/toolbar/ToolbarDescription.h"
#include <optional>

namespace dalvora::toolbar {

/// Visual states of a button face; the number is the tile's place in the skin.
enum class FaceState { Hot = 0, Pressed = 1, Checked = 2, CheckedHot = 3 };

/// Whose face it is; the number is the place of its first tile in the skin.
enum class FacePart { Whole = 0, Main = 4, Arrow = 8 };

/// The faces that a button shows: one over the whole button, or those of the two parts of a drop-down button,
/// or none.
struct ButtonFaces {
    std::optional<FaceState> whole;
    std::optional<FaceState> main;
    std::optional<FaceState> arrow;

    bool operator==(const ButtonFaces&) const = default;
};

/// Where the mouse pointer is, seen from one button.
enum class Pointer { Away, OnButton, OnArrowPart };

enum class CaptionColour { Normal, Pressed, Disabled };

Pointer pointerOn(const ToolbarButton& button, QPoint cursor);

ButtonFaces facesOf(const ToolbarButton& button, Pointer pointer, bool menuOpen);

/// Colour of the caption; none when the button takes over the colour of the caption before it.
std::optional<CaptionColour> captionColourOf(const ToolbarButton& button);

/// Pressed and checked buttons show image and caption one pixel further right and down.
bool isSunk(const ToolbarButton& button);

/// The rectangle without the arrow part of a drop-down button: where image and caption go.
QRect contentRect(const ToolbarButton& button);

/// The arrow part of a drop-down button.
QRect arrowRect(const ToolbarButton& button);

} // namespace dalvora::toolbar
