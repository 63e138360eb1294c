#pragma once

#include "data/Salespeople.h"
#include "platform/quorvane32/grid/XGrid.h"
#include <functional>
#include <vector>

namespace dalvora {

/// The rows of the salespeople form: what was read, and which rows the user has marked. The grid asks it for
/// what it shows, so 5,000 rows cost it no more than the ones in sight.
class SalespeopleList : public quorvane::XGridClient {
public:
    enum Column : int { Mark, Codigo, Descripcion, Comision, ColumnCount };

    /// The grid is not owned; `refresh` runs when F5 is pressed in it.
    SalespeopleList(quorvane::XGrid& grid, std::function<void()> refresh);
    ~SalespeopleList() override;

    /// Columns, colours and behaviour of the grid.
    void setUpGrid();

    /// Leaves the caption row only.
    void clear();
    /// Shows rows, none of them marked and none current.
    void show(std::vector<Salesperson> people);

    /// Marks the grid's current row or takes its mark away; nothing on the caption row.
    void toggleMark();
    /// Toggles every row from the grid's current one to the end of the selection, and ends the selection.
    void toggleSelection();

    /// Marked rows since the count was set to 0, for the form's own bookkeeping.
    qint16 markedCount() const { return m_markedCount; }
    void resetMarkedCount() { m_markedCount = 0; }
    /// Codes of the rows that show the mark, from the first to the last.
    QStringList markedCodes() const;

    void cellText(int row, int column, QString& text) override;
    void cellPicture(int row, int column, quorvane::XGridPicture& picture) override;
    bool cellTextChanged(int& row, int& column, QString& text) override;
    void keyDown(int& keyCode, Qt::KeyboardModifiers modifiers) override;

private:
    struct Row {
        Salesperson person;
        bool marked = false;
    };
    Row& at(int row) { return m_rows[static_cast<std::size_t>(row) - 1]; }
    QString rowText(int row);
    void toggleRow(int row);

    quorvane::XGrid& m_grid;
    std::function<void()> m_refresh;
    QIcon m_picYes;
    std::vector<Row> m_rows;
    qint16 m_markedCount = 0;
};

} // namespace dalvora
