#include "forms/vendedor/SalespeopleList.h"
#include "common/ShowMessage.h"
#include "platform/skin/ImageList.h"

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

using GridColumn = quorvane::XGridColumn;

constexpr quint32 selectionColour = 0xFFCECE;
constexpr quint32 captionColour = 0xFFE0E0;
constexpr int keySpace = 32;
constexpr int keyF5 = 116;

struct ColumnDesign {
    QStringView caption;
    int width;
    GridColumn::Alignment alignment = GridColumn::LeftCentre;
};

constexpr ColumnDesign columnDesigns[SalespeopleList::ColumnCount] = {
    {u"", 200},
    {u"Código", 2500, GridColumn::RightCentre},
    {u"Descripcion", 2800, GridColumn::RightCentre},
    {u"Comisión", 2000},
};

} // namespace

SalespeopleList::SalespeopleList(quorvane::XGrid& grid, std::function<void()> refresh)
    : m_grid(grid), m_refresh(std::move(refresh)), m_picYes(skin::ImageList().icon(u"aceptar"_s)) {
    m_grid.setClient(this);
}

SalespeopleList::~SalespeopleList() {
    m_grid.setClient(nullptr);
}

void SalespeopleList::setUpGrid() {
    m_grid.setInner(u"FocusRect"_s, 0);
    m_grid.setInner(u"HighLight"_s, 2);
    m_grid.setInner(u"FixedCols"_s, 1);
    m_grid.setCols(ColumnCount);
    for (int number = 0; number < ColumnCount; ++number) {
        const ColumnDesign& design = columnDesigns[number];
        GridColumn& column = m_grid.column(number);
        column.setCaption(design.caption.toString());
        column.setWidth(design.width);
        column.setAlignment(design.alignment);
        column.setReadOnly(true);
    }
    m_grid.setFourthColor(selectionColour);
    if (m_grid.rows() < 1)
        return;
    m_grid.setRow(0);
    for (int number = 0; number < ColumnCount; ++number) {
        m_grid.setCol(number);
        m_grid.setInner(u"CellBackColor"_s, captionColour);
    }
    m_grid.setCol(Codigo);
}

void SalespeopleList::clear() {
    m_grid.setRows(1);
    m_rows.clear();
}

void SalespeopleList::show(std::vector<Salesperson> people) {
    clear();
    m_rows.reserve(people.size());
    for (Salesperson& person : people)
        m_rows.push_back({std::move(person)});
    m_grid.setRows(static_cast<int>(m_rows.size()) + 1);
    m_grid.setRow(0);
}

QString SalespeopleList::rowText(int row) {
    QStringList cells;
    for (int column = 0; column < ColumnCount; ++column)
        cells << m_grid.text(row, column);
    return cells.join(u'\t');
}

void SalespeopleList::toggleRow(int row) {
    if (row < 1)
        return;
    if (at(row).marked) {
        at(row).marked = false;
        --m_markedCount;
    } else if (rowText(row).contains(u"Error")) {
        ShowMessage(u"Cliente no válido"_s, MessageError);
    } else {
        at(row).marked = true;
        ++m_markedCount;
    }
    m_grid.refreshRow(row);
}

void SalespeopleList::toggleMark() {
    toggleRow(m_grid.row());
}

void SalespeopleList::toggleSelection() {
    const int current = m_grid.row();
    const int end = m_grid.rowSel();
    // A selection made upwards is one as well.
    for (int row = qMin(current, end); row <= qMax(current, end); ++row)
        toggleRow(row);
    m_grid.setRow(current); // takes the selection away
}

QStringList SalespeopleList::markedCodes() const {
    QStringList codes;
    for (const Row& row : m_rows)
        if (row.marked)
            codes << row.person.Codigo;
    return codes;
}

void SalespeopleList::cellText(int row, int column, QString& text) {
    const Salesperson& person = at(row).person;
    if (column == Codigo)
        text = person.Codigo;
    else if (column == Descripcion)
        text = person.Descripcion;
    else if (column == Comision)
        text = person.texto;
}

void SalespeopleList::cellPicture(int row, int column, quorvane::XGridPicture& picture) {
    if (column != Mark || !at(row).marked)
        return;
    picture.icon = m_picYes;
    picture.alignment = quorvane::XGridPicture::Centre;
    picture.words = u"Marcado"_s;
}

/// Nothing is typed into this grid.
bool SalespeopleList::cellTextChanged(int&, int&, QString&) {
    return false;
}

void SalespeopleList::keyDown(int& keyCode, Qt::KeyboardModifiers modifiers) {
    if (modifiers != Qt::NoModifier)
        return;
    if (keyCode == keySpace)
        toggleMark();
    else if (keyCode == keyF5)
        m_refresh();
    else
        return;
    keyCode = 0;
}

} // namespace dalvora
