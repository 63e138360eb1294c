#include "common/SqlTemplate.h"
#include "common/SqlText.h"
#include "common/Trapped.h"
#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"
#include <limits>

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Kind;
using quorvane::Recordset;

namespace {

constexpr QStringView currenciesStatement =
    u"Select codigo, valor2 from gen_tabcod where empresa = '$EMPRESA$' and tipo = 'GEN_MONEDA'";

constexpr QStringView localCurrencyStatement = u"select a.texto from gen_tabcod a, gen_tabcod b "
                                               u"where a.empresa = '$EMPRESA$' and a.tipo = 'CONFIG.EMPRESA' "
                                               u"and a.codigo = 'MONEDA' and a.empresa = b.empresa "
                                               u"and b.tipo = 'GEN_MONEDA' and b.codigo = a.texto";

constexpr QStringView unitsStatement =
    u"select distinct unidad from relctacteprod where empresa ='$EMPRESA$' "
    u"union "
    u"select distinct producto.unidad from producto where empresa='$EMPRESA$' "
    u"order by unidad";

constexpr QStringView decimalsStatement = u"Select valor1 from gen_tabcod where  empresa = '$EMPRESA$' "
                                          u"and tipo = 'config.dalvora' and codigo ='DECIMALES.CANTIDAD'";

constexpr QStringView wholeFormat = u"###,##0";

/// A number of decimals as the ERP keeps it, 16 bits wide; error 6 beyond.
qint16 decimalsOf(const quorvane::Value& field, const quorvane::RegionalSettings& regional) {
    const qint32 number = *FieldValue(field, Kind::Integer, regional).get<qint32>();
    if (number < std::numeric_limits<qint16>::min() || number > std::numeric_limits<qint16>::max())
        quorvane::raise(quorvane::ErrorOverflow);
    return static_cast<qint16>(number);
}

QString textOf(const quorvane::Value& field, const quorvane::RegionalSettings& regional) {
    return FieldValue(field, Kind::String, regional).toText(regional);
}

QString withDecimals(QStringView format, int decimals) {
    return format.toString() + u'.' + QString(qMax(decimals, 0), u'0');
}

} // namespace

bool DBTable::DBInitialize() {
    try {
        SysEmpresa = m_session.CompanyCode();
        // The audit text of a read begins with the company that the record had before it: from the first one
        // on.
        m_empresa = SysEmpresa;
        m_session.Audit(quorvane::AuditStart, QString());
        if (!loadConfiguration()) {
            m_session.Audit(quorvane::AuditEnd, QString());
            return false;
        }
        DBClear();
        return LoadReportsList() == 0;
    } catch (const quorvane::RunTimeError& error) {
        // This one message joins number and description without a blank.
        ShowMessage(u"Error al inicializar la aplicación\n%1 -"_s.arg(error.number()) + error.description(),
                    MessageError);
        return false;
    }
}

bool DBTable::loadConfiguration() {
    QString missing;
    // Currencies take their formats from the record's first format, not from the quantity decimals, which
    // are read last.
    if (!loadCurrencies())
        missing += u"- Definición de monedas en parámetros generales.\n"_s;
    if (!loadLocalCurrency())
        missing += u"- Definición de moneda local en parámetros o en la tabla de monedas.\n"_s;
    loadUnits();
    if (!missing.isEmpty()) {
        ShowMessage(u"No existe la siguiente configuración.\n\n"_s + missing, MessageInformation);
        return false;
    }
    loadDecimals();
    return true;
}

Recordset DBTable::openConfiguration(QStringView statement) {
    const SqlTemplate form(statement);
    return m_connection.openRecordset(
        SqlStatement(form, m_regional).fill(u"EMPRESA", SysEmpresa, Kind::String).text());
}

bool DBTable::loadCurrencies() {
    m_currencies.clear();
    for (Recordset row = openConfiguration(currenciesStatement); !row.eof(); row.moveNext()) {
        const int decimals = decimalsOf(row.value(u"VALOR2"), m_regional);
        m_currencies.push_back({textOf(row.value(u"CODIGO"), m_regional), decimals,
                                decimals > 0 ? withDecimals(SysFormatNum, decimals) : SysFormatNum});
    }
    return !m_currencies.empty();
}

bool DBTable::loadLocalCurrency() {
    const Recordset row = openConfiguration(localCurrencyStatement);
    if (row.eof())
        return false;
    SysMoneda = textOf(row.value(u"texto"), m_regional);
    return true;
}

void DBTable::loadUnits() {
    m_units.clear();
    for (Recordset row = openConfiguration(unitsStatement); !row.eof(); row.moveNext())
        m_units += textOf(row.value(u"Unidad"), m_regional);
}

void DBTable::loadDecimals() {
    const Recordset row = openConfiguration(decimalsStatement);
    // A company without this setting goes on with the format that stands: nobody is told.
    if (row.eof())
        return;
    SysDecimales = decimalsOf(row.value(u"valor1"), m_regional);
    // No decimals leave a bare point behind: the format is always built with one.
    SysFormatNum = withDecimals(wholeFormat, SysDecimales);
}

void DBTable::DBTerminate() {
    try {
        m_session.Audit(quorvane::AuditEnd, QString());
    } catch (const quorvane::RunTimeError& error) {
        ShowRunTimeError(u"Error al terminar la aplicación"_s, error);
    }
}

} // namespace dalvora
