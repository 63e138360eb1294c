#pragma once

#include <QIcon>
#include <QString>
#include <Qt>

namespace quorvane {

/// A picture in a cell. Its words stand for it where the picture cannot be seen.
struct XGridPicture {
    /// Where it stands in its cell, numbered column by column as "CellPictureAlignment" counts.
    enum Alignment : int { LeftTop = 0, LeftCentre = 1, Centre = 4, RightCentre = 7 };

    QIcon icon;
    Alignment alignment = LeftTop;
    QString words;
};

/// What a grid asks and tells the form that owns it. The grid holds no cell text: every text comes from here
/// and every edit goes back here. Rows count the caption row 0, so the first line is row 1. While one of the
/// events without coordinates runs, the grid's current row and column name the cell that is meant. An
/// implementation traps its own errors; nothing may be thrown through the grid.
class XGridClient {
public:
    virtual ~XGridClient() = default;

    /// Cell text request: supplies the text of a cell. Asked often, for visible cells only.
    virtual void cellText(int row, int column, QString& text) = 0;

    /// Supplies the picture of a cell; none unless the client puts one in. Asked for visible cells only.
    virtual void cellPicture(int row, int column, XGridPicture& picture) {
        Q_UNUSED(row)
        Q_UNUSED(column)
        Q_UNUSED(picture)
    }

    /// Cell text changed: stores an edited cell and gives back the stored form. Returns false when the value
    /// was refused (the user has been told why): the cursor then stays on the cell and a paste stops there.
    virtual bool cellTextChanged(int& row, int& column, QString& text) = 0;

    /// The user moves past the last row; the client may append a line and set the grid's row count.
    virtual void newRowRequest() {}

    /// A key was pressed while no cell is being edited. The code is a Windows virtual key number (45 insert,
    /// 46 delete, 116 F5, 119 F8 ...); set to 0, the grid does nothing more with the key.
    virtual void keyDown(int& keyCode, Qt::KeyboardModifiers modifiers) {
        Q_UNUSED(keyCode)
        Q_UNUSED(modifiers)
    }

    /// The button of the current cell was pressed, with the mouse or with F8. Returns true when the client
    /// stored a value itself: an entry in progress is then dropped, also when the cell shows what it showed
    /// before.
    virtual bool cellButton() { return false; }

    /// The current cell is about to be edited or pasted into; cancel refuses it.
    virtual void beforeEdit(bool& cancel) { Q_UNUSED(cancel) }
};

} // namespace quorvane
