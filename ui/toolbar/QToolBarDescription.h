#pragma once

#include "ui/toolbar/ToolbarDescription.h"
#include <QIcon>

class QToolBar;
class QWidget;

namespace dalvora::toolbar {

/// The icons of a described toolbar's buttons, each at its button's image index.
class IconImages final : public ToolbarImages {
public:
    IconImages(QSize size, qreal scale) : m_size(size), m_scale(scale) {}
    int add(const QIcon& icon);
    QPixmap image(ImageListKind list, int index) const override;

private:
    QSize m_size;
    qreal m_scale;
    std::vector<QIcon> m_icons;
};

/// True for what the painter shows in a toolbar: tool buttons and separators. Other controls, and the button
/// that lists what does not fit, paint themselves.
bool isPaintedChild(const QWidget& child);

/// A font with its size in pixels: the toolbar, not the picture it is drawn in, says what a point is.
QFont pixelFont(const QFont& font);

/// Describes a toolbar as it is now and collects its icons.
ToolbarDescription describeToolbar(const QToolBar& toolbar, bool textOnRight, IconImages& images);

} // namespace dalvora::toolbar
