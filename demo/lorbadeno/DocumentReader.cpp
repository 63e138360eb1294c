#include "demo/lorbadeno/DocumentReader.h"
#include "common/SqlTemplate.h"
#include "common/SqlText.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/session/Profile.h"

namespace dalvora::lorbadeno {

using namespace Qt::StringLiterals;
using quorvane::Kind;
using quorvane::Recordset;
using quorvane::RunTimeError;

namespace {

constexpr QStringView documentStatement = u"SELECT * FROM documento "
                                          u"WHERE Empresa = '$Empresa$' AND TipoDocto = '$TipoDocto$' "
                                          u"AND Numero = '$Numero$' AND IdCtaCte = '$CtaCte$'";

constexpr QStringView typeStatement = u"SELECT Descripcion FROM tipodocumento "
                                      u"WHERE Empresa = '$Empresa$' AND TipoDocto = '$TipoDocto$'";

constexpr QStringView customerStatement = u"SELECT * FROM ctacte WHERE Empresa = '$Empresa$' "
                                          u"AND TipoCtaCte = '$TipoCtaCte$' AND CtaCte = '$CtaCte$'";

constexpr QStringView priceListStatement = u"SELECT Descripcion FROM ListaPrecio "
                                           u"WHERE Empresa = '$Empresa$' AND LisPrecio = '$LisPrecio$'";

constexpr QStringView generalStatement = u"SELECT * FROM gen_tabcod WHERE Empresa = '$Empresa$' "
                                         u"AND Tipo = '$Tipo$' AND Codigo = '$Codigo$'";

constexpr QStringView lineStatement =
    u"SELECT l.Producto, p.Glosa, l.Cantidad, l.Precio, l.Descuento, l.Neto "
    u"FROM documentod l LEFT JOIN producto p ON p.Empresa = l.Empresa AND p.Producto = l.Producto "
    u"WHERE l.Empresa = '$Empresa$' AND l.TipoDocto = '$TipoDocto$' "
    u"AND l.Numero = '$Numero$' AND l.IdCtaCte = '$CtaCte$' ORDER BY l.Linea";

/// The embedded database's number for a statement that names what is not there.
constexpr int missingTable = 1;

/// Texts by the names of their placeholders.
using Texts = std::initializer_list<std::pair<QStringView, QString>>;

QString filled(QStringView statement, const quorvane::RegionalSettings& regional, Texts texts) {
    const SqlTemplate form(statement);
    SqlStatement sql(form, regional);
    for (const auto& [name, value] : texts)
        sql.fill(name, value, Kind::String);
    return sql.text();
}

QString placeOf(const QString& city, const QString& country) {
    return city.isEmpty() || country.isEmpty() ? city + country : city + u", "_s + country;
}

} // namespace

StoredDocument DocumentReader::read(const DocumentRequest& request) {
    requireCompany(request.company);
    StoredDocument document;
    readHeader(document, request);
    readLines(document, request);
    return document;
}

void DocumentReader::requireCompany(const QString& code) {
    const auto profile = quorvane::Profile::load(m_folder);
    if (!profile.companies.contains(code, Qt::CaseInsensitive))
        throw RunTimeError(quorvane::ErrorInvalidCall, u"No existe la empresa %1"_s.arg(code));
    auto options = quorvane::ConnectString::parse(profile.resolvedConnectString(m_folder));
    options.setValue(u"ReadOnly"_s, u"S"_s);
    if (m_connection.connectString() != options.toString())
        m_connection.open(options.toString());
}

void DocumentReader::readHeader(StoredDocument& document, const DocumentRequest& request) {
    const Recordset row = m_connection.openRecordset(filled(documentStatement, m_regional,
                                                            {{u"Empresa", request.company},
                                                             {u"TipoDocto", request.type},
                                                             {u"Numero", request.number},
                                                             {u"CtaCte", request.account}}));
    if (row.eof())
        throw RunTimeError(quorvane::ErrorNoCurrentRecord,
                           u"No existe el documento %1 %2 de la cuenta corriente «%3»"_s.arg(
                               request.type, request.number, request.account));
    document.type.code = text(row, u"TipoDocto");
    document.number = text(row, u"Numero");
    document.date =
        quorvane::Date(FieldValue(row.value(u"Fecha"), Kind::Date, m_regional).toNumber(m_regional));
    document.customer.code = text(row, u"IdCtaCte");
    document.salesperson.code = text(row, u"Vendedor");
    document.priceList.code = text(row, u"LisPrecio");
    document.currency.code = text(row, u"Moneda");
    document.issued = text(row, u"Emitido") == u"S";
    document.voided = text(row, u"Vigencia") == u"A";
    document.net = number(row, u"Neto");
    document.tax = number(row, u"Impuesto");
    document.freight = number(row, u"Flete");
    document.total = number(row, u"Total");
    readNames(document, request.company, text(row, u"TipoCtaCte"));
}

void DocumentReader::readNames(StoredDocument& document, const QString& company, const QString& accountKind) {
    const auto first = [&](QStringView statement, Texts texts) {
        return m_connection.openRecordset(filled(statement, m_regional, texts));
    };
    const auto label = [&](const Recordset& row) {
        return row.eof() ? QString() : text(row, u"Descripcion");
    };
    document.type.label =
        label(first(typeStatement, {{u"Empresa", company}, {u"TipoDocto", document.type.code}}));
    document.priceList.label =
        label(first(priceListStatement, {{u"Empresa", company}, {u"LisPrecio", document.priceList.code}}));
    document.salesperson.label =
        generalText(company, u"GEN_VENDEDOR"_s, document.salesperson.code, u"Descripcion");
    document.currency.label = generalText(company, u"GEN_MONEDA"_s, document.currency.code, u"Descripcion");
    bool known = false;
    const int decimals =
        generalText(company, u"GEN_MONEDA"_s, document.currency.code, u"Valor2").toInt(&known);
    constexpr int mostDecimals = 6;
    if (known)
        document.decimals = std::clamp(decimals, 0, mostDecimals);
    const QString own = u"CONFIG.EMPRESA"_s;
    document.company = {company, generalText(company, own, u"RAZON"_s, u"Texto")};
    document.companyCode = generalText(company, own, u"CODLEGAL"_s, u"Texto");
    document.companyAddress = placeOf(generalText(company, own, u"DIRECCION"_s, u"Texto"),
                                      generalText(company, own, u"CIUDAD"_s, u"Texto"));
    const Recordset customer =
        first(customerStatement,
              {{u"Empresa", company}, {u"TipoCtaCte", accountKind}, {u"CtaCte", document.customer.code}});
    if (customer.eof())
        return;
    document.customer.label = text(customer, u"RazonSocial");
    document.customerCode = text(customer, u"CodLegal");
    document.customerPlace = placeOf(text(customer, u"Ciudad"), text(customer, u"Pais"));
}

void DocumentReader::readLines(StoredDocument& document, const DocumentRequest& request) {
    try {
        Recordset row = m_connection.openRecordset(filled(lineStatement, m_regional,
                                                          {{u"Empresa", request.company},
                                                           {u"TipoDocto", request.type},
                                                           {u"Numero", request.number},
                                                           {u"CtaCte", request.account}}));
        for (; !row.eof(); row.moveNext())
            document.lines.push_back({{text(row, u"Producto"), text(row, u"Glosa")},
                                      number(row, u"Cantidad"),
                                      number(row, u"Precio"),
                                      number(row, u"Descuento"),
                                      number(row, u"Neto")});
        document.linesKept = true;
    } catch (const RunTimeError& error) {
        // A database made before lines were kept has no such table: the document is shown without them.
        if (error.number() != missingTable)
            throw;
    }
}

QString DocumentReader::generalText(const QString& company, const QString& kind, const QString& code,
                                    QStringView field) {
    const Recordset row = m_connection.openRecordset(
        filled(generalStatement, m_regional, {{u"Empresa", company}, {u"Tipo", kind}, {u"Codigo", code}}));
    return row.eof() ? QString() : text(row, field);
}

QString DocumentReader::text(const Recordset& row, QStringView name) const {
    return FieldValue(row.value(name), Kind::String, m_regional).toText(m_regional);
}

double DocumentReader::number(const Recordset& row, QStringView name) const {
    return FieldValue(row.value(name), Kind::Double, m_regional).toNumber(m_regional);
}

} // namespace dalvora::lorbadeno
