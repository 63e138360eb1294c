#pragma once

#include <QFont>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QString>
#include <vector>

namespace dalvora::toolbar {

/// Bits of a button's state byte, as native toolbars keep them.
enum ButtonStateBit : quint8 {
    StateChecked = 1,
    StatePressed = 2,
    StateEnabled = 4,
    StateWrapped = 32,
};

/// Kinds of button, as native toolbars number them.
enum ButtonStyle : quint8 {
    StyleButton = 0,
    StyleSeparator = 1,
    StyleCheck = 2,
    StyleCheckGroup = 6,
    StyleDropDown = 8,
};

/// Width of the arrow part at the right end of a drop-down button, in pixels.
inline constexpr int arrowPartWidth = 13;

/// One button, or the space of one separator.
struct ToolbarButton {
    quint8 style = StyleButton;
    quint8 state = StateEnabled;
    QRect rect;      ///< in the toolbar's pixels; empty when the button is not shown
    int image = -1;  ///< index into the toolbar's image lists; negative without an image
    QString caption; ///< may go on behind a NUL, which ends it; "&" marks a letter
};

/// Everything that one repaint shows, taken from a toolbar before the first pixel is drawn: what happens to
/// the toolbar afterwards does not matter to the picture.
struct ToolbarDescription {
    QSize size;
    QSize iconSize;
    QFont font;
    bool textOnRight = false; ///< captions right of the image, else below it
    QPoint cursor;            ///< place of the mouse pointer, in the toolbar's pixels
    bool menuOpen = false;    ///< a drop-down menu is open somewhere
    std::vector<ToolbarButton> buttons;
};

enum class ImageListKind { Normal, Hot, Disabled };

/// The image lists of a toolbar, asked only for the images that are shown.
class ToolbarImages {
public:
    virtual ~ToolbarImages() = default;
    /// Null when the toolbar has no such list or no such image.
    virtual QPixmap image(ImageListKind list, int index) const = 0;
};

} // namespace dalvora::toolbar
