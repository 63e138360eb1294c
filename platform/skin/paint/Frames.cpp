#include "platform/skin/paint/Painting.h"
#include "platform/skin/paint/PixelCanvas.h"

#include <QStyle>
#include <QStyleOption>
#include <QTabBar>

namespace skin {

namespace {

/// Width of the coloured stripe on the selected tab, pixels at 96 dpi.
constexpr int accentWidth = 2;
/// How much lower the tabs behind stand.
constexpr int tabsBehind = 2;

void frameOnly(PixelCanvas& canvas, const QRect& box, qreal radius, const QColor& colour) {
    canvas.box(box, radius, colour, canvas.pixels(1), QColor(Qt::transparent));
}

} // namespace

void paintPanelFrame(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    frameOnly(canvas, canvas.toPixels(option.rect), 0, values.colour(Colour::FrameBorder));
}

void paintGroupBox(const SkinValues& values, const QStyle& style, const QStyleOptionGroupBox& option,
                   QPainter& painter, const QWidget* widget) {
    const auto rectOf = [&](QStyle::SubControl part) {
        return style.subControlRect(QStyle::CC_GroupBox, &option, part, widget);
    };
    const bool titled = option.subControls & QStyle::SC_GroupBoxLabel;
    const bool ticked = option.subControls & QStyle::SC_GroupBoxCheckBox;
    if (option.subControls & QStyle::SC_GroupBoxFrame) {
        painter.save();
        QRegion visible(option.rect);
        if (titled || ticked) {
            QRect gap = titled ? rectOf(QStyle::SC_GroupBoxLabel) : QRect();
            if (ticked)
                gap |= rectOf(QStyle::SC_GroupBoxCheckBox);
            visible -= gap.adjusted(-4, 0, 4, 0);
        }
        painter.setClipRegion(visible, Qt::IntersectClip);
        {
            PixelCanvas canvas(painter);
            frameOnly(canvas, canvas.toPixels(rectOf(QStyle::SC_GroupBoxFrame)),
                      values.measure(Measure::CornerRadius) + 1, values.colour(Colour::FrameBorder));
        }
        painter.restore();
    }
    if (titled && !option.text.isEmpty()) {
        const bool enabled = option.state & QStyle::State_Enabled;
        painter.setPen(values.colour(enabled ? Colour::FrameTitle : Colour::DisabledText));
        painter.drawText(rectOf(QStyle::SC_GroupBoxLabel),
                         Qt::TextShowMnemonic | Qt::TextSingleLine | Qt::AlignCenter, option.text);
    }
    if (ticked) {
        QStyleOption box(option);
        box.rect = rectOf(QStyle::SC_GroupBoxCheckBox);
        paintCheckBox(values, box, painter);
    }
}

void paintTabPane(const SkinValues& values, const QStyleOptionTabWidgetFrame& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    canvas.box(canvas.toPixels(option.rect), 0, values.colour(Colour::TabBorder), canvas.pixels(1),
               values.colour(Colour::Pane));
}

void paintTab(const SkinValues& values, const QStyleOptionTab& option, QPainter& painter) {
    const bool selected = option.state & QStyle::State_Selected;
    const bool hot = (option.state & QStyle::State_MouseOver) && (option.state & QStyle::State_Enabled);
    QRect tab = option.rect;
    if (!selected)
        tab.adjust(0, tabsBehind, 0, 0);
    PixelCanvas canvas(painter);
    const int line = canvas.pixels(1);
    const QRect box = canvas.toPixels(tab);
    // The box is drawn taller than the tab and cut off below, so that only its upper corners are round.
    QPainter& p = canvas.painter();
    p.setClipRect(box, Qt::IntersectClip);
    // Neighbours share one line.
    const bool last =
        option.position == QStyleOptionTab::End || option.position == QStyleOptionTab::OnlyOneTab;
    const QRect tall = box.adjusted(0, 0, last ? 0 : line, canvas.pixels(8));
    const qreal radius = values.measure(Measure::CornerRadius);
    if (selected) {
        canvas.box(tall, radius, values.colour(Colour::TabBorder), line, values.colour(Colour::Pane));
        const QRect stripe(box.left() + line, box.top(), tall.width() - 2 * line, canvas.pixels(accentWidth));
        QPainterPath round;
        round.addRoundedRect(tall, radius * canvas.scale(), radius * canvas.scale());
        p.save();
        p.setClipPath(round, Qt::IntersectClip);
        canvas.fill(stripe.adjusted(-line, 0, line, 0), values.colour(Colour::TabAccent));
        p.restore();
    } else {
        canvas.box(tall, radius, values.colour(Colour::TabBorder), line,
                   values.shade(hot ? Shade::TabHot : Shade::Tab));
        // The line of the pane runs on under the tabs behind.
        canvas.fill(QRect(box.left(), box.bottom() + 1 - line, tall.width(), line),
                    values.colour(Colour::TabBorder));
    }
}

void paintHeaderSection(const SkinValues& values, const QStyleOptionHeader& option, QPainter& painter) {
    const bool hot = (option.state & QStyle::State_MouseOver) && (option.state & QStyle::State_Enabled);
    const bool down = option.state & QStyle::State_Sunken;
    Shade shade = Shade::Header;
    if (down)
        shade = Shade::Pressed;
    else if (hot)
        shade = Shade::HeaderHot;
    PixelCanvas canvas(painter);
    const QRect box = canvas.toPixels(option.rect);
    const int line = canvas.pixels(1);
    canvas.fill(box, values.shade(shade));
    const QColor border = values.colour(Colour::HeaderBorder);
    canvas.fill(QRect(box.left(), box.bottom() + 1 - line, box.width(), line), border);
    canvas.fill(QRect(box.right() + 1 - line, box.top(), line, box.height()), border);
}

void paintToolTip(const SkinValues& values, const QStyleOption& option, QPainter& painter) {
    PixelCanvas canvas(painter);
    canvas.box(canvas.toPixels(option.rect), 0, values.colour(Colour::MenuBorder), canvas.pixels(1),
               values.colour(Colour::ToolTipBase));
}

} // namespace skin
