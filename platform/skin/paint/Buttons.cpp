#include "platform/skin/paint/Painting.h"
#include "platform/skin/paint/PixelCanvas.h"

#include <QStyleOption>

namespace skin {

namespace {

/// What the state of a control means for its colours.
struct Look {
    bool enabled;
    bool hot;
    bool down;
    bool on;
    bool focused;
};

Look lookOf(const QStyleOption& option) {
    const bool enabled = option.state & QStyle::State_Enabled;
    return {enabled, enabled && (option.state & QStyle::State_MouseOver),
            enabled && (option.state & QStyle::State_Sunken), bool(option.state & QStyle::State_On),
            enabled && (option.state & QStyle::State_HasFocus)};
}

/// Frame colour of the small boxes and circles that carry a mark.
QColor indicatorFrame(const SkinValues& values, const Look& look) {
    if (!look.enabled)
        return values.colour(Colour::FieldBorderDisabled);
    if (look.focused)
        return values.colour(Colour::FocusRing);
    return values.colour(look.hot ? Colour::FieldBorderHot : Colour::FieldBorder);
}

QColor indicatorFill(const SkinValues& values, const Look& look) {
    if (!look.enabled)
        return values.colour(Colour::LockedBase);
    return values.colour(look.down ? Colour::IdleSelection : Colour::FieldBase);
}

QColor markColour(const SkinValues& values, const Look& look) {
    return values.colour(look.enabled ? Colour::CheckMark : Colour::GlyphDisabled);
}

QRect squareIn(const QRect& rect) {
    const int side = std::min(rect.width(), rect.height());
    return {rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, side, side};
}

/// A thin light ring just inside the frame: the visible sign of the keyboard focus.
void innerRing(const SkinValues& values, PixelCanvas& canvas, const QRect& box) {
    const int frame = canvas.pixels(1);
    const QRectF ring = QRectF(box).adjusted(frame * 1.5, frame * 1.5, -frame * 1.5, -frame * 1.5);
    QColor colour = values.colour(Colour::FocusRing);
    colour.setAlphaF(0.55F);
    const qreal radius = std::max(0.0, (values.measure(Measure::CornerRadius) - 1.5) * canvas.scale());
    canvas.painter().setRenderHint(QPainter::Antialiasing);
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colour, frame));
    canvas.painter().drawRoundedRect(ring, radius, radius);
}

} // namespace

void paintButtonFace(const SkinValues& values, const QStyleOptionButton& option, QPainter& painter) {
    const Look look = lookOf(option);
    if ((option.features & QStyleOptionButton::Flat) && !look.down && !look.on && !look.hot)
        return;
    const bool isDefault = look.enabled && (option.features & QStyleOptionButton::DefaultButton);
    Shade shade = Shade::Button;
    Colour frame = isDefault ? Colour::ButtonBorderDefault : Colour::ButtonBorder;
    if (!look.enabled) {
        shade = Shade::ButtonDisabled;
        frame = Colour::ButtonBorderDisabled;
    } else if (look.down || look.on) {
        shade = Shade::ButtonPressed;
        frame = Colour::PressedBorder;
    } else if (look.hot) {
        shade = Shade::ButtonHot;
        frame = Colour::HotBorder;
    }
    if (look.focused && !look.down)
        frame = Colour::FocusRing;
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(option.rect);
    canvas.box(box, values.measure(Measure::CornerRadius), values.colour(frame), canvas.pixels(1),
               values.shade(shade));
    if (look.focused || (isDefault && !look.hot && !look.down))
        innerRing(values, canvas, box);
}

void paintToolFace(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    const Look look = lookOf(option);
    const bool raised = option.state & QStyle::State_AutoRaise;
    if (!raised) {
        QStyleOptionButton button;
        button.QStyleOption::operator=(option);
        paintButtonFace(values, button, painter);
        return;
    }
    if (!look.hot && !look.down && !look.on)
        return;
    Shade shade = Shade::Hot;
    Colour frame = Colour::HotBorder;
    if (look.down) {
        shade = Shade::Pressed;
        frame = Colour::PressedBorder;
    } else if (look.on) {
        shade = Shade::Checked;
    }
    PixelCanvas canvas(painter);
    canvas.box(canvas.toPixels(option.rect), values.measure(Measure::CornerRadius), values.colour(frame),
               canvas.pixels(1), values.shade(shade));
}

void paintCheckBox(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    const Look look = lookOf(option);
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(squareIn(option.rect));
    canvas.box(box, 2, indicatorFrame(values, look), canvas.pixels(1), indicatorFill(values, look));
    const QRectF inside = box;
    const QColor mark = markColour(values, look);
    if (option.state & QStyle::State_NoChange) {
        const qreal inset = inside.width() * 0.28;
        canvas.painter().fillRect(inside.adjusted(inset, inset, -inset, -inset), mark);
    } else if (look.on) {
        const auto at = [&inside](qreal x, qreal y) {
            return QPointF(inside.x() + x * inside.width(), inside.y() + y * inside.height());
        };
        QPen pen(mark, inside.width() * 0.145, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        canvas.painter().setRenderHint(QPainter::Antialiasing);
        canvas.painter().setPen(pen);
        canvas.painter().drawPolyline(QPolygonF{at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.30)});
    }
}

void paintRadioButton(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    const Look look = lookOf(option);
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(squareIn(option.rect));
    canvas.box(box, box.width() / canvas.scale() / 2, indicatorFrame(values, look), canvas.pixels(1),
               indicatorFill(values, look));
    if (!look.on)
        return;
    const qreal inset = box.width() * 0.28;
    canvas.painter().setRenderHint(QPainter::Antialiasing);
    canvas.painter().setPen(Qt::NoPen);
    canvas.painter().setBrush(markColour(values, look));
    canvas.painter().drawEllipse(QRectF(box).adjusted(inset, inset, -inset, -inset));
}

void paintFocusRect(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    const int width = canvas.pixels(1);
    const QRectF ring =
        QRectF(canvas.toPixels(option.rect)).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0);
    canvas.painter().setRenderHint(QPainter::Antialiasing);
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(values.colour(Colour::FocusRing), width));
    canvas.painter().drawRoundedRect(ring, 2 * canvas.scale(), 2 * canvas.scale());
}

} // namespace skin
