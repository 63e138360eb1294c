#include "common/SqlTemplate.h"
#include "common/SqlText.h"
#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"

namespace dalvora {

using quorvane::Kind;

namespace {

constexpr QStringView typeStatement = u"SELECT TOP 1 tipodocto FROM TipoDocumento "
                                      u"WHERE empresa = '$EMPRESA$' And "
                                      u"tipodocto LIKE '$TipoDocumento$%'";

constexpr QStringView accountStatement = u"SELECT TOP 1 idCtaCte FROM documento "
                                         u"WHERE empresa = '$EMPRESA$' And "
                                         u"TipoDocto='$TipoDocto$' And "
                                         u"Numero='$Correlativo$'  ";

constexpr QStringView issuedStatement = u"SELECT TOP 1 Emitido FROM Documento "
                                        u"WHERE empresa = '$EMPRESA$' And "
                                        u"TipoDocto='$TipoDocumento$' And "
                                        u"IdCtaCte='$CtaCte$' And "
                                        u"Numero='$Numero$'";

} // namespace

QString DBTable::firstText(const SqlStatement& statement) const {
    const quorvane::Recordset row = m_connection.openRecordset(statement.text());
    return row.eof() ? QString() : FieldValue(row.value(0), Kind::String, m_regional).toText(m_regional);
}

QString DBTable::GetFORMATOTIPODOCUMENTO(const QString& TipoDocumento) const {
    static const SqlTemplate form(typeStatement);
    return firstText(SqlStatement(form, m_regional)
                         .fill(u"EMPRESA", SysEmpresa, Kind::String)
                         .fill(u"TipoDocumento", TipoDocumento, Kind::String));
}

QString DBTable::GetCTACTE(const QString& TipoDocto, const QString& Correlativo) const {
    static const SqlTemplate form(accountStatement);
    return firstText(SqlStatement(form, m_regional)
                         .fill(u"EMPRESA", SysEmpresa, Kind::String)
                         .fill(u"TipoDocto", TipoDocto, Kind::String)
                         .fill(u"Correlativo", Correlativo, Kind::String));
}

QString DBTable::GetDocEmitido(const QString& TipoDocumento, const QString& CtaCte,
                               const QString& Numero) const {
    static const SqlTemplate form(issuedStatement);
    return firstText(SqlStatement(form, m_regional)
                         .fill(u"EMPRESA", SysEmpresa, Kind::String)
                         .fill(u"TipoDocumento", TipoDocumento, Kind::String)
                         .fill(u"CtaCte", CtaCte, Kind::String)
                         .fill(u"Numero", Numero, Kind::String));
}

} // namespace dalvora
