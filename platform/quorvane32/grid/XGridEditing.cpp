#include "platform/quorvane32/grid/XGridEditing.h"
#include "platform/quorvane32/grid/FocusLoss.h"
#include "platform/quorvane32/grid/XGridKeys.h"
#include "platform/quorvane32/grid/XGridState.h"
#include "platform/quorvane32/grid/XGridView.h"
#include <QScopedValueRollback>

namespace quorvane {

XGridEditing::XGridEditing(XGridState& state, XGridView& view) : m_state(state), m_view(view) {}

bool XGridEditing::begin(Start start, const QString& typed) {
    if (isActive())
        return true;
    const int row = m_state.row;
    const int col = m_state.col;
    if (m_asking || !m_state.isEditable(row, col))
        return false;
    bool refused = false;
    {
        const QScopedValueRollback asking(m_asking, true);
        m_state.client->beforeEdit(refused);
    }
    // The client may have shown a box meanwhile: edit only when the cell is still there and still meant.
    if (refused || row != m_state.row || col != m_state.col || !m_state.isEditable(row, col))
        return false;
    m_row = row;
    m_col = col;
    m_original = m_state.text(row, col);
    open(start, typed);
    return true;
}

void XGridEditing::open(Start start, const QString& typed) {
    const XGridColumn& column = m_state.column(m_col);
    m_view.showCell(m_row, m_col);
    m_box = new XGridEditorBox(m_view.viewport());
    if (column.isList())
        openList(typed, start);
    else
        openText(typed, start);
    if (column.hasButton())
        connect(m_box->addButton(column.buttonText()), &QToolButton::clicked, this,
                &XGridEditing::pressButton);
    QWidget* entry = m_box->entry();
    entry->setFont(m_view.font());
    entry->setAccessibleName(column.caption());
    entry->installEventFilter(this);
    place();
    m_box->show();
    entry->setFocus(Qt::OtherFocusReason);
    if (auto* list = qobject_cast<XGridListEditor*>(entry); list && start == Start::OpenList)
        list->showPopup();
}

void XGridEditing::openText(const QString& typed, Start start) {
    const bool replace = start == Start::Replace;
    m_box->addText(replace ? typed : m_original, m_state.column(m_col).textAlignment());
}

void XGridEditing::openList(const QString& typed, Start start) {
    XGridListEditor* list = m_box->addList(m_state.column(m_col).list(), m_original);
    if (start == Start::Replace && !typed.isEmpty())
        list->chooseByLetters(typed);
    connect(list, &XGridListEditor::picked, this, [this] { commit(); });
    if (start == Start::OpenList)
        connect(list, &XGridListEditor::popupGivenUp, this, &XGridEditing::cancel);
}

QString XGridEditing::entryText() const {
    if (const auto* list = qobject_cast<const XGridListEditor*>(m_box->entry()))
        return list->chosenText();
    return qobject_cast<const QLineEdit*>(m_box->entry())->text();
}

bool XGridEditing::commit() {
    if (!isActive() || m_inButton)
        return true;
    const QString text = entryText();
    close();
    return text == m_original || m_view.store(m_row, m_col, text);
}

void XGridEditing::cancel() {
    if (isActive() && !m_inButton)
        close();
}

void XGridEditing::close() {
    XGridEditorBox* box = m_box.data();
    m_box = nullptr;
    box->entry()->removeEventFilter(this);
    if (holdsFocusWithin(*box))
        m_view.setFocus(Qt::OtherFocusReason);
    box->hide();
    box->deleteLater();
    m_view.focusMayHaveMoved();
}

void XGridEditing::pressButton() {
    if (!isActive() || m_inButton)
        return;
    bool stored = false;
    {
        const QScopedValueRollback pressed(m_inButton, true);
        stored = m_state.client->cellButton();
    }
    if (!isActive())
        return;
    if (stored || !m_state.isEditable(m_row, m_col) || m_state.text(m_row, m_col) != m_original)
        close();
    else
        m_box->entry()->setFocus(Qt::OtherFocusReason);
}

void XGridEditing::place() {
    if (isActive())
        m_box->place(m_view.cellRect(m_row, m_col));
}

bool XGridEditing::eventFilter(QObject* watched, QEvent* event) {
    if (!isActive() || watched != m_box->entry())
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
        return keyPressed(static_cast<const QKeyEvent&>(*event));
    case QEvent::ShortcutOverride:
        // Keys with a meaning in the entry are the entry's, whatever the form's menus make of them.
        if (virtualKey(static_cast<const QKeyEvent&>(*event)) == VirtualKeyF8 ||
            static_cast<const QKeyEvent&>(*event).key() == Qt::Key_Escape)
            event->accept();
        return false;
    case QEvent::FocusIn:
        m_view.focusMayHaveMoved();
        return false;
    case QEvent::FocusOut:
        if (!m_inButton && endsEntry(*m_box, static_cast<const QFocusEvent&>(*event)))
            commit();
        return false;
    default:
        return false;
    }
}

bool XGridEditing::keyPressed(const QKeyEvent& event) {
    auto* list = qobject_cast<XGridListEditor*>(m_box->entry());
    const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    switch (event.key()) {
    case Qt::Key_Escape:
        cancel();
        return true;
    case Qt::Key_F8:
        if (m_state.column(m_col).hasButton())
            pressButton();
        return true;
    case Qt::Key_F2:
        return true;
    case Qt::Key_Down:
    case Qt::Key_F4:
        if (list && (held == Qt::AltModifier || event.key() == Qt::Key_F4)) {
            list->showPopup();
            return true;
        }
        [[fallthrough]];
    default:
        return held == Qt::NoModifier && leaveByKey(event);
    }
}

bool XGridEditing::leaveByKey(const QKeyEvent& event) {
    const bool list = qobject_cast<XGridListEditor*>(m_box->entry());
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (list)
            return false;
        break;
    default:
        return false;
    }
    if (commit())
        m_view.moveByKey(event);
    return true;
}

} // namespace quorvane
