#pragma once

#include "tests/toolbar/scenes/Scene.h"
#include <QRegion>
#include <QStringList>

namespace toolbar_test {

/// What the picture of a scene has other than this system's painter draws it. Background, faces, separators,
/// arrows and buttons without a caption must be equal to the pixel. Letters are drawn by each system's own
/// hand: captions must stand at the same place, give or take some pixels, and be of the same colour, and the
/// image beside a caption must be equal to the pixel wherever the caption's width has moved it.
class SceneComparison {
public:
    explicit SceneComparison(const Scene& scene);

    /// One line for each difference; empty when there is none.
    QStringList differences() const { return m_differences; }
    int captions() const { return m_captions; }
    /// How far a caption or an image beside one stands from its place here, at most, in pixels.
    int farthest() const { return m_farthest; }
    /// What this system draws.
    const QImage& drawn() const { return m_drawn; }

private:
    QRegion placesOf(const ToolbarButton& button);
    void compareBeside(const QRegion& letters);
    void compareImage(const ToolbarButton& button);
    void compareCaption(const ToolbarButton& button);
    QImage drawnImage() const;
    QRect inkOf(const QImage& picture, const ToolbarButton& button, const QRect& image) const;
    int colourOf(const QImage& picture, const QRect& ink) const;
    bool showsImage(const QImage& image, QPoint place) const;
    void tell(const ToolbarButton& button, const QString& what);
    void keepDistance(QPoint distance);

    const Scene& m_scene;
    QImage m_bare; ///< without images and captions
    QImage m_drawn;
    QRect m_shownImage; ///< of the button in hand, on the window
    QRect m_drawnImage; ///< and here
    QStringList m_differences;
    int m_captions = 0;
    int m_farthest = 0;
};

} // namespace toolbar_test
