#pragma once

#include <QPersistentModelIndex>
#include <QTableView>

class QKeyEvent;

namespace quorvane {

struct XGridState;
class XGridDelegate;
class XGridEditing;
class XGridHeader;
class XGridModel;

/// The visible table of a grid: cursor, selection, keyboard and mouse. Rows are fixed in height, so a grid of
/// 100,000 rows scrolls and grows as one of 100 does. Cells are named by grid row and column (row 0 is the
/// caption row).
class XGridView : public QTableView {
    Q_OBJECT
public:
    XGridView(XGridState& state, QWidget* parent);

    const XGridState& shared() const { return m_state; }
    XGridModel& cells() { return *m_cells; }
    XGridEditing& editing() { return *m_editing; }

    /// Takes over all column settings, the font's row height and the screen's resolution.
    void layOut();
    /// The same before the next painting: a form sets some fifty column properties in a row.
    void layOutSoon();
    void doItemsLayout() override;
    /// Takes over changed captions and widths, which may need more lines in the caption row.
    void captionsChanged();
    /// Widths in pixels for twips on this screen, and back.
    int pixels(int twips) const;
    int twips(int pixels) const;

    QRect cellRect(int row, int col) const;
    /// Scrolls a cell into view, or a row to the top.
    void showCell(int row, int col);
    void showAtTop(int row);
    /// Makes a cell current and the only selected one; row 0 takes the cursor away.
    void setCurrentCell(int row, int col);
    /// The row where the selection that begins at the cursor ends.
    int rowSel() const;
    /// Hands an entered text to the client; false when it was refused.
    bool store(int row, int col, QString text);
    /// Moves the cursor as the given key does, also past the last row; called when a key ended an edit.
    void moveByKey(const QKeyEvent& event);
    /// Asks for a line behind the last one; true when the client appended one.
    bool requestRow();
    void pressButton();
    void focusMayHaveMoved();
    void repaintRow(int row);

Q_SIGNALS:
    void cursorMoved();
    void cellClicked(int row, int column);
    /// The user dragged a column's edge; width in pixels.
    void columnDragged(int column, int width);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void updateGeometries() override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void setUpLook();
    bool commandKey(QKeyEvent& event);
    bool editKey(const QKeyEvent& event);
    bool cursorKey(QKeyEvent& event);
    bool isOwnShortcut(const QKeyEvent& event) const;
    bool moveOn(int step);
    bool moveDown();
    bool jump(int key);
    void selectEverything();
    void hover(const QModelIndex& index);
    /// The same mouse event over the row's first free column when it is over a fixed one.
    QMouseEvent besideFixed(const QMouseEvent& event) const;
    bool isOnButton(const QModelIndex& index, const QPoint& at) const;
    bool stillClicks(const QPoint& at) const;
    void buttonClicked(const QModelIndex& index);
    void copySelection();
    void paste();

    XGridState& m_state;
    XGridModel* m_cells;
    XGridDelegate* m_painter;
    XGridEditing* m_editing;
    XGridHeader* m_captions;
    QPersistentModelIndex m_hovered;
    QPersistentModelIndex m_pressed;
    QPersistentModelIndex m_clicked; ///< the cell that a click began on
    QPoint m_clickedAt;
    bool m_layingOut = false;
    bool m_layoutDue = false;
};

} // namespace quorvane
