#pragma once

#include <QList>
#include <QStringList>

namespace quorvane {

struct XGridState;
class XGridView;

/// Puts a block of cells from the clipboard into a grid, from the selection's first cell on: each cell goes
/// the way of a typed one (before edit, cell text changed). It ends at the first cell that the client cancels
/// or refuses, with the cursor there: the client has shown its message, once; what was stored before stays.
class XGridPaste {
public:
    XGridPaste(XGridState& state, XGridView& view) : m_state(state), m_view(view) {}

    void run(QList<QStringList> table);

private:
    enum class Outcome { Stored, Skipped, Stopped };

    void fillSelection(QList<QStringList>& table) const;
    QList<int> targetColumns(qsizetype widest, int first) const;
    bool pasteRows(const QList<QStringList>& table, int row, const QList<int>& columns);
    Outcome pasteRow(const QStringList& line, int row, const QList<int>& columns);
    Outcome pasteCell(const QString& text, int row, int col);
    QString listForm(const QString& text, int col) const;
    void explainListRefusal(const QString& text, int row, int col) const;
    void selectPasted(int row, int col, int lastRow, int lastCol) const;

    XGridState& m_state;
    XGridView& m_view;
    int m_lastRow = 0;
};

} // namespace quorvane
