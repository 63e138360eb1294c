#pragma once

#include "ui/toolbar/ToolbarDescription.h"
#include "ui/toolbar/ToolbarSkin.h"

class QPainter;

namespace dalvora::toolbar {

/// Draws a described toolbar from a skin: background, button faces, separators, arrows, images and captions.
/// It knows no window, so the same drawing serves every kind of toolbar, and pictures and tests need none.
/// A value type; copies share the skin.
class ToolbarPainter {
public:
    ToolbarPainter() = default;
    explicit ToolbarPainter(ToolbarSkin skin) : m_skin(std::move(skin)) {}

    /// Without a usable skin nothing can be painted and the toolbar has to do it itself.
    bool canPaint() const { return m_skin.isUsable(); }

    /// Finished picture of a part of the toolbar, to be shown at that part's place in one go. Scale is the
    /// number of screen pixels to one of the toolbar's. Null without a usable skin or for an empty part.
    /// The picture of an earlier repaint may be handed in: fresh memory for every repaint costs more than
    /// drawing.
    QImage paint(const ToolbarDescription& bar, const ToolbarImages& images, const QRect& part,
                 qreal scale = 1, QImage earlier = {}) const;

private:
    void paintButton(QPainter& painter, const ToolbarDescription& bar, const ToolbarImages& images,
                     const ToolbarButton& button) const;
    void paintFaces(QPainter& painter, const ToolbarDescription& bar, const ToolbarButton& button) const;
    void paintSeparator(QPainter& painter, const QRect& rect) const;
    void paintArrow(QPainter& painter, const ToolbarButton& button) const;

    ToolbarSkin m_skin;
};

} // namespace dalvora::toolbar
