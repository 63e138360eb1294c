#include "platform/skin/paint/Painting.h"
#include "platform/skin/paint/PixelCanvas.h"

#include <QStyleOption>

namespace skin {

void paintToolBar(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(option.rect);
    const int line = canvas.pixels(1);
    canvas.fill(box, values.shade(Shade::ToolBar));
    canvas.fill(QRect(box.left(), box.top(), box.width(), line), values.colour(Colour::BarLight));
    canvas.fill(QRect(box.left(), box.bottom() + 1 - line, box.width(), line),
                values.colour(Colour::BarBorder));
}

void paintToolSeparator(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(option.rect);
    const int line = canvas.pixels(1);
    if (option.state & QStyle::State_Horizontal) {
        const int inset = box.height() / 6;
        const QRect dark(box.center().x(), box.top() + inset, line, box.height() - 2 * inset);
        canvas.fill(dark, values.colour(Colour::Separator));
        canvas.fill(dark.translated(line, 0), values.colour(Colour::BarLight));
    } else {
        const int inset = box.width() / 6;
        const QRect dark(box.left() + inset, box.center().y(), box.width() - 2 * inset, line);
        canvas.fill(dark, values.colour(Colour::Separator));
        canvas.fill(dark.translated(0, line), values.colour(Colour::BarLight));
    }
}

void paintStatusBar(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(option.rect);
    const int line = canvas.pixels(1);
    canvas.fill(box, values.shade(Shade::StatusBar));
    canvas.fill(QRect(box.left(), box.top(), box.width(), line), values.colour(Colour::BarBorder));
    canvas.fill(QRect(box.left(), box.top() + line, box.width(), line), values.colour(Colour::BarLight));
}

void paintStatusItem(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    // Only a separator on the left of each panel: boxes around every text would be noise.
    if (option.rect.left() < 6)
        return;
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(option.rect);
    const int line = canvas.pixels(1);
    const int inset = canvas.pixels(2);
    const QRect dark(box.left() - canvas.pixels(3), box.top() + inset, line, box.height() - 2 * inset);
    canvas.fill(dark, values.colour(Colour::Separator));
    canvas.fill(dark.translated(line, 0), values.colour(Colour::BarLight));
}

void paintMenuBar(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    canvas.fill(canvas.toPixels(option.rect), values.shade(Shade::MenuBar));
}

void paintHotFace(const SkinValues& values, const QStyleOption& option, bool pressed, QPainter& painter) {
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(option.rect).adjusted(canvas.pixels(1), 0, -canvas.pixels(1), 0);
    canvas.box(box, values.measure(Measure::CornerRadius),
               values.colour(pressed ? Colour::PressedBorder : Colour::HotBorder), canvas.pixels(1),
               values.shade(pressed ? Shade::Checked : Shade::Hot));
}

void paintMenuPanel(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    canvas.box(canvas.toPixels(option.rect), 0, values.colour(Colour::MenuBorder), canvas.pixels(1),
               values.colour(Colour::MenuBase));
}

void paintMenuSeparator(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(option.rect);
    const int inset = canvas.pixels(6);
    canvas.fill(QRect(box.left() + inset, box.center().y(), box.width() - 2 * inset, canvas.pixels(1)),
                values.colour(Colour::GridLine));
}

} // namespace skin
