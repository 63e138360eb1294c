#include "platform/quorvane32/grid/XGridPaste.h"
#include "platform/quorvane32/grid/XGridModel.h"
#include "platform/quorvane32/grid/XGridState.h"
#include "platform/quorvane32/grid/XGridView.h"
#include <QCoreApplication>
#include <QToolTip>

namespace quorvane {

void XGridPaste::run(QList<QStringList> table) {
    if (!m_state.client || !m_state.isCell(m_state.row, m_state.col))
        return;
    int row = m_state.row;
    int col = m_state.col;
    const QItemSelection selected = m_view.selectionModel()->selection();
    if (!selected.isEmpty()) {
        row = selected.first().top() + 1;
        col = selected.first().left();
    }
    fillSelection(table);
    qsizetype widest = 0;
    for (const QStringList& line : table)
        widest = qMax(widest, line.size());
    const QList<int> columns = targetColumns(widest, col);
    // Scrolling along with every cell would lay the grid out again for each new row.
    m_view.setAutoScroll(false);
    const bool whole = !columns.isEmpty() && pasteRows(table, row, columns);
    m_view.setAutoScroll(true);
    if (whole)
        selectPasted(row, columns.first(), m_lastRow, columns.last());
    m_view.showCell(m_state.row, m_state.col);
}

/// One cell pasted over a selected block fills the block, as in a spreadsheet.
void XGridPaste::fillSelection(QList<QStringList>& table) const {
    const QItemSelection selected = m_view.selectionModel()->selection();
    if (selected.isEmpty() || table.size() != 1 || table.first().size() != 1)
        return;
    const QItemSelectionRange& block = selected.first();
    int wide = 0;
    for (int c = block.left(); c <= block.right(); ++c)
        wide += m_state.column(c).isVisible() ? 1 : 0;
    const QStringList line(qMax(1, wide), table.first().first());
    table.fill(line, block.height());
}

/// The visible columns that take the pasted ones, read-only ones among them; what stands further right in the
/// block has no place.
QList<int> XGridPaste::targetColumns(qsizetype widest, int first) const {
    QList<int> columns;
    for (int c = first; c < m_state.cols() && columns.size() < widest; ++c) {
        if (m_state.column(c).isVisible())
            columns += c;
    }
    return columns;
}

bool XGridPaste::pasteRows(const QList<QStringList>& table, int row, const QList<int>& columns) {
    bool usedUp = false;
    for (const QStringList& line : table) {
        // A line that stored nothing leaves its row to the next one: no new row comes behind an empty one.
        if (row >= m_state.rows && !m_view.requestRow()) {
            if (usedUp)
                return false;
            --row;
        }
        const Outcome outcome = pasteRow(line, row, columns);
        if (outcome == Outcome::Stopped)
            return false;
        usedUp = outcome == Outcome::Stored;
        m_lastRow = row++;
    }
    return true;
}

XGridPaste::Outcome XGridPaste::pasteRow(const QStringList& line, int row, const QList<int>& columns) {
    Outcome outcome = Outcome::Skipped;
    for (qsizetype i = 0; i < qMin(line.size(), columns.size()); ++i) {
        const Outcome cell = pasteCell(line[i], row, columns[i]);
        if (cell == Outcome::Stopped)
            return cell;
        if (cell == Outcome::Stored)
            outcome = cell;
    }
    return outcome;
}

XGridPaste::Outcome XGridPaste::pasteCell(const QString& text, int row, int col) {
    if (!m_state.isEditable(row, col))
        return Outcome::Skipped;
    const XGridColumn& column = m_state.column(col);
    const QString current = m_state.text(row, col);
    // What reads so already needs no edit, and a list offers no empty choice to type either.
    if (text == current || (column.isList() && text.isEmpty()))
        return Outcome::Skipped;
    const QString entry = column.isList() ? listForm(text, col) : text;
    if (entry == current)
        return Outcome::Skipped;
    m_view.setCurrentCell(row, col);
    if (entry.isNull()) {
        explainListRefusal(text, row, col);
        return Outcome::Stopped;
    }
    bool refused = false;
    m_state.client->beforeEdit(refused);
    if (refused || !m_state.isEditable(row, col) || !m_view.store(row, col, entry))
        return Outcome::Stopped;
    return Outcome::Stored;
}

/// The list's own spelling of a choice; a null text when the list does not offer it.
QString XGridPaste::listForm(const QString& text, int col) const {
    for (const QString& choice : m_state.column(col).list()) {
        if (choice.compare(text.trimmed(), Qt::CaseInsensitive) == 0)
            return choice;
    }
    return {};
}

void XGridPaste::explainListRefusal(const QString& text, int row, int col) const {
    constexpr qsizetype longest = 60;
    m_view.showCell(row, col);
    const QRect cell = m_view.cellRect(row, col);
    const QString tip = QCoreApplication::translate("quorvane::XGridPaste", "«%1» no está en la lista.")
                            .arg(singleLine(text, longest).toHtmlEscaped());
    QToolTip::showText(m_view.viewport()->mapToGlobal(cell.bottomLeft()), tip, m_view.viewport());
}

void XGridPaste::selectPasted(int row, int col, int lastRow, int lastCol) const {
    if (!m_state.isCell(row, col) || !m_state.isCell(lastRow, lastCol))
        return;
    m_view.setCurrentCell(row, col);
    const QItemSelection block(m_view.cells().index(row - 1, col),
                               m_view.cells().index(lastRow - 1, lastCol));
    m_view.selectionModel()->select(block, QItemSelectionModel::ClearAndSelect);
}

} // namespace quorvane
