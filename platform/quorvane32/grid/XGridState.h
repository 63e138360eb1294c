#pragma once

#include "platform/quorvane32/grid/XGridClient.h"
#include "platform/quorvane32/grid/XGridColumn.h"
#include <QColor>
#include <QHash>
#include <QRect>
#include <memory>
#include <vector>

namespace quorvane {

/// What the parts of one grid (model, view, painting, editing) share: its client, columns, cursor and look.
/// Rows count the caption row 0. No cell text is kept here or anywhere else in the grid.
struct XGridState {
    XGridClient* client = nullptr;
    std::vector<std::unique_ptr<XGridColumn>> columns;
    int rows = 1;
    int row = 0;
    int col = 0;

    /// "FocusRect": 0 none, else a frame around the current cell.
    int focusRect = 1;
    /// "HighLight": 0 never, 1 always, 2 only while the grid has the focus.
    int highLight = 1;
    /// "FixedCols": columns at the left that are headings of their rows. The user's cursor never stands in
    /// them; only the program can put it there.
    int fixedCols = 0;
    QColor lineColor{0xD4, 0xD4, 0xD4};
    QColor selectionColor{0xCC, 0xE0, 0xF5};
    QHash<QPair<int, int>, QColor> cellBackColors;

    int cols() const { return static_cast<int>(columns.size()); }
    const XGridColumn& column(int index) const { return *columns[static_cast<size_t>(index)]; }
    bool isCell(int atRow, int atCol) const {
        return atRow >= 1 && atRow < rows && atCol >= 0 && atCol < cols();
    }
    bool isEditable(int atRow, int atCol) const {
        return client && isCell(atRow, atCol) && column(atCol).isEditable();
    }
    /// The client's text of a cell; "" outside the grid.
    QString text(int atRow, int atCol) const;
    /// The client's picture of a cell, without an icon where there is none.
    XGridPicture picture(int atRow, int atCol) const;
    bool isFixed(int atCol) const { return atCol >= 0 && atCol < fixedCols; }
    /// The first visible column that the user's cursor can stand in.
    int firstFreeColumn() const { return visibleColumn(fixedCols, 1); }
    /// The first column that can be edited, else the first visible one that is not fixed, else 0.
    int firstColumn() const;
    /// The first visible column from the given one on, to the right (step 1) or left (step -1); 0 when none
    /// is.
    int visibleColumn(int from, int step) const;
    /// The next editable column after (step 1) or before (step -1) the given one; -1 when there is none.
    int nextEditable(int from, int step) const;
};

/// A colour number in blue-green-red order; the top byte is ignored.
QColor colorFromNumber(quint32 number);

/// Where the small button of a cell (the "?" or a list's arrow) stands within the cell.
QRect cellButtonRect(const QRect& cell);

/// A cell's text as it can stand in one line: control characters shown as blanks, no longer than is of use.
QString singleLine(const QString& text, qsizetype longest);

} // namespace quorvane
