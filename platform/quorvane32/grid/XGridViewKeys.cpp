#include "platform/quorvane32/grid/XGridCellTable.h"
#include "platform/quorvane32/grid/XGridEditing.h"
#include "platform/quorvane32/grid/XGridKeys.h"
#include "platform/quorvane32/grid/XGridModel.h"
#include "platform/quorvane32/grid/XGridPaste.h"
#include "platform/quorvane32/grid/XGridState.h"
#include "platform/quorvane32/grid/XGridView.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

namespace quorvane {

namespace {

Qt::KeyboardModifiers heldWith(const QKeyEvent& event) {
    return event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
}

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isTab(const QKeyEvent& event) {
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

/// 1 for the keys that move on to the next cell, -1 for those that move back, 0 for others.
int stepOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = heldWith(event);
    if ((!isEnter(event) && !isTab(event)) || held & ~Qt::KeyboardModifiers(Qt::ShiftModifier))
        return 0;
    return event.key() == Qt::Key_Backtab || held & Qt::ShiftModifier ? -1 : 1;
}

/// The keys that move the cursor as in any table.
bool isTableKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return !(event.modifiers() & (Qt::AltModifier | Qt::MetaModifier));
    default:
        return false;
    }
}

} // namespace

bool XGridView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && isOwnShortcut(static_cast<const QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

bool XGridView::isOwnShortcut(const QKeyEvent& event) const {
    if (m_editing->isActive())
        return false;
    if (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Paste) ||
        event.matches(QKeySequence::SelectAll))
        return true;
    if (heldWith(event) != Qt::NoModifier)
        return false;
    const int key = event.key();
    return key == Qt::Key_Delete || key == Qt::Key_Insert || key == Qt::Key_F2 || key == Qt::Key_F5 ||
           (key == Qt::Key_F8 && m_state.isCell(m_state.row, m_state.col) &&
            m_state.column(m_state.col).hasButton());
}

void XGridView::keyPressEvent(QKeyEvent* event) {
    event->ignore();
    if (m_editing->isActive())
        return; // a key that the entry left over; it is the form's, not the table's
    if (commandKey(*event)) {
        event->accept();
        return;
    }
    const int code = virtualKey(*event);
    int left = code;
    if (code != 0 && m_state.client)
        m_state.client->keyDown(left, event->modifiers());
    if ((code != 0 && left == 0) || editKey(*event)) {
        event->accept();
        return;
    }
    cursorKey(*event);
}

bool XGridView::commandKey(QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy))
        copySelection();
    else if (event.matches(QKeySequence::Paste))
        paste();
    else if (event.matches(QKeySequence::SelectAll))
        selectEverything();
    else
        return false;
    return true;
}

bool XGridView::editKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_F8 && heldWith(event) == Qt::NoModifier) {
        if (!m_state.isCell(m_state.row, m_state.col) || !m_state.column(m_state.col).hasButton())
            return false;
        pressButton();
        return true;
    }
    if (event.key() == Qt::Key_F2 && heldWith(event) == Qt::NoModifier) {
        m_editing->begin(XGridEditing::Start::Keep);
        return true;
    }
    if (event.key() == Qt::Key_Down && heldWith(event) == Qt::AltModifier) {
        m_editing->begin(XGridEditing::Start::OpenList);
        return true;
    }
    if (!typesCharacter(event))
        return false;
    m_editing->begin(XGridEditing::Start::Replace, event.text());
    return true;
}

bool XGridView::cursorKey(QKeyEvent& event) {
    const int step = stepOf(event);
    bool done = false;
    if (step != 0) {
        // Enter stays in the grid at its ends; Tab leaves it there, so that the keyboard can reach the rest.
        done = moveOn(step) || isEnter(event);
    } else if (event.key() == Qt::Key_Down && heldWith(event) == Qt::NoModifier) {
        done = moveDown();
    } else if (heldWith(event) == Qt::ControlModifier && jump(event.key())) {
        done = true;
    } else if (isTableKey(event)) {
        QTableView::keyPressEvent(&event);
        return event.isAccepted();
    }
    event.setAccepted(done);
    return done;
}

void XGridView::moveByKey(const QKeyEvent& event) {
    QKeyEvent again(QEvent::KeyPress, event.key(), event.modifiers(), event.text());
    if (!cursorKey(again) && isTab(event))
        // The item view's own would send the key to the grid again.
        QAbstractScrollArea::focusNextPrevChild(stepOf(event) > 0); // NOLINT(bugprone-parent-virtual-call)
}

bool XGridView::moveOn(int step) {
    if (m_state.nextEditable(-1, 1) < 0)
        return false;
    const int next = m_state.nextEditable(m_state.col, step);
    if (next >= 0 && m_state.row >= 1) {
        setCurrentCell(m_state.row, next);
        return true;
    }
    const int row = m_state.row + step;
    if (row < 1 || (row >= m_state.rows && !requestRow()))
        return false;
    setCurrentCell(row, step > 0 ? m_state.firstColumn() : m_state.nextEditable(m_state.cols(), -1));
    return true;
}

bool XGridView::moveDown() {
    const int row = m_state.row + 1;
    const bool visible = m_state.col < m_state.cols() && m_state.column(m_state.col).isVisible();
    if (row < m_state.rows || requestRow())
        setCurrentCell(row, visible ? m_state.col : m_state.firstColumn());
    return true;
}

/// Ctrl with an arrow goes to the edge of the grid.
bool XGridView::jump(int key) {
    if (!m_state.isCell(m_state.row, m_state.col))
        return false;
    if (key == Qt::Key_Up)
        setCurrentCell(1, m_state.col);
    else if (key == Qt::Key_Down)
        setCurrentCell(m_state.rows - 1, m_state.col);
    else if (key == Qt::Key_Left)
        setCurrentCell(m_state.row, m_state.firstFreeColumn());
    else if (key == Qt::Key_Right)
        setCurrentCell(m_state.row, m_state.visibleColumn(m_state.cols() - 1, -1));
    else
        return false;
    return true;
}

void XGridView::copySelection() {
    const QItemSelection selected = selectionModel()->selection();
    if (selected.isEmpty())
        return;
    const QItemSelectionRange& block = selected.first();
    QList<QStringList> table;
    for (int r = block.top(); r <= block.bottom(); ++r) {
        QStringList line;
        for (int c = block.left(); c <= block.right(); ++c) {
            if (m_state.column(c).isVisible())
                line += m_state.text(r + 1, c);
        }
        table += line;
    }
    QGuiApplication::clipboard()->setText(cellTableText(table));
}

void XGridView::paste() {
    XGridPaste(m_state, *this).run(cellTable(QGuiApplication::clipboard()->text()));
}

} // namespace quorvane
