#include "forms/main/DetailGrid.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/FormServices.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/grid/XGrid.h"

namespace dalvora {

namespace {

enum Key : int { KeyInsert = 45, KeyDelete = 46, KeyF5 = 116 };

/// Columns of the product grid that its rules name.
enum ProductColumn : int { ProductType = 1, ProductCode = 2 };

/// How the kinds differ.
struct KindDesign {
    LineKind kind;
    /// Column whose "?" starts the lookup.
    int codeColumn;
    /// Columns up to this one change what other columns of the row show.
    int lastRedrawing;
};

constexpr KindDesign kindDesigns[] = {
    {LineKind::Producto, ProductCode, ProductCode},
    {LineKind::Monto, 1, 0},
    {LineKind::Precio, 1, 1},
};

const KindDesign& designOf(LineKind kind) {
    return kindDesigns[static_cast<int>(kind) - 1];
}

/// Lookup of a product line's code by its type. The grouped ones take their group's name before the company
/// and two blanks behind it.
struct ConceptLookup {
    QStringView type;
    QStringView query;
    QStringView file;
    QStringView group;
};

constexpr ConceptLookup conceptLookups[] = {
    {u"Producto", u"ProductoComision", u"DALVORA.qry", u""},
    {u"Familia", u"LISTAPRECIO_FAMILIA", u"DALVORA.QRY", u"FAMILIA"},
    {u"SubFamilia", u"LISTAPRECIO_SUBFAMILIA", u"DALVORA.QRY", u"SUBFAMILIA"},
    {u"TipoProducto", u"TIPOPRODUCTO", u"DALVORA.QRY", u""},
};

bool sameText(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

DetailGrid::DetailGrid(quorvane::XGrid& grid, LineKind kind, Surroundings surroundings)
    : m_grid(grid), m_kind(kind), m_around(std::move(surroundings)) {
    m_grid.setClient(this);
}

DBTable& DetailGrid::table() const {
    return *m_around.context.Table;
}

LineList& DetailGrid::lines() const {
    return table().lines(m_kind);
}

void DetailGrid::showLines() {
    m_grid.setRows(lines().count() + 1);
    m_grid.refresh();
}

void DetailGrid::cellText(int row, int column, QString& text) {
    // The grid may still paint a row that has just been removed.
    if (row <= lines().count())
        text = lines().line(row).TextValue(column);
}

bool DetailGrid::cellTextChanged(int& row, int& column, QString& text) {
    if (row > lines().count())
        return false;
    CommissionLine& line = lines().line(row);
    // Another type of concept makes the code meaningless.
    if (m_kind == LineKind::Producto && column == ProductType && !sameText(text, line.TextValue(column)))
        line.setTextValue(ProductCode, QString());
    const bool accepted = line.setTextValue(column, text);
    text = line.TextValue(column);
    if (column <= designOf(m_kind).lastRedrawing)
        m_grid.refreshRow(row);
    return accepted;
}

void DetailGrid::newRowRequest() {
    const int last = lines().count();
    if (last < 1 || lines().line(last).SysRecordNull())
        return;
    lines().add();
    m_grid.setRows(lines().count() + 1);
    m_grid.refreshRow(lines().count());
}

bool DetailGrid::removeRow(int row) {
    if (!lines().line(row).SysRecordNull() &&
        ShowMessage(QStringLiteral("¿ Seguro de eliminar fila ?"), MessageQuestion) != ButtonYes)
        return false;
    lines().remove(row);
    return true;
}

void DetailGrid::keyDown(int& keyCode, Qt::KeyboardModifiers) {
    const int row = m_grid.row();
    const bool onLine = row >= 1 && row <= lines().count();
    if (keyCode == KeyDelete && onLine) {
        if (!removeRow(row))
            return;
    } else if (keyCode == KeyInsert && onLine) {
        lines().add(row);
    } else if (keyCode != KeyF5 && keyCode != KeyDelete && keyCode != KeyInsert) {
        return;
    }
    showLines();
    if (m_grid.rows() == 1) {
        table().carga_inicio();
        m_around.showRecord();
    }
}

bool DetailGrid::lookUp(const QString& query, const QString& file, const QString& parameters) {
    QStringList values;
    if (!m_around.services.QueryLookup(query, file, parameters, values) || values.isEmpty())
        return false;
    int row = m_grid.row();
    int column = m_grid.col();
    QString code = values.first();
    cellTextChanged(row, column, code);
    m_grid.refreshRow(row);
    return true;
}

bool DetailGrid::lookUpConcept() {
    bool stored = false;
    for (const ConceptLookup& lookup : conceptLookups) {
        if (!sameText(m_grid.text(m_grid.row(), ProductType), lookup.type))
            continue;
        QString parameters =
            lookup.type == u"Producto" ? table().SysEmpresa : m_around.context.Session->CompanyCode();
        if (!lookup.group.isEmpty())
            parameters = QStringLiteral("%1#%2#  ").arg(lookup.group, parameters);
        stored = lookUp(lookup.query.toString(), lookup.file.toString(), parameters) || stored;
    }
    return stored;
}

bool DetailGrid::cellButton() {
    if (m_grid.col() != designOf(m_kind).codeColumn || m_grid.row() < 1)
        return false;
    if (m_kind == LineKind::Producto)
        return lookUpConcept();
    const QString file = QStringLiteral("DALVORA.qry");
    if (m_kind == LineKind::Monto)
        return lookUp(QStringLiteral("DocumentosComision"), file, table().SysEmpresa);
    const auto& regional = m_around.context.Regional;
    return lookUp(QStringLiteral("LISTAPRECIOCOMISION"), file,
                  table().SysEmpresa + u'#' + regional.dateText(table().FECHAINICIO()) + u'#' +
                      regional.dateText(table().FechaFinal()));
}

void DetailGrid::beforeEdit(bool& cancel) {
    if (m_kind == LineKind::Producto)
        beforeProductEdit(cancel);
    else if (m_kind == LineKind::Precio)
        beforePriceListEdit(cancel);
}

void DetailGrid::beforeProductEdit(bool& cancel) {
    if (m_grid.col() != ProductCode)
        return;
    const QString type = m_grid.text(m_grid.row(), ProductType);
    if (type.isEmpty())
        ShowMessage(QStringLiteral("Debe Ingresar Tipo"), MessageWarning);
    else if (sameText(type, u"Todos"))
        ShowMessage(QStringLiteral("Se seleccionaron todos los productos"), MessageWarning);
    else
        return;
    cancel = true;
}

void DetailGrid::beforePriceListEdit(bool& cancel) {
    // The cursor that counts for a missing end date is the product grid's: that is how the ERP's people know
    // it, and it refuses only while that cursor stands on the type.
    const bool refused = table().FECHAINICIO().isEmpty() ||
                         (table().FechaFinal().isEmpty() && m_around.productGrid.col() == ProductType);
    if (!refused)
        return;
    ShowMessage(QStringLiteral("Debe Ingresar Fechas"), MessageWarning);
    cancel = true;
}

} // namespace dalvora
