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

/// An icon drawn in lines at whatever size is asked for, in the palette's text colour, so that it stays sharp
/// on every screen and readable under every skin.
QIcon lineIcon(Glyph glyph);

} // namespace help
