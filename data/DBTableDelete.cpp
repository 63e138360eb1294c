#include "common/SqlTemplate.h"
#include "common/Trapped.h"
#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Kind;

namespace {

constexpr QStringView deleteHeader = u"DELETE FROM Comisiones "
                                     u"WHERE Empresa = '$Empresa$' and Codigo = '$Codigo$'  "
                                     u"and fechaInicio = '$FechaIni$' and fechaFinal = '$FechaFin$' ";

// It has no period condition: the lines of every period of this code go with the one header.
constexpr QStringView deleteLinesStatement = u"DELETE FROM ComisionesD "
                                             u"WHERE Empresa = '$Empresa$' and Codigo = '$Codigo$'  ";

} // namespace

bool DBTable::DBDelete() {
    try {
        if (!mayBeDeleted())
            return false;
        m_connection.beginTrans();
        QString message;
        if (!deleteRecord(message)) {
            m_connection.rollbackTrans();
            // Today every refusal brings its own message; the fixed one is for a step that forgets to.
            ShowMessage(message.isEmpty() ? u"Error al eliminar datos"_s : message, MessageWarning);
            return false;
        }
        m_connection.commitTrans();
    } catch (const quorvane::RunTimeError& error) {
        m_connection.rollbackTrans();
        ShowRunTimeError(u"Error al eliminar registro"_s, error);
        return false;
    }
    SysRecordEnabled = false;
    auditCommitted(quorvane::AuditDelete);
    return true;
}

bool DBTable::mayBeDeleted() const {
    if (!mayUse(4, u'D'))
        ShowMessage(u"Usuario no tiene permiso de eliminación"_s, MessageWarning);
    else if (!SysRecordEnabled)
        ShowMessage(u"Antes de eliminar debe leer un registro"_s, MessageWarning);
    else if (!SysRecordFound)
        ShowMessage(u"Registro aún no ha sido grabado"_s, MessageWarning);
    else
        return true;
    return false;
}

bool DBTable::deleteRecord(QString& message) {
    m_empresa = SysEmpresa;
    const auto filled = [this](QStringView text) {
        const SqlTemplate form(text);
        // The end date goes as a number would, which for a date is the regional short date: on a server that
        // reads dates otherwise than the user writes them, the row would not be found.
        return SqlStatement(form, m_regional)
            .fill(u"Empresa", SysEmpresa, Kind::String)
            .fill(u"Codigo", m_Codigo, Kind::String)
            .fill(u"FechaIni", m_FECHAINICIO, Kind::Date)
            .fill(u"FechaFin", m_FechaFinal, Kind::Double)
            .text();
    };
    if (m_connection.execute(filled(deleteHeader)) == 0) {
        message = u"No se eliminó el registro porque ha sido modificado por otro usuario. "
                  u"Debe leer nuevamente."_s;
        return false;
    }
    m_connection.execute(filled(deleteLinesStatement));
    return true;
}

bool DBTable::DBClear() {
    return trapped(u"Error al iniciar nuevo registro"_s, false, [this] {
        SysRecordEnabled = false;
        SysRecordFound = false;
        SysRecordModified = false;
        // The price-list lines stay: the next record shows them until carga_inicio or a read.
        m_details.clear();
        m_montos.clear();
        m_keyText.clear();
        return reset();
    });
}

/// The place for what a new record needs beyond this; nothing today.
bool DBTable::reset() {
    return true;
}

} // namespace dalvora
