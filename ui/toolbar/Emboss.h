#pragma once

#include <QColor>
#include <QImage>

namespace dalvora::toolbar {

/// The disabled form of an image that has none of its own: its dark parts in the shadow colour, lit from the
/// upper left by an edge in the light colour one pixel further right and down.
QImage embossed(const QImage& image, const QColor& light, const QColor& shadow);

} // namespace dalvora::toolbar
