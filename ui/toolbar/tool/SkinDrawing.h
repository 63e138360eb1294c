#pragma once

#include <QImage>

namespace dalvora::toolbar {

/// Draws the toolbar skin that is shipped, in the colours of the style "LightBlue".
QImage drawToolbarSkin();

} // namespace dalvora::toolbar
