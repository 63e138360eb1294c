#include "data/DBTable.h"
#include "common/Trapped.h"
#include "platform/quorvane32/core/Session.h"

namespace dalvora {

using namespace Qt::StringLiterals;

DBTable::DBTable(quorvane::Connection& connection, quorvane::Session& session,
                 const quorvane::RegionalSettings& regional)
    : SysFormatNum(u"###,##0"_s)
    , m_connection(connection)
    , m_session(session)
    , m_regional(regional)
    , m_details(*this, false) // removing the last product line leaves none: the grid starts all three anew
    , m_montos(*this, true)
    , m_precios(*this, true) {}

DBTable::~DBTable() = default;

void DBTable::carga_inicio() {
    m_details.clear();
    m_montos.clear();
    m_precios.clear();
    m_details.add();
    m_montos.add();
    m_precios.add();
}

QStringList DBTable::ListValue(int column) const {
    return trapped(u"Error al obtener lista de valores"_s, QStringList(), [column] {
        constexpr int kindColumn = 1;
        constexpr int calculationColumn = 7;
        if (column == kindColumn)
            return u",Todos,Familia,SubFamilia,Producto,TipoProducto"_s.split(u',');
        if (column == calculationColumn)
            return u",Neto,Total"_s.split(u',');
        return QStringList{QString()};
    });
}

bool DBTable::SetKeyByString(const QString&) {
    return true;
}

// The letters stand in the order R, W, X, D: the third one lets a user print and the fourth one delete.
bool DBTable::mayUse(int position, QChar letter) const {
    const QString rights = m_session.AccessRights();
    return rights.size() >= position && rights[position - 1].toUpper() == letter;
}

bool DBTable::SysAllowRead() const {
    return mayUse(1, u'R') && !SysRecordEnabled;
}

bool DBTable::SysAllowWrite() const {
    return mayUse(2, u'W') && SysRecordEnabled;
}

bool DBTable::SysAllowExecute() const {
    return mayUse(3, u'X');
}

bool DBTable::SysAllowDelete() const {
    return mayUse(4, u'D') && SysRecordFound;
}

LineList& DBTable::lines(LineKind kind) {
    switch (kind) {
    case LineKind::Monto:
        return m_montos;
    case LineKind::Precio:
        return m_precios;
    default:
        return m_details;
    }
}

bool DBTable::hasUnsavedChanges() const {
    const auto changed = [](const auto& collection) {
        if (!collection.deleted().empty())
            return true;
        for (const auto& line : collection.lines())
            if (line->SysRecordModified())
                return true;
        return false;
    };
    return SysRecordModified || changed(m_details) || changed(m_montos) || changed(m_precios);
}

void DBTable::SaveDates() {
    m_save_FechaInicio = m_FECHAINICIO;
    m_save_FechaFinal = m_FechaFinal;
}

void DBTable::ClearDates() {
    m_FECHAINICIO = {};
    m_FechaFinal = {};
    SaveDates();
}

} // namespace dalvora
