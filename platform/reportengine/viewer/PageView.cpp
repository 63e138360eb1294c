#include "platform/reportengine/viewer/PageView.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/viewer/ReportPages.h"
#include "platform/reportengine/viewer/ZoomSteps.h"
#include <QEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace quorvane::report {

namespace {

constexpr int pageMargin = 14; // around and between pages, at 100 percent of the screen
constexpr int lineStep = 48;   // what an arrow key scrolls
constexpr int pointsPerInch = 72;
constexpr double wheelNotch = 120;
constexpr double wheelZoom = 1.1; // a notch

} // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent), m_mouse(*this) {
    setObjectName(QStringLiteral("pages"));
    setAccessibleName(QStringLiteral("Páginas del informe"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

PageView::~PageView() = default;

void PageView::setPages(ReportPages* pages) {
    m_pages = pages;
    m_images = pages ? std::make_unique<PageImages>(*pages) : nullptr;
    m_mouse.selection().clear();
    m_sought.clear();
    m_hit.reset();
    m_current = 0;
    fitAgain();
    verticalScrollBar()->setValue(0);
}

void PageView::pagesAdded() {
    const int known = m_geometry.count();
    if (m_pages && m_pages->count() != known)
        relayout();
}

void PageView::pagesChanged() {
    if (!m_pages)
        return;
    m_pages->forget();
    m_images->clear();
    relayout();
}

void PageView::setEmptyText(const QString& text) {
    if (m_emptyText == text)
        return;
    m_emptyText = text;
    viewport()->update();
}

int PageView::inPixels(int length) const {
    return static_cast<int>(std::lround(length * devicePixelRatioF()));
}

double PageView::pixelsPerPoint(double zoom) const {
    return zoom * logicalDpiX() * devicePixelRatioF() / pointsPerInch;
}

QPoint PageView::toPixels(const QPoint& point) const {
    return (QPointF(point) * devicePixelRatioF()).toPoint();
}

QRect PageView::toViewport(const QRect& pixels) const {
    const double ratio = devicePixelRatioF();
    return QRectF(QPointF(pixels.topLeft()) / ratio, QSizeF(pixels.size()) / ratio).toAlignedRect();
}

QPoint PageView::scroll() const {
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void PageView::relayout() {
    const QSize surface(inPixels(viewport()->width()), inPixels(viewport()->height()));
    const int count = m_pages ? m_pages->count() : 0;
    m_geometry = PageGeometry(m_pages ? m_pages->pageSize() : QSizeF(), count, pixelsPerPoint(m_zoom),
                              surface, inPixels(pageMargin));
    if (m_images)
        m_images->setScale(m_geometry.scale(), m_geometry.page());
    const QPoint range = m_geometry.scrollRange();
    horizontalScrollBar()->setRange(0, range.x());
    verticalScrollBar()->setRange(0, range.y());
    horizontalScrollBar()->setPageStep(surface.width());
    verticalScrollBar()->setPageStep(std::max(1, surface.height() - inPixels(lineStep)));
    for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        bar->setSingleStep(inPixels(lineStep));
    viewport()->update();
    updateCurrentPage();
}

void PageView::zoomAround(double zoom, const QPoint& fixed) {
    const QPoint pixel = toPixels(fixed);
    const PagePlace place = m_geometry.toPage(pixel, scroll());
    m_zoom = std::clamp(zoom, smallestZoom, largestZoom);
    relayout();
    const QPoint corner = m_geometry.place(place.page, scroll());
    const QPoint moved = corner + (place.point * m_geometry.scale()).toPoint() - pixel;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + moved.y());
    Q_EMIT zoomChanged();
}

void PageView::setZoom(double zoom) {
    m_fit = Fit::None;
    zoomAround(zoom, {viewport()->width() / 2, 0});
}

void PageView::setFit(Fit fit) {
    m_fit = fit;
    fitAgain();
}

void PageView::fitAgain() {
    if (!m_pages || m_fit == Fit::None) {
        relayout();
        Q_EMIT zoomChanged();
        return;
    }
    const QSize surface(inPixels(viewport()->width()), inPixels(viewport()->height()));
    const double scale =
        PageGeometry::scaleToFit(m_pages->pageSize(), surface, inPixels(pageMargin), m_fit == Fit::Page);
    const int page = m_current;
    zoomAround(scale / pixelsPerPoint(1), {viewport()->width() / 2, 0});
    if (m_fit == Fit::Page)
        goToPage(page);
}

void PageView::zoomStep(bool larger) {
    m_fit = Fit::None;
    zoomAround(nextZoom(m_zoom, larger), viewport()->rect().center());
}

void PageView::goToPage(int page) {
    if (m_geometry.count() == 0)
        return;
    const int known = std::clamp(page, 0, m_geometry.count() - 1);
    verticalScrollBar()->setValue(m_geometry.scrollOf(known));
    // Of several pages on the screen it is this one that was meant.
    tellCurrentPage(known);
}

void PageView::goToPlace(const PagePlace& place) {
    const int down = static_cast<int>(place.point.y() * m_geometry.scale());
    goToPage(place.page);
    // Near the page's upper edge the edge itself is shown with it.
    if (down > m_geometry.viewport().height() / 3)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + down - inPixels(pageMargin));
    tellCurrentPage(place.page);
}

void PageView::updateCurrentPage() {
    if (m_geometry.count() == 0)
        return;
    const int above = std::min(m_geometry.viewport().height(), m_geometry.page().height()) / 2;
    tellCurrentPage(m_geometry.pageAt(above, scroll()));
}

void PageView::tellCurrentPage(int page) {
    if (page == m_current)
        return;
    m_current = page;
    viewport()->setAccessibleDescription(QStringLiteral("Página %1").arg(page + 1));
    Q_EMIT currentPageChanged(page);
}

void PageView::reveal(const TextHit& hit, int length) {
    if (!m_pages || hit.page >= m_geometry.count())
        return;
    const std::shared_ptr<const ShownPage> shown = m_pages->page(hit.page);
    const QRectF rect = m_texts.rectOf(m_pages->definition(), *shown, hit, length);
    const QRect place = m_geometry.toPixels({hit.page, rect}, scroll());
    const QSize surface = m_geometry.viewport();
    const int edge = inPixels(lineStep);
    if (place.top() < edge || place.bottom() > surface.height() - edge)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + place.center().y() -
                                      surface.height() / 3);
    if (place.left() < edge || place.right() > surface.width() - edge)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + place.center().x() -
                                        surface.width() / 2);
}

void PageView::setMarks(const QString& folded, const std::optional<TextHit>& current) {
    m_sought = folded;
    m_hit = current;
    viewport()->update();
}

void PageView::setLinesClickable(bool clickable, const QString& toolTip) {
    m_mouse.setLinesClickable(clickable, toolTip);
}

QString PageView::selectedText() const {
    return m_pages ? m_mouse.selection().text(*m_pages) : QString();
}

void PageView::selectCurrentPage() {
    if (m_geometry.count() == 0)
        return;
    m_mouse.selection().selectPage(m_current, m_pages->pageSize());
    viewport()->update();
    Q_EMIT selectionChanged();
}

void PageView::clearSelection() {
    const bool was = hasSelection();
    m_mouse.selection().clear();
    if (!was)
        return;
    viewport()->update();
    Q_EMIT selectionChanged();
}

void PageView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    fitAgain();
}

void PageView::scrollContentsBy(int, int dy) {
    if (dy != 0)
        m_forward = dy < 0;
    viewport()->update();
    updateCurrentPage();
    m_mouse.pagesMoved();
    Q_EMIT used();
}

void PageView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const double notches = event->angleDelta().y() / wheelNotch;
    m_fit = Fit::None;
    zoomAround(m_zoom * std::pow(wheelZoom, notches), event->position().toPoint());
    Q_EMIT used();
    event->accept();
}

bool PageView::scrollKey(int key, Qt::KeyboardModifiers modifiers) {
    QScrollBar& down = *verticalScrollBar();
    switch (key) {
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        // With Control the command of the viewer goes from page to page.
        if (modifiers & Qt::ControlModifier)
            return false;
        down.triggerAction(key == Qt::Key_PageDown ? QScrollBar::SliderPageStepAdd
                                                   : QScrollBar::SliderPageStepSub);
        return true;
    case Qt::Key_Space:
        down.triggerAction(modifiers & Qt::ShiftModifier ? QScrollBar::SliderPageStepSub
                                                         : QScrollBar::SliderPageStepAdd);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (horizontalScrollBar()->maximum() > 0)
            return false;
        Q_EMIT pageRequested(std::max(0, m_current + (key == Qt::Key_Right ? 1 : -1)));
        return true;
    case Qt::Key_Home:
        Q_EMIT pageRequested(0);
        return true;
    case Qt::Key_End:
        Q_EMIT pageRequested(lastPage);
        return true;
    default:
        return false;
    }
}

void PageView::keyPressEvent(QKeyEvent* event) {
    if (!scrollKey(event->key(), event->modifiers()))
        QAbstractScrollArea::keyPressEvent(event);
}

void PageView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_ahead.timerId())
        QAbstractScrollArea::timerEvent(event);
    else if (!makeAhead())
        m_ahead.stop();
}

bool PageView::makeAhead() {
    const PageGeometry::Range range = m_geometry.visible(scroll());
    if (!m_images || range.last < range.first)
        return false;
    const int next = m_forward ? range.last + 1 : range.first - 1;
    const int there = m_forward ? range.last : range.first;
    const QSize surface = m_geometry.viewport();
    // A screenful further on, and no more: at a large zoom a page has many tiles.
    const QRect part = QRect(-m_geometry.place(there, scroll()), surface)
                           .translated(0, m_forward ? surface.height() : -surface.height());
    const QRect top(0, m_forward ? 0 : m_geometry.page().height() - surface.height(), surface.width(),
                    surface.height());
    try {
        if (m_images->makeAhead(there, part))
            return true;
        return next >= 0 && next < m_geometry.count() && m_images->makeAhead(next, top);
    } catch (const RunTimeError&) {
        return false;
    }
}

} // namespace quorvane::report
