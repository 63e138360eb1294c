#include "platform/reportengine/viewer/PageMouse.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/viewer/PageView.h"
#include "platform/reportengine/viewer/ReportPages.h"
#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>

namespace quorvane::report {

namespace {

constexpr int scrollInterval = 20; // milliseconds

/// How far a point lies outside of a range.
int beyond(int value, int end) {
    return value < 0 ? value : value > end ? value - end : 0;
}

} // namespace

PageMouse::PageMouse(PageView& view) : QObject(&view), m_view(view) {}

void PageMouse::setLinesClickable(bool clickable, const QString& toolTip) {
    m_clickable = clickable;
    m_toolTip = toolTip;
    pagesMoved();
}

void PageMouse::pagesMoved() {
    QWidget* surface = m_view.viewport();
    if (!m_dragging && surface->underMouse())
        hover(surface->mapFromGlobal(QCursor::pos()));
}

void PageMouse::leave() {
    if (m_hovered)
        m_view.viewport()->update();
    m_hovered.reset();
}

std::optional<PageMouse::Line> PageMouse::lineAt(const QPoint& point) const {
    ReportPages* pages = m_view.pages();
    if (!pages || pages->count() == 0)
        return {};
    const PagePlace place = m_view.geometryOfPages().toPage(m_view.toPixels(point), m_view.scroll());
    const Definition& definition = pages->definition();
    const double left = definition.margins.left();
    const double width = definition.pageSize.width() - left - definition.margins.right();
    try {
        const std::shared_ptr<const ShownPage> shown = pages->page(place.page);
        for (int band = 0; band < static_cast<int>(shown->page.bands.size()); ++band) {
            const Band& placed = shown->page.bands[band];
            const Section& section = definition.sections[placed.section];
            const QRectF rect(left, placed.top, width, section.height);
            if (section.kind == SectionKind::Details && rect.contains(place.point))
                return Line{{place.page, rect}, band};
        }
    } catch (const RunTimeError&) {
        // The page cannot be made, so there is no line on it; painting tells why.
    }
    return {};
}

std::vector<LineField> PageMouse::fieldsOf(const Line& line) const {
    ReportPages& pages = *m_view.pages();
    const std::shared_ptr<const ShownPage> shown = pages.page(line.area.page);
    const Band& band = shown->page.bands[line.band];
    const PageContext context = pages.context();
    std::vector<LineField> fields;
    const std::vector<ReportObject>& objects = pages.definition().sections[band.section].objects;
    for (int object = 0; object < static_cast<int>(objects.size()); ++object)
        if (objects[object].kind == ObjectKind::Field)
            fields.push_back({objects[object].name, fieldText(context, shown->page, band, object)});
    return fields;
}

void PageMouse::hover(const QPoint& point) {
    const std::optional<Line> line = m_clickable ? lineAt(point) : std::nullopt;
    const bool same = line.has_value() == m_hovered.has_value() &&
                      (!line || (line->area.page == m_hovered->page && line->area.rect == m_hovered->rect));
    m_view.viewport()->setCursor(line ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (same)
        return;
    m_hovered = line ? std::optional(line->area) : std::nullopt;
    m_view.viewport()->update();
}

void PageMouse::press(QMouseEvent& event) {
    m_last = m_pressed = event.position().toPoint();
    if (event.button() == Qt::MiddleButton) {
        m_panning = true;
        m_view.viewport()->setCursor(Qt::ClosedHandCursor);
        return;
    }
    if (event.button() != Qt::LeftButton || !m_view.pages() || m_view.pages()->count() == 0)
        return;
    m_view.clearSelection();
    m_selection.begin(m_view.geometryOfPages().toPage(m_view.toPixels(m_pressed), m_view.scroll()));
}

void PageMouse::move(QMouseEvent& event) {
    const QPoint point = event.position().toPoint();
    if (m_panning) {
        pan(point);
        return;
    }
    if (!(event.buttons() & Qt::LeftButton)) {
        hover(point);
        return;
    }
    if (!m_dragging && (point - m_pressed).manhattanLength() < QApplication::startDragDistance())
        return;
    if (!m_dragging) {
        m_dragging = true;
        leave();
        m_view.viewport()->setCursor(Qt::CrossCursor);
    }
    drag(point);
}

void PageMouse::pan(const QPoint& point) {
    const QPoint way = m_view.toPixels(point) - m_view.toPixels(m_last);
    m_last = point;
    m_view.horizontalScrollBar()->setValue(m_view.horizontalScrollBar()->value() - way.x());
    m_view.verticalScrollBar()->setValue(m_view.verticalScrollBar()->value() - way.y());
}

void PageMouse::drag(const QPoint& point) {
    if (!m_view.pages() || m_view.pages()->count() == 0)
        return;
    m_last = point;
    m_selection.extendTo(m_view.geometryOfPages().toPage(m_view.toPixels(point), m_view.scroll()));
    if (m_view.viewport()->rect().contains(point))
        m_scrolling.stop();
    else if (!m_scrolling.isActive())
        m_scrolling.start(scrollInterval, this);
    m_view.viewport()->update();
    Q_EMIT m_view.used();
}

void PageMouse::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_scrolling.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    const QRect rect = m_view.viewport()->rect();
    const QPoint by(beyond(m_last.x(), rect.right()), beyond(m_last.y(), rect.bottom()));
    m_view.horizontalScrollBar()->setValue(m_view.horizontalScrollBar()->value() + by.x());
    m_view.verticalScrollBar()->setValue(m_view.verticalScrollBar()->value() + by.y());
    drag(m_last);
}

void PageMouse::release(QMouseEvent& event) {
    const QPoint point = event.position().toPoint();
    m_scrolling.stop();
    if (m_panning || m_dragging) {
        const bool marked = m_dragging;
        m_panning = m_dragging = false;
        hover(point);
        if (marked)
            Q_EMIT m_view.selectionChanged();
        return;
    }
    if (event.button() != Qt::LeftButton || !m_clickable)
        return;
    const std::optional<Line> line = lineAt(point);
    if (line && lineAt(m_pressed) && lineAt(m_pressed)->area.rect == line->area.rect)
        Q_EMIT m_view.lineClicked(fieldsOf(*line));
}

} // namespace quorvane::report
