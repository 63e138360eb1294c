#include "reports/processing/ReportStatements.h"
#include "common/SqlTemplate.h"
#include "common/SqlText.h"
#include "data/DBTable.h"

namespace dalvora {

using quorvane::Kind;

namespace {

// Credit notes (classes that begin with "ncr") count negative. There is no ORDER BY: the report sorts. The
// code of the filter plays no part: a salesperson's documents are listed whatever scheme they earned by.
constexpr QStringView documentsStatement =
    u"Select d.vendedor,d.TipoDocto,d.Correlativo,d.numero,"
    u" (case when td.clase like 'ncr%' then coalesce(d.ComisionMonto,0)    * -1 else "
    u"coalesce(d.ComisionMonto,0)    end) as ComisionMonto,"
    u" (case when td.clase like 'ncr%' then coalesce(d.ComisionCantidad,0) * -1 else "
    u"coalesce(d.ComisionCantidad,0) end) as ComisionCantidad,"
    u" (case when td.clase like 'ncr%' then coalesce(d.ComisionlPrecio,0)  * -1 else "
    u"coalesce(d.ComisionlPrecio,0) end) as ComisionlPrecio"
    u" , d.idctacte, isnull(cta.RazonSocial, '' ) RazonSocial,  isnull(cta.codLegal, '') CodLegal, d.Fecha, "
    u"d.total,d.neto "
    u" from tipodocumento td, documento d LEFT JOIN ctacte cta ON  "
    u" d.empresa = cta.empresa And d.tipoctacte = cta.tipoctacte AND d.idctacte = cta.ctacte"
    u" where d.empresa =  '$Empresa$' AND td.factormonto <> 0 AND emitido='S' "
    u" and d.vendedor <> '' and td.empresa = d.empresa and d.tipodocto = td.tipodocto"
    u" and d.vigencia <> 'a' ";
constexpr QStringView documentsFrom = u" and fecha >= '$FechaIniF$'";
constexpr QStringView documentsUntil = u" and fecha <= '$FechaFinF$'";

// A scheme is listed when its validity overlaps the period.
constexpr QStringView schemesStatement =
    u"select c.codigo, c.descripcion, c.fechaInicio, c.fechafinal, c.acumulable, cd.tipo, "
    u" cd.descripcion as  'DescripcionDetalle', cd.concepto,cd.porcentaje, cd.cantidadInicio, "
    u" cd.cantidadfinal, cd.subtipo, cd.calculo "
    u" from comisiones c left join comisionesd cd on "
    u" c.empresa = cd.empresa and c.codigo = cd.codigo and c.fechaInicio = cd.fechainicio"
    u" and c.fechafinal = cd.fechafinal "
    u" where c.Empresa = '$Empresa$' ";
constexpr QStringView schemesUntil = u" and c.fechaInicio <= '$FechaFinF$' ";
constexpr QStringView schemesFrom = u" and c.fechaFinal >= '$FechaIniF$'";
constexpr QStringView schemesCode = u" and c.codigo = '$CodigoF$'";
constexpr QStringView schemesOrder = u" order by c.codigo, c.FechaInicio, c.FechaFinal, cd.tipo ";

constexpr QStringView headerColumns = u"Select "
                                      u"T01.TEXTO  CfgEmpresa,"
                                      u"T02.TEXTO as CfgDireccion,"
                                      u"T03.TEXTO as CfgComuna,"
                                      u"T04.TEXTO as CfgCiudad,"
                                      u"T05.TEXTO CfgTelefono,"
                                      u"T06.TEXTO CfgCodigoLegal,"
                                      u"T07.TEXTO CfgGiro,"
                                      u"T08.TEXTO CfgRutRepLegal,"
                                      u"T09.TEXTO CfgRepLegal,"
                                      u"'$USUARIO$' CfgUsuario";

// One row of the general code table a datum. The join is a cross join: a missing row leaves none at all, and
// the heading stays as the definition has it.
constexpr QStringView headerTables =
    u" FROM (SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='RAZON') T01,"
    u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='DIRECCION') T02,"
    u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='COMUNA') T03,"
    u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='CIUDAD') T04,"
    u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='FONO') T05,"
    u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='CODLEGAL') T06,"
    u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='GIRO') T07,"
    u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='CODLEGALREP') T08,"
    u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '$EMPRESA$' AND TIPO='CONFIG.EMPRESA' "
    u"AND CODIGO='REPLEGAL') T09";

QString documentsOf(const DBTable& record) {
    QString sql = documentsStatement.toString();
    if (!record.FechaIniFiltro.isEmpty())
        sql += documentsFrom;
    if (!record.FechaFinFiltro.isEmpty())
        sql += documentsUntil;
    return sql;
}

QString schemesOf(const DBTable& record) {
    QString sql = schemesStatement.toString();
    if (!record.FechaFinFiltro.isEmpty())
        sql += schemesUntil;
    if (!record.FechaIniFiltro.isEmpty())
        sql += schemesFrom;
    if (!record.FiltroCodComisiones.isEmpty())
        sql += schemesCode;
    sql += schemesOrder;
    return sql;
}

/// The column of the subtitle, which names the period; an open end is the database's first day or today.
QString subtitleColumn(const DBTable& record, const QString& today) {
    const QString start =
        record.FechaIniFiltro.isEmpty() ? QStringLiteral("01/01/1900") : QStringLiteral("$FechaIniF$");
    const QString end = record.FechaFinFiltro.isEmpty() ? today : QStringLiteral("$FechaFinF$");
    return QStringLiteral(",'Periodo desde %1 hasta %2' CfgSubtitulo").arg(start, end);
}

} // namespace

QString rowsStatement(const DBTable& record, const QString& company) {
    const bool bySalesperson = record.reportName.contains(u"VENDEDOR", Qt::CaseInsensitive);
    const QString sql = bySalesperson ? documentsOf(record) : schemesOf(record);
    const SqlTemplate form(sql);
    return SqlStatement(form, record.regional())
        .fill(u"Empresa", company, Kind::String)
        .fill(u"CodigoF", record.FiltroCodComisiones, Kind::String)
        .fill(u"FechaIniF", record.FechaIniFiltro, Kind::Date)
        .fill(u"FechaFinF", record.FechaFinFiltro, Kind::Date)
        .text();
}

QString headerStatement(const DBTable& record, const ReportReader& reader) {
    const QString today = SqlText(reader.today, Kind::Date, record.regional());
    const QString sql = headerColumns.toString() + subtitleColumn(record, today) + headerTables.toString();
    const SqlTemplate form(sql);
    // Company and user stand as they are: a quote in one of them ends its text, and the heading then fails
    // with the database's error while the report itself is shown.
    return SqlStatement(form, record.regional())
        .fillText(u"EMPRESA", reader.company)
        .fillText(u"USUARIO", reader.user)
        .fill(u"FechaIniF", record.FechaIniFiltro, Kind::Date)
        .fill(u"FechaFinF", record.FechaFinFiltro, Kind::Date)
        .text();
}

} // namespace dalvora
