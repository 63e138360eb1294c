#include "platform/quorvane32/grid/XGridView.h"
#include "platform/quorvane32/grid/FocusLoss.h"
#include "platform/quorvane32/grid/XGridAccessible.h"
#include "platform/quorvane32/grid/XGridDelegate.h"
#include "platform/quorvane32/grid/XGridEditing.h"
#include "platform/quorvane32/grid/XGridHeader.h"
#include "platform/quorvane32/grid/XGridModel.h"
#include "platform/quorvane32/grid/XGridState.h"
#include <QApplication>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <utility>

namespace quorvane {

namespace {

constexpr qreal twipsPerPixel = 15.0;
constexpr qreal basicDpi = 96.0;
constexpr int rowHeightInTwips = 330;
constexpr int rowPadding = 6;
constexpr int narrowestColumn = 16;

} // namespace

XGridView::XGridView(XGridState& state, QWidget* parent)
    : QTableView(parent)
    , m_state(state)
    , m_cells(new XGridModel(state, this))
    , m_painter(new XGridDelegate(state, this))
    , m_editing(new XGridEditing(state, *this))
    , m_captions(new XGridHeader(state, this)) {
    m_editing->setParent(this);
    setUpLook();
    setModel(m_cells);
    layOut();
    connect(m_captions, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!m_layingOut && width > 0)
            Q_EMIT columnDragged(column, width);
        m_editing->place();
    });
}

void XGridView::setUpLook() {
    setItemDelegate(m_painter);
    setHorizontalHeader(m_captions);
    setShowGrid(false); // the lines are painted with the cells, in the grid's own colour
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(true);
    setCornerButtonEnabled(false);
    setWordWrap(false);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    m_captions->setMinimumSectionSize(narrowestColumn);
}

int XGridView::pixels(int twips) const {
    return qRound(twips / twipsPerPixel * logicalDpiX() / basicDpi);
}

int XGridView::twips(int pixels) const {
    return qRound(pixels * twipsPerPixel * basicDpi / logicalDpiX());
}

void XGridView::layOutSoon() {
    m_layoutDue = true;
    scheduleDelayedItemsLayout();
}

void XGridView::doItemsLayout() {
    if (std::exchange(m_layoutDue, false))
        layOut();
    QTableView::doItemsLayout();
}

void XGridView::layOut() {
    const QScopedValueRollback layingOut(m_layingOut, true);
    verticalHeader()->setDefaultSectionSize(
        qMax(pixels(rowHeightInTwips), fontMetrics().height() + rowPadding));
    for (int c = 0; c < m_state.cols(); ++c) {
        const XGridColumn& column = m_state.column(c);
        setColumnHidden(c, !column.isVisible());
        if (column.isVisible())
            m_captions->resizeSection(c, pixels(column.width()));
    }
    m_captions->captionsChanged();
    m_editing->place();
    viewport()->update();
}

QRect XGridView::cellRect(int row, int col) const {
    return visualRect(m_cells->index(row - 1, col));
}

void XGridView::showCell(int row, int col) {
    executeDelayedItemsLayout();
    // A hidden column has no place to scroll to, its row still has.
    const bool visible = m_state.column(col).isVisible();
    scrollTo(m_cells->index(row - 1, visible ? col : m_state.firstColumn()));
}

void XGridView::showAtTop(int row) {
    executeDelayedItemsLayout();
    updateGeometries();
    verticalScrollBar()->setValue(row - 1); // it counts rows
}

void XGridView::captionsChanged() {
    m_captions->captionsChanged();
    m_editing->place();
}

void XGridView::setCurrentCell(int row, int col) {
    m_editing->commit();
    if (row < 1) {
        setCurrentIndex({});
        clearSelection();
        m_state.row = row;
        m_state.col = col;
        return;
    }
    setCurrentIndex(m_cells->index(row - 1, col));
    if (hasAutoScroll())
        showCell(row, col);
}

bool XGridView::store(int row, int col, QString text) {
    int storedRow = row;
    int storedCol = col;
    const bool stored = m_state.client->cellTextChanged(storedRow, storedCol, text);
    repaintRow(row);
    repaintRow(storedRow);
    return stored;
}

bool XGridView::requestRow() {
    if (!m_state.client)
        return false;
    const int before = m_state.rows;
    m_state.client->newRowRequest();
    return m_state.rows > before;
}

void XGridView::repaintRow(int row) {
    if (row < 1 || row >= m_state.rows)
        return;
    const int top = rowViewportPosition(row - 1);
    viewport()->update(0, top, viewport()->width(), rowHeight(row - 1));
}

void XGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    m_state.row = current.isValid() ? current.row() + 1 : 0;
    if (current.isValid())
        m_state.col = current.column();
    repaintRow(previous.row() + 1);
    repaintRow(m_state.row);
    // The base class would name the cell to assistive technology by its number among all cells; the grid's
    // own description knows the visible ones only, so it is told by the grid itself.
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call)
    announceCursor(*this);
    Q_EMIT cursorMoved();
}

void XGridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    // Passes over the table's own report to assistive technology, as above.
    QAbstractItemView::selectionChanged(selected, deselected); // NOLINT(bugprone-parent-virtual-call)
}

void XGridView::focusMayHaveMoved() {
    m_painter->setGridFocused(holdsFocusWithin(*this));
    viewport()->update();
}

void XGridView::focusInEvent(QFocusEvent* event) {
    if (m_state.row < 1 && m_state.rows > 1 && event->reason() != Qt::MouseFocusReason)
        setCurrentCell(1, m_state.firstColumn());
    QTableView::focusInEvent(event);
    focusMayHaveMoved();
}

void XGridView::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    focusMayHaveMoved();
}

void XGridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        layOut();
}

void XGridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    m_editing->place();
}

void XGridView::updateGeometries() {
    QTableView::updateGeometries();
    m_editing->place();
}

bool XGridView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave)
        hover({});
    return QTableView::viewportEvent(event);
}

void XGridView::hover(const QModelIndex& index) {
    if (m_hovered == index)
        return;
    repaintRow(m_hovered.row() + 1);
    m_hovered = index;
    m_painter->setHovered(index);
    repaintRow(index.row() + 1);
}

bool XGridView::isOnButton(const QModelIndex& index, const QPoint& at) const {
    return m_painter->hasLiveButton(index) && cellButtonRect(visualRect(index)).contains(at);
}

void XGridView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    m_clicked = QModelIndex();
    if (!index.isValid()) // a click beside the cells leaves the cursor and the selection alone
        return;
    const bool onButton = event->button() == Qt::LeftButton && isOnButton(index, event->pos());
    const bool clicks = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    QMouseEvent press = besideFixed(*event);
    QTableView::mousePressEvent(&press);
    if (clicks && !onButton) {
        m_clicked = index;
        m_clickedAt = event->pos();
    }
    if (onButton && indexAt(event->pos()) == index) {
        m_pressed = index;
        m_painter->setPressed(index);
        repaintRow(index.row() + 1);
    }
}

void XGridView::mouseMoveEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    hover(index);
    if (!stillClicks(event->pos()))
        m_clicked = QModelIndex(); // dragging selects; coming back to the first cell makes it no click
    QMouseEvent move = besideFixed(*event);
    if (!m_pressed.isValid())
        QTableView::mouseMoveEvent(&move);
}

void XGridView::mouseReleaseEvent(QMouseEvent* event) {
    QMouseEvent release = besideFixed(*event);
    QTableView::mouseReleaseEvent(&release);
    if (event->button() == Qt::LeftButton && m_clicked.isValid() && stillClicks(event->pos()))
        Q_EMIT cellClicked(m_clicked.row() + 1, m_clicked.column());
    m_clicked = QModelIndex();
    const QModelIndex index = m_pressed;
    if (!index.isValid())
        return;
    m_pressed = QModelIndex();
    m_painter->setPressed({});
    repaintRow(index.row() + 1);
    if (isOnButton(index, event->pos()))
        buttonClicked(index);
}

void XGridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    if (event->button() != Qt::LeftButton || !index.isValid())
        return;
    if (isOnButton(index, event->pos()))
        mousePressEvent(event); // two quick clicks on a button are two presses
    else
        m_editing->begin(XGridEditing::Start::OpenList);
}

/// The pointer is over the cell that was pressed, or has not moved although the grid scrolled beneath it.
bool XGridView::stillClicks(const QPoint& at) const {
    return indexAt(at) == m_clicked ||
           (at - m_clickedAt).manhattanLength() < QApplication::startDragDistance();
}

QMouseEvent XGridView::besideFixed(const QMouseEvent& event) const {
    QPointF at = event.position();
    if (m_state.isFixed(columnAt(qRound(at.x()))))
        at.setX(columnViewportPosition(m_state.firstFreeColumn()) + 1);
    return QMouseEvent(event.type(), at, event.globalPosition(), event.button(), event.buttons(),
                       event.modifiers(), event.pointingDevice());
}

QModelIndex XGridView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex to = QTableView::moveCursor(action, modifiers);
    return m_state.isFixed(to.column()) ? to.siblingAtColumn(m_state.firstFreeColumn()) : to;
}

int XGridView::rowSel() const {
    const QItemSelection selected = selectionModel()->selection();
    if (selected.isEmpty())
        return m_state.row;
    const QItemSelectionRange& block = selected.first();
    const bool upwards = m_state.row == block.bottom() + 1;
    return (upwards ? block.top() : block.bottom()) + 1;
}

void XGridView::selectEverything() {
    // In a list, where nothing is typed, the cursor goes to where the selection begins.
    if (m_state.rows > 1 && m_state.nextEditable(-1, 1) < 0)
        setCurrentCell(1, m_state.firstFreeColumn());
    selectAll();
}

void XGridView::buttonClicked(const QModelIndex& index) {
    setCurrentCell(index.row() + 1, index.column());
    if (m_state.column(index.column()).hasButton())
        pressButton();
    else
        m_editing->begin(XGridEditing::Start::OpenList);
}

void XGridView::pressButton() {
    if (m_editing->isActive())
        m_editing->pressButton();
    else if (m_state.isEditable(m_state.row, m_state.col) && m_state.column(m_state.col).hasButton())
        m_state.client->cellButton();
}

void XGridView::inputMethodEvent(QInputMethodEvent* event) {
    // An accented letter composed from a dead key arrives here and begins an edit like any typed letter.
    if (event->commitString().isEmpty() && event->preeditString().isEmpty())
        return;
    if (m_editing->begin(XGridEditing::Start::Replace))
        QApplication::sendEvent(m_editing->box()->entry(), event);
}

} // namespace quorvane
