#pragma once

#include "ui/toolbar/ButtonLook.h"
#include <QColor>
#include <QImage>
#include <array>

namespace dalvora::toolbar {

/// Where the pieces are in a skin bitmap, in pixels; all of them begin at row 0.
namespace layout {
inline constexpr int tileWidth = 15;
inline constexpr int height = 23;
inline constexpr int edge = 5; ///< corners and edges of tiles; top and bottom rows of the background
inline constexpr int arrowX = 180;
inline constexpr int arrowSize = 7;
inline constexpr int separatorX = 187;
inline constexpr int separatorWidth = 8;
inline constexpr int separatorEdge = 7;
inline constexpr int backgroundX = 195;
inline constexpr int colourX = 215;
inline constexpr std::array colourRows{0, 6, 10}; ///< normal, pressed, disabled
inline constexpr int width = colourX + 1;
} // namespace layout

/// The skin bitmap cut into pieces. Corners keep their size and what lies between them is stretched by
/// repeating pixels, so that a skin drawn for small buttons fits every size. Magenta lets the toolbar's
/// background through. A value type that shares its pixels.
class ToolbarSkin {
public:
    /// No skin.
    ToolbarSkin() = default;
    /// A bitmap that is too small for the layout makes no skin.
    explicit ToolbarSkin(const QImage& picture);

    bool isUsable() const { return !m_picture.isNull(); }

    QColor captionColour(CaptionColour colour) const { return m_colours[static_cast<std::size_t>(colour)]; }

    // The pieces, each composed in the size asked for (at least 1 x 1 pixel).
    QImage background(QSize size) const;
    /// The background of a toolbar of that size, from a place of it on, straight into a picture (RGB32).
    void fillBackground(QImage& picture, QSize size, QPoint origin) const;
    QImage face(FaceState state, FacePart part, QSize size) const;
    QImage separator(int height) const;
    /// The disabled form is the same drawing in the disabled colour of captions.
    QImage arrow(bool enabled) const;

private:
    QImage m_picture; ///< magenta is transparent here
    QImage m_opaque;  ///< and still magenta here
    std::array<QColor, 3> m_colours;
};

} // namespace dalvora::toolbar
