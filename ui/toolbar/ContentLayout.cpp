#include "ui/toolbar/ContentLayout.h"
#include <algorithm>

namespace dalvora::toolbar {

namespace {

constexpr int sideGap = 4; ///< between image and a caption at its right
constexpr int lineGap = 1; ///< between image and a caption below
constexpr int margin = 2;  ///< between a caption and the button's border

/// A rectangle of the given size in the middle of an area.
QRect centred(const QRect& area, QSize size) {
    return {area.x() + (area.width() - size.width()) / 2, area.y() + (area.height() - size.height()) / 2,
            size.width(), size.height()};
}

ContentLayout sideBySide(const QRect& area, QSize image, QSize caption) {
    const int room = area.width() - image.width() - sideGap - 2 * margin;
    caption.setWidth(std::clamp(caption.width(), 0, std::max(room, 0)));
    const int width = image.width() + sideGap + caption.width();
    const QRect all = centred(area, {width, area.height()});
    return {centred({all.topLeft(), QSize(image.width(), area.height())}, image),
            centred({all.x() + image.width() + sideGap, area.y(), caption.width(), area.height()}, caption)};
}

ContentLayout stacked(const QRect& area, QSize image, QSize caption) {
    const int height = image.height() + lineGap + caption.height();
    const QRect all = centred(area, {area.width(), height});
    return {centred({all.topLeft(), QSize(area.width(), image.height())}, image),
            centred({all.x(), all.y() + image.height() + lineGap, area.width(), caption.height()}, caption)};
}

} // namespace

ContentLayout layoutContent(const QRect& area, QSize image, QSize caption, bool textOnRight) {
    caption.setWidth(std::clamp(caption.width(), 0, std::max(area.width() - 2 * margin, 0)));
    if (caption.isEmpty())
        return {image.isEmpty() ? QRect() : centred(area, image), {}};
    if (image.isEmpty())
        return {{}, centred(area, caption)};
    return textOnRight ? sideBySide(area, image, caption) : stacked(area, image, caption);
}

} // namespace dalvora::toolbar
