#pragma once

#include "platform/quorvane32/grid/XGridClient.h"
#include "platform/quorvane32/grid/XGridColumn.h"
#include <QFrame>
#include <memory>

namespace quorvane {

struct XGridState;
class XGridView;

/// A virtual grid for entry as in a spreadsheet. It holds no cell text: it asks its client for every cell
/// that it shows and hands every edit back, so it costs the same for ten rows and for 100,000. Rows count the
/// caption row 0, columns count from 0. Numbers outside the grid raise error 9.
class XGrid : public QFrame {
    Q_OBJECT
public:
    explicit XGrid(QWidget* parent = nullptr);
    ~XGrid() override;

    /// The client is not owned and must outlive the grid or be taken away with a null pointer.
    void setClient(XGridClient* client);

    int cols() const;
    /// Sets the number of columns; new ones are empty and 960 twips wide.
    void setCols(int cols);
    /// Number of rows with the caption row; 1 at first.
    int rows() const;
    void setRows(int rows);

    /// The cursor. Row 0 is the caption row, where no cell is current for the user. Moving the cursor commits
    /// an edit in progress and scrolls the cell into view.
    int row() const;
    void setRow(int row);
    int col() const;
    void setCol(int col);
    /// The row where the user's selection ends, seen from the cursor: the selection runs from row() to here,
    /// downwards or upwards. The cursor's own row when no other is selected.
    int rowSel() const;
    /// The first visible row; setting it scrolls the row to the top as far as the rows below allow.
    int topRow() const;
    void setTopRow(int row);

    /// The client's text of a cell, for row 0 the column's caption.
    QString text(int row, int col) const;
    XGridColumn& column(int index);

    /// Properties of the inner grid object by name: "FocusRect" (0 no frame around the current cell),
    /// "HighLight" (selection tint: 0 never, 1 always, 2 only with the focus), "FixedCols" (columns at the
    /// left that are painted as headings and that keys and mouse leave alone: a click there makes the row
    /// current in the first other column), "CellBackColor" (back colour of the current cell). Any other name
    /// raises error 5.
    void setInner(const QString& name, quint32 value);

    /// Colour of the grid lines and tint of the selection, in blue-green-red order; the top byte is ignored.
    quint32 firstColor() const;
    void setFirstColor(quint32 color);
    quint32 fourthColor() const;
    void setFourthColor(quint32 color);

    /// Shows a row or everything anew.
    void refreshRow(int row);
    void refresh();

    bool isEditing() const;
    /// Hands an edit in progress to the client; false when the client refused it. Losing the focus does this
    /// by itself; a form that closes without moving the focus calls it first.
    bool commitEdit();

Q_SIGNALS:
    /// The cursor moved to another cell.
    void cursorMoved();
    /// A cell was clicked: the left button pressed and let go on it, without Shift or Ctrl, which only
    /// select, and not on a button in it. A double click is one click. The cell's row is current; the column
    /// is the clicked one, also a fixed one.
    void cellClicked(int row, int column);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// The table that shows the grid, made when the grid is first shown or its cursor enters a row: a grid on
    /// a page that nobody has opened yet costs nothing.
    XGridView& view();
    void setCurrentCell(int row, int col);
    void columnDragged(int column, int width);

    std::unique_ptr<XGridState> m_state;
    XGridView* m_view = nullptr;
    bool m_draggingColumn = false;
};

} // namespace quorvane
