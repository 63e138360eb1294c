#include "common/ShowMessage.h"
#include "common/SqlTemplate.h"
#include "data/DBTable.h"
#include "data/LineStatements.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Kind;
using quorvane::RunTimeError;

namespace {

constexpr QStringView updateHeader =
    u"UPDATE Comisiones SET "
    u"Descripcion='$Descripcion$', FechaInicio='$Fec_Inicio$', "
    u"FechaFinal='$Fec_Final$',  Porcentaje = $Porcentaje$, Acumulable = '$Acumulable$' "
    u"WHERE Empresa = '$Empresa$' and Codigo = '$Codigo$' "
    u" and fechaInicio = '$Fec_Inicio2$' and fechaFinal = '$Fec_Final2$'";

constexpr QStringView insertHeader =
    u"INSERT INTO Comisiones "
    u"( Empresa, Codigo, Descripcion, FechaInicio, FechaFinal,  Porcentaje, Acumulable )"
    u"VALUES "
    u"( '$Empresa$', '$Codigo$', '$Descripcion$','$Fec_Inicio$', '$Fec_Final$', $Porcentaje$, "
    u"'$Acumulable$') ";

// It has no company condition: the lines of every company with this code and the old period move along.
constexpr QStringView carryPeriodStatement =
    u" Update comisionesd set FechaInicio = '$Fec_Inicio$',FechaFinal = '$Fec_Final$' where "
    u" codigo = '$Codigo$' and FechaInicio = '$Fec_Inicio2$' and FechaFinal='$Fec_Final2$'";

} // namespace

bool DBTable::DBWrite(bool WithValidate) {
    SysErrorCol = 0;
    SysErrorRow = 0;
    SysErrorTable = -1;
    try {
        if (!mayUse(2, u'W')) {
            ShowMessage(u"Usuario no tiene permiso de escritura"_s, MessageWarning);
            return false;
        }
        if (WithValidate && !Validate(true))
            return false;
        m_connection.beginTrans();
        QString message;
        if (!writeRecord(message)) {
            m_connection.rollbackTrans();
            // Today every refusal brings its own message; the fixed one is for a step that forgets to.
            ShowMessage(message.isEmpty() ? u"Error al actualizar datos"_s : message, MessageInformation);
            return false;
        }
        m_connection.commitTrans();
    } catch (const RunTimeError& error) {
        const QString text = writeErrorText(error);
        m_connection.rollbackTrans();
        ShowMessage(text, MessageError);
        return false;
    }
    SysRecordEnabled = false;
    takeAsStored();
    auditCommitted(SysRecordFound ? quorvane::AuditChange : quorvane::AuditCreate);
    return true;
}

bool DBTable::writeRecord(QString& message) {
    SysErrorTable = 0;
    Grilla = 0;
    m_empresa = SysEmpresa;
    if (!writeHeader()) {
        message = u"No se grabó el registro porque ha sido modificado por otro usuario. "
                  u"Debe leer nuevamente."_s;
        return false;
    }
    if (SysRecordFound && periodChanged())
        carryPeriod();
    SysErrorTable = 1;
    // Only updates and inserts start the count anew: a delete that fails tells the count that stands, by
    // which the support people know how far the save had come.
    SysErrorRow = 0;
    writeLines(m_details, LineKind::Producto);
    writeLines(m_montos, LineKind::Monto);
    writeLines(m_precios, LineKind::Precio);
    SysErrorTable = -1;
    SysErrorRow = 0;
    Grilla = 0;
    return true;
}

bool DBTable::writeHeader() {
    const SqlTemplate form(SysRecordFound ? updateHeader : insertHeader);
    return m_connection.execute(SqlStatement(form, m_regional)
                                    .fill(u"Empresa", m_empresa, Kind::String)
                                    .fill(u"Codigo", m_Codigo, Kind::String)
                                    .fill(u"Acumulable", Acumulable, Kind::String)
                                    .fill(u"Fec_Inicio", m_FECHAINICIO, Kind::Date)
                                    .fill(u"Fec_Final", m_FechaFinal, Kind::Date)
                                    .fill(u"Fec_Inicio2", m_save_FechaInicio, Kind::Date)
                                    .fill(u"Fec_Final2", m_save_FechaFinal, Kind::Date)
                                    .fill(u"Descripcion", m_Descripcion, Kind::String)
                                    .fill(u"Porcentaje", m_Porcentaje, Kind::Double)
                                    .text()) != 0;
}

bool DBTable::periodChanged() const {
    return m_FECHAINICIO != m_save_FechaInicio || m_FechaFinal != m_save_FechaFinal;
}

void DBTable::carryPeriod() {
    const SqlTemplate form(carryPeriodStatement);
    m_connection.execute(SqlStatement(form, m_regional)
                             .fill(u"Empresa", m_empresa, Kind::String)
                             .fill(u"Codigo", m_Codigo, Kind::String)
                             .fill(u"Fec_Inicio", m_FECHAINICIO, Kind::Date)
                             .fill(u"Fec_Final", m_FechaFinal, Kind::Date)
                             .fill(u"Fec_Inicio2", m_save_FechaInicio, Kind::Date)
                             .fill(u"Fec_Final2", m_save_FechaFinal, Kind::Date)
                             .text());
}

template<class Line> void DBTable::writeLines(LineCollection<Line>& lines, LineKind kind) {
    Grilla = static_cast<int>(kind);
    if (SysRecordFound) {
        renewChangedCodes(lines);
        deleteLines(lines);
        updateLines(lines);
    }
    insertLines(lines);
}

template<class Line> void DBTable::renewChangedCodes(LineCollection<Line>& lines) {
    using Statements = LineStatements<typename LineCollection<Line>::Values>;
    for (const auto& line : lines.lines()) {
        if (!line->SysRecordFound ||
            Statements::code(*line).compare(Statements::code(line->Save), Qt::CaseInsensitive) == 0)
            continue;
        line->SysRecordFound = false;
        lines.deleted().push_back(line->Save);
    }
}

SqlStatement DBTable::lineStatement(const SqlTemplate& form) const {
    SqlStatement statement(form, m_regional);
    statement.fill(u"Empresa", m_empresa, Kind::String)
        .fill(u"Codigo", m_Codigo, Kind::String)
        .fill(u"FechaIni", m_FECHAINICIO, Kind::Date)
        .fill(u"FechaFin", m_FechaFinal, Kind::Date);
    return statement;
}

template<class Line> void DBTable::deleteLines(const LineCollection<Line>& lines) {
    using Statements = LineStatements<typename LineCollection<Line>::Values>;
    if (lines.deleted().empty())
        return;
    const SqlTemplate form(Statements::remove);
    const SqlStatement begun = lineStatement(form);
    for (const auto& saved : lines.deleted()) {
        SqlStatement statement = begun;
        Statements::fillRemove(statement, saved);
        m_connection.execute(statement.text());
    }
}

template<class Line> void DBTable::updateLines(const LineCollection<Line>& lines) {
    using Statements = LineStatements<typename LineCollection<Line>::Values>;
    const SqlTemplate form(Statements::update);
    const SqlStatement begun = lineStatement(form);
    SysErrorRow = 0;
    for (const auto& line : lines.lines()) {
        ++SysErrorRow;
        if (!line->SysRecordFound || !line->SysRecordModified() || line->SysRecordNull())
            continue;
        SqlStatement statement = begun;
        Statements::fillUpdate(statement, *line, line->Save);
        m_connection.execute(statement.text());
    }
}

template<class Line> void DBTable::insertLines(const LineCollection<Line>& lines) {
    using Statements = LineStatements<typename LineCollection<Line>::Values>;
    const SqlTemplate form(Statements::insert);
    const SqlStatement begun = lineStatement(form);
    SysErrorRow = 0;
    for (const auto& line : lines.lines()) {
        ++SysErrorRow;
        if (line->SysRecordFound || line->SysRecordNull())
            continue;
        SqlStatement statement = begun;
        Statements::fillInsert(statement, *line);
        m_connection.execute(statement.text());
    }
}

void DBTable::takeAsStored() {
    const auto take = [](auto& lines) {
        for (const auto& line : lines.lines())
            line->PostRead();
        lines.deleted().clear();
    };
    take(m_details);
    take(m_montos);
    take(m_precios);
    SysRecordModified = false;
}

QString DBTable::writeErrorText(const RunTimeError& error) const {
    const auto& reported = m_connection.errors();
    const bool duplicate = !reported.empty() && reported.back().number == quorvane::ErrorDuplicateKey;
    const QString reason =
        duplicate ? u"Ya existe un registro con esas características"_s : numberedText(error);
    const QString line = SysErrorRow > 0 ? u" (Línea %1)"_s.arg(SysErrorRow) : QString();
    return u"Error al grabar registro"_s + line + u'\n' + reason;
}

void DBTable::auditCommitted(int code) {
    try {
        m_session.Audit(code, auditText());
    } catch (const RunTimeError&) {
        // The data is stored whatever becomes of its audit entry: calling this a failed save would make the
        // user save twice.
    }
}

} // namespace dalvora
