#pragma once

#include <QRect>

namespace dalvora::toolbar {

/// Places of image and caption in a button.
struct ContentLayout {
    QRect image;   ///< empty without an image
    QRect caption; ///< empty without a caption; narrower than asked for where there is no room
};

/// Centres image and caption together: the caption right of the image, or below it. Sizes are empty for what
/// the button does not have.
ContentLayout layoutContent(const QRect& area, QSize image, QSize caption, bool textOnRight);

} // namespace dalvora::toolbar
