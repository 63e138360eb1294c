#include "platform/skin/paint/Painting.h"
#include "platform/skin/paint/PixelCanvas.h"

#include <QStyle>
#include <QStyleOption>

namespace skin {

namespace {

/// One of the two arrow buttons at the ends.
void paintEnd(const SkinValues& values, const QStyle& style, const QStyleOptionSlider& option,
              QStyle::SubControl part, Pointing pointing, bool canMove, QPainter& painter,
              const QWidget* widget) {
    const QRect rect = style.subControlRect(QStyle::CC_ScrollBar, &option, part, widget);
    if (rect.isEmpty())
        return;
    const bool enabled = canMove && (option.state & QStyle::State_Enabled);
    if (enabled && (option.activeSubControls & part)) {
        PixelCanvas canvas(painter);
        canvas.fill(canvas.toPixels(rect), values.shade(Shade::Thumb));
    }
    paintArrow(values, pointing, rect, enabled, painter);
}

} // namespace

void paintScrollBar(const SkinValues& values, const QStyle& style, const QStyleOptionSlider& option,
                    QPainter& painter, const QWidget* widget) {
    const bool horizontal = option.orientation == Qt::Horizontal;
    {
        PixelCanvas canvas(painter);
        canvas.fill(canvas.toPixels(option.rect), values.shade(Shade::Groove));
    }
    paintEnd(values, style, option, QStyle::SC_ScrollBarSubLine, horizontal ? Pointing::Left : Pointing::Up,
             option.sliderValue > option.minimum, painter, widget);
    paintEnd(values, style, option, QStyle::SC_ScrollBarAddLine,
             horizontal ? Pointing::Right : Pointing::Down, option.sliderValue < option.maximum, painter,
             widget);
    const QRect thumb =
        style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, widget);
    if (option.minimum == option.maximum || !(option.state & QStyle::State_Enabled))
        return;
    const bool hot = (option.activeSubControls & QStyle::SC_ScrollBarSlider) &&
                     (option.state & (QStyle::State_MouseOver | QStyle::State_Sunken));
    const QGradientStops& stops = values.shade(hot ? Shade::ThumbHot : Shade::Thumb);
    PixelCanvas canvas(painter);
    constexpr int inset = 3;
    const QRect inner =
        horizontal ? thumb.adjusted(1, inset, -1, -inset) : thumb.adjusted(inset, 1, -inset, -1);
    const QRect box = canvas.toPixels(inner);
    const qreal radius = std::min(inner.width(), inner.height()) / 2.0;
    canvas.box(box, radius, stops.first().second, canvas.pixels(1), stops);
}

} // namespace skin
