#pragma once

#include <QStringList>

namespace quorvane {
class XGrid;
}

namespace dalvora {

class DBTable;
struct MainControls;

/// Lays out the three detail grids: columns, captions, widths, lists, colours. Once, at start-up.
void SetupGrids(MainControls& controls, const DBTable& table);

/// Sets a column's drop-down list from the record's choices, whose element 0 (the empty one) is left out.
void FillColumnList(quorvane::XGrid& grid, int column, const QStringList& list);

/// Puts the user on a detail cell after a rejected save: does nothing unless `mode` is 1 and the record names
/// a grid; a row outside the grid only switches the tab and gives the grid the focus.
void FocusDetailCell(MainControls& controls, const DBTable& table, int column, int row, int mode);

} // namespace dalvora
