#pragma once

#include <QIcon>

namespace help {

/// The viewer's own icons.
enum class Glyph {
    Panel,
    Back,
    Forward,
    Home,
    Print,
    Find,
    ZoomIn,
    ZoomOut,
    Previous,
    Next,
    Close,
    Book,
    Page
};

/// The colour of an icon on a selected line: that of the selected text, or that of plain text as everywhere
/// else, for lines whose selection is only tinted because the keyboard is elsewhere.
enum class OnSelection { SelectedText, PlainText };

/// An icon drawn in lines at whatever size is asked for, in the palette's text colour, so that it stays sharp
/// on every screen and readable under every skin.
QIcon lineIcon(Glyph glyph, OnSelection onSelection = OnSelection::SelectedText);

} // namespace help
