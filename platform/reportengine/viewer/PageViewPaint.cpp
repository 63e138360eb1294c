// The painting of PageView: the desk, the pages on it and what is marked on them.

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/viewer/PageView.h"
#include "platform/reportengine/viewer/ReportPages.h"
#include <QEvent>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>

namespace quorvane::report {

namespace {

/// A mark multiplies with the page, as a marker pen does, so that letters keep their strength under it; where
/// the page itself is dark it gives it a glow instead.
struct Mark {
    QColor colour;
    QColor glow;
};
constexpr Mark foundMark{QColor(0xff, 0xec, 0x8a), QColor(0x48, 0x3c, 0x00)};
constexpr Mark currentMark{QColor(0xff, 0xb8, 0x4d), QColor(0x70, 0x48, 0x00)};
constexpr Mark selectedMark{QColor(0xb9, 0xd6, 0xfb), QColor(0x10, 0x28, 0x58)};
constexpr Mark hoveredMark{QColor(0xe2, 0xee, 0xfc), QColor(0x00, 0x00, 0x00)};
constexpr int shadowSteps = 4;
constexpr int shadowAlpha = 22;
/// A mark is this much wider than its letters and this much lower than its line, in points.
constexpr double markMargin = 1;
constexpr double markGap = 0.4;

/// The desk that the pages lie on: the window's own colour, darker.
QColor deskColour(const QPalette& palette) {
    return palette.color(QPalette::Window).darker(118);
}

void paintShadow(QPainter& painter, const QRect& page, int step) {
    for (int i = shadowSteps; i > 0; --i) {
        const int grown = i * step;
        painter.fillRect(page.adjusted(-grown / 2, 0, grown / 2, grown), QColor(0, 0, 0, shadowAlpha / i));
    }
}

} // namespace

void PageView::paintEvent(QPaintEvent*) {
    followScreen();
    QPainter painter(viewport());
    // From here on a unit is a pixel of the screen, and the origin lies on one.
    const double ratio = devicePixelRatioF();
    const QPointF origin = painter.deviceTransform().map(QPointF(0, 0));
    painter.scale(1 / ratio, 1 / ratio);
    painter.translate(QPointF(origin.toPoint()) - origin);
    const QRect area(QPoint(0, 0), m_geometry.viewport());
    painter.fillRect(area.adjusted(-1, -1, 2, 2), deskColour(palette()));
    const PageGeometry::Range range = m_geometry.visible(scroll());
    if (range.last < range.first) {
        paintEmpty(painter);
        return;
    }
    for (int page = range.first; page <= range.last; ++page)
        paintPage(painter, page, area);
    if (!m_ahead.isActive())
        m_ahead.start(0, this);
}

void PageView::paintPage(QPainter& painter, int page, const QRect& area) {
    const QRect place(m_geometry.place(page, scroll()), m_geometry.page());
    if (!place.intersects(area))
        return;
    paintShadow(painter, place, std::max(1, inPixels(1)));
    try {
        m_images->draw(painter, page, place.topLeft(), area);
        paintMarks(painter, page, *m_pages->page(page));
    } catch (const RunTimeError& error) {
        painter.fillRect(place, Qt::white);
        painter.setPen(Qt::black);
        painter.drawText(
            place & area, Qt::AlignCenter | Qt::TextWordWrap,
            QStringLiteral("No se puede mostrar la página %1.\n%2").arg(page + 1).arg(error.description()));
    }
}

void PageView::paintMarks(QPainter& painter, int page, const ShownPage& shown) {
    painter.save();
    const auto mark = [&](const QRectF& rect, const Mark& look) {
        const QRectF grown = rect.adjusted(-markMargin, markGap, markMargin, -markGap);
        const QRect place = m_geometry.toPixels({page, grown}, scroll());
        painter.setCompositionMode(QPainter::CompositionMode_Multiply);
        painter.fillRect(place, look.colour);
        painter.setCompositionMode(QPainter::CompositionMode_Screen);
        painter.fillRect(place, look.glow);
    };
    const Definition& definition = m_pages->definition();
    if (const std::optional<PageArea>& line = m_mouse.hovered(); line && line->page == page)
        mark(line->rect, hoveredMark);
    const Selection& selection = m_mouse.selection();
    if (!selection.isEmpty())
        for (const PlacedText& text : shown.texts)
            if (!text.text.isEmpty() && selection.contains(*m_pages, page, shown, text))
                mark(m_texts.rectOf(definition, shown, text), selectedMark);
    const int length = static_cast<int>(m_sought.size());
    for (const TextHit& hit : hitsOn(shown, page, m_sought))
        mark(m_texts.rectOf(definition, shown, hit, length), hit == m_hit ? currentMark : foundMark);
    painter.restore();
}

void PageView::paintEmpty(QPainter& painter) {
    painter.save();
    const double ratio = devicePixelRatioF();
    painter.scale(ratio, ratio);
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect rect = viewport()->rect().adjusted(40, 0, -40, -viewport()->height() / 4);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    painter.restore();
}

void PageView::followScreen() {
    if (m_pages && m_geometry.scale() != pixelsPerPoint(m_zoom))
        QMetaObject::invokeMethod(
            this, [this] { fitAgain(); }, Qt::QueuedConnection);
}

bool PageView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave)
        m_mouse.leave();
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), m_mouse.hovered() ? m_mouse.toolTip() : QString(), viewport());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

} // namespace quorvane::report
