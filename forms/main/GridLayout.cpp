#include "forms/main/GridLayout.h"
#include "data/DBTable.h"
#include "forms/main/MainControls.h"
#include <span>

namespace dalvora {

namespace {

using quorvane::XGrid;
using Column = quorvane::XGridColumn;

constexpr int columnCount = 8;
constexpr quint32 lineColour = 0x02E0E0E0;
constexpr quint32 selectionColour = 0xFFCECE;
constexpr quint32 captionColour = 0xFFE0E0;

enum class Access : quint8 { Entry, ReadOnly };
/// What a cell offers beside typing.
enum class Help : quint8 { None, NoList, Lookup, List };

/// One used column of a grid. A code column shows the "?" of the lookup; a list column takes its choices from
/// the record's ListValue of the given number.
struct ColumnDesign {
    QStringView caption;
    int width;
    Column::Alignment alignment;
    Access access = Access::Entry;
    Help help = Help::None;
    int listValue = 0;
};

constexpr int calculationList = 7;

constexpr ColumnDesign productColumns[] = {
    {u"Tipo", 1200, Column::LeftCentre, Access::Entry, Help::List, 1},
    {u"Producto", 1800, Column::LeftCentre, Access::Entry, Help::Lookup},
    {u"Descripción", 2500, Column::LeftCentre, Access::ReadOnly, Help::NoList},
    {u"Inicio Tramo", 1500, Column::RightCentre},
    {u"Fin Tramo", 1500, Column::RightCentre},
    {u"Porcentaje", 1300, Column::RightCentre},
    {u"Calcular en base a:", 1500, Column::RightCentre, Access::Entry, Help::List, calculationList},
};

constexpr ColumnDesign amountColumns[] = {
    {u"Documento", 1800, Column::LeftCentre, Access::Entry, Help::Lookup},
    {u"Monto Inicio", 1500, Column::RightCentre},
    {u"Monto Final", 1500, Column::RightCentre},
    {u"Porcentaje", 1300, Column::RightCentre},
    {u"Calcular en base a:", 1500, Column::RightCentre, Access::Entry, Help::List, calculationList},
};

constexpr ColumnDesign priceListColumns[] = {
    {u"Lista de Precio", 1800, Column::LeftCentre, Access::Entry, Help::Lookup},
    {u"Descripción", 2500, Column::LeftCentre, Access::ReadOnly, Help::NoList},
    {u"Porcentaje", 1300, Column::RightCentre},
    {u"Calcular en base a:", 1500, Column::RightCentre, Access::Entry, Help::List, calculationList},
};

void layOutColumn(XGrid& grid, int number, const ColumnDesign& design, const DBTable& table) {
    Column& column = grid.column(number);
    column.setCaption(design.caption.toString());
    column.setWidth(design.width);
    column.setAlignment(design.alignment);
    column.setReadOnly(design.access == Access::ReadOnly);
    column.setKind(design.help == Help::List ? Column::List : Column::Text);
    if (design.help == Help::Lookup)
        column.setButtonText(QStringLiteral("?"));
    if (design.help == Help::List)
        FillColumnList(grid, number, table.ListValue(design.listValue));
    else if (design.help != Help::None)
        column.setListSize(0);
}

void layOut(XGrid& grid, std::span<const ColumnDesign> designs, const DBTable& table) {
    grid.setCols(columnCount);
    grid.setInner(QStringLiteral("FocusRect"), 0);
    grid.setInner(QStringLiteral("HighLight"), 2);
    for (int column = 0; column < grid.cols(); ++column)
        grid.column(column).setWidth(0);
    // Column 0 stays unused: columns have the numbers of the lines' TextValue.
    int number = 0;
    for (const ColumnDesign& design : designs)
        layOutColumn(grid, ++number, design, table);
}

void tint(XGrid& grid) {
    grid.setFourthColor(selectionColour);
    if (grid.rows() < 1)
        return;
    grid.setRow(0);
    for (int column = 0; column < grid.cols(); ++column) {
        grid.setCol(column);
        grid.setInner(QStringLiteral("CellBackColor"), captionColour);
    }
}

} // namespace

void SetupGrids(MainControls& controls, const DBTable& table) {
    layOut(*controls.XGrid, productColumns, table);
    layOut(*controls.XGrid2, amountColumns, table);
    layOut(*controls.XGrid3, priceListColumns, table);
    // The amounts keep the control's own lines.
    controls.XGrid->setFirstColor(lineColour);
    controls.XGrid3->setFirstColor(lineColour);
    for (XGrid* grid : controls.grids())
        tint(*grid);
}

void FillColumnList(XGrid& grid, int column, const QStringList& list) {
    const int upperBound = static_cast<int>(list.size()) - 1;
    grid.column(column).setListSize(upperBound);
    for (int i = 0; i < upperBound; ++i)
        grid.column(column).setListItem(i, list[i + 1]);
}

void FocusDetailCell(MainControls& controls, const DBTable& table, int column, int row, int mode) {
    const int kind = table.Grilla;
    if (mode != 1 || kind < 1 || kind > 3)
        return;
    controls.SSTab1->setCurrentIndex(kind - 1);
    XGrid& grid = *controls.grids()[static_cast<std::size_t>(kind) - 1];
    if (row > 0 && row < grid.rows()) {
        grid.setTopRow(row);
        grid.setRow(row);
        grid.setCol(column < 1 ? 1 : column);
    }
    grid.setFocus();
}

} // namespace dalvora
