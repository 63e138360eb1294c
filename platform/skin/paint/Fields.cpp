#include "platform/skin/paint/Painting.h"
#include "platform/skin/paint/PixelCanvas.h"

#include <QStyleOption>

namespace skin {

namespace {

/// Box of an entry field. The focus ring replaces the frame, so that a field never changes its size.
void paintFieldBox(const SkinValues& values, const QStyleOption& option, bool focused, QPainter& painter) {
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool locked = !enabled || (option.state & QStyle::State_ReadOnly);
    Colour frame = Colour::FieldBorder;
    if (!enabled)
        frame = Colour::FieldBorderDisabled;
    else if (focused)
        frame = Colour::FocusRing;
    else if (option.state & QStyle::State_MouseOver)
        frame = Colour::FieldBorderHot;
    PixelCanvas canvas(painter);
    const int width = canvas.pixels(enabled && focused ? values.measure(Measure::FocusWidth) : 1);
    canvas.box(canvas.toPixels(option.rect), values.measure(Measure::CornerRadius) - 1, values.colour(frame),
               width, values.colour(locked ? Colour::LockedBase : Colour::FieldBase));
}

/// The face of a field's own button while the mouse is over it or it is held down.
void paintFieldButton(const SkinValues& values, const QStyleOption& option, const QRect& rect,
                      QStyle::SubControl part, QStyle::SubControls active, QPainter& painter) {
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool here = active & part;
    if (!enabled || !here || !(option.state & (QStyle::State_MouseOver | QStyle::State_Sunken)))
        return;
    const bool down = option.state & QStyle::State_Sunken;
    PixelCanvas canvas(painter);
    canvas.box(canvas.toPixels(rect), 1, values.colour(down ? Colour::PressedBorder : Colour::HotBorder),
               canvas.pixels(1), values.shade(down ? Shade::Pressed : Shade::Hot));
}

} // namespace

void paintFieldFrame(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    paintFieldBox(values, option, option.state & QStyle::State_HasFocus, painter);
}

void paintArrow(const SkinValues& values, Pointing pointing, const QRect& rect, bool enabled,
                QPainter& painter) {
    PixelCanvas canvas(painter);
    const QRectF area = canvas.toPixels(rect);
    const qreal half = std::min({3.5 * canvas.scale(), area.width() / 2 - 1, area.height() / 2 - 1});
    if (half < 1)
        return;
    // An open angle that points down, turned into the wanted direction around its centre.
    const QPolygonF angle{QPointF(-half, -half / 2), QPointF(0, half / 2), QPointF(half, -half / 2)};
    qreal turn = 0;
    switch (pointing) {
    case Pointing::Down:
        break;
    case Pointing::Up:
        turn = 180;
        break;
    case Pointing::Left:
        turn = 90;
        break;
    case Pointing::Right:
        turn = -90;
        break;
    }
    QPainter& p = canvas.painter();
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(area.center());
    p.rotate(turn);
    p.setPen(QPen(values.colour(enabled ? Colour::Glyph : Colour::GlyphDisabled), 1.6 * canvas.scale(),
                  Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
    p.drawPolyline(angle);
}

void paintComboBox(const SkinValues& values, const QStyle& style, const QStyleOptionComboBox& option,
                   QPainter& painter, const QWidget* widget) {
    const bool enabled = option.state & QStyle::State_Enabled;
    if (option.frame)
        paintFieldBox(values, option, option.state & QStyle::State_HasFocus, painter);
    else
        painter.fillRect(option.rect, values.colour(enabled ? Colour::FieldBase : Colour::LockedBase));
    const QRect arrow = style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, widget);
    QStyle::SubControls active = option.activeSubControls;
    if (!option.editable) // the whole field opens the list
        active |= QStyle::SC_ComboBoxArrow;
    paintFieldButton(values, option, arrow, QStyle::SC_ComboBoxArrow, active, painter);
    paintArrow(values, Pointing::Down, arrow, enabled, painter);
}

void paintSpinBox(const SkinValues& values, const QStyle& style, const QStyleOptionSpinBox& option,
                  QPainter& painter, const QWidget* widget) {
    if (option.frame)
        paintFieldBox(values, option, option.state & QStyle::State_HasFocus, painter);
    if (option.buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    const auto arrow = [&](QStyle::SubControl part, QAbstractSpinBox::StepEnabledFlag step,
                           Pointing pointing) {
        const QRect rect = style.subControlRect(QStyle::CC_SpinBox, &option, part, widget);
        const bool can = (option.state & QStyle::State_Enabled) && (option.stepEnabled & step);
        if (can)
            paintFieldButton(values, option, rect, part, option.activeSubControls, painter);
        paintArrow(values, pointing, rect, can, painter);
    };
    arrow(QStyle::SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, Pointing::Up);
    arrow(QStyle::SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, Pointing::Down);
}

} // namespace skin
