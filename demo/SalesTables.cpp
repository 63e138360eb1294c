#include "demo/Company.h"
#include "demo/RowInserter.h"
#include <algorithm>

namespace dalvora::demo {

namespace {

/// Words and concept of a line as the commission program itself writes them.
void writeLine(RowInserter& lines, const Company& company, const Scheme& scheme, const SchemeLine& line) {
    const QString basis = line.basis == Basis::Net ? QStringLiteral("Neto") : QStringLiteral("Total");
    QString kind;
    QString description;
    switch (line.kind) {
    case LineKind::Product:
        kind = QStringLiteral("Producto");
        for (const Product& product : company.data.products)
            if (line.subType == QLatin1String("Producto") && product.code == line.code)
                description = product.name;
        break;
    case LineKind::Amount:
        kind = QStringLiteral("Monto");
        description = QStringLiteral(" ");
        break;
    case LineKind::PriceList:
        kind = QStringLiteral("Precio");
        description = priceListLabel(line.code);
        break;
    }
    lines.add(company.code, scheme.code, kind, line.code, description, Amount{line.from}, Amount{line.to},
              Amount{line.percent}, scheme.start, scheme.end, line.subType, basis);
}

void writeDocumentLines(RowInserter& lines, const Company& company, const SalesDocument& document) {
    int number = 0;
    for (const DocumentLine& line : document.lines)
        lines.add(company.code, document.type, QString::number(document.number), document.customer, ++number,
                  company.data.products[line.product].code, line.quantity, Amount{line.price}, line.discount,
                  Amount{line.net}, Amount{line.tax});
}

} // namespace

void writeSchemes(RowTarget& target, const Company& company) {
    RowInserter headers(target, "Comisiones",
                        "Empresa, Codigo, Descripcion, FechaInicio, FechaFinal, Porcentaje, Acumulable");
    RowInserter lines(target, "ComisionesD",
                      "Empresa, Codigo, Tipo, Concepto, Descripcion, CantidadInicio, CantidadFinal, "
                      "Porcentaje, FechaInicio, FechaFinal, SubTipo, Calculo");
    for (const Scheme& scheme : company.schemes) {
        headers.add(company.code, scheme.code, scheme.description, scheme.start, scheme.end, 0,
                    scheme.accumulates ? "S" : "N");
        for (const SchemeLine& line : scheme.lines)
            writeLine(lines, company, scheme, line);
    }
}

std::optional<Commission> commissionOf(const Company& company, const SalesDocument& document) {
    const SalesDocument& deciding =
        document.invoice < 0 ? document : company.documents[static_cast<std::size_t>(document.invoice)];
    const QString code = company.assignedScheme(document.salesperson);
    const auto scheme =
        std::find_if(company.schemes.begin(), company.schemes.end(), [&](const Scheme& candidate) {
            return candidate.code == code && candidate.covers(deciding.date);
        });
    if (scheme == company.schemes.end())
        return std::nullopt;
    return commissionOf(*scheme, company.data.products, deciding, document.lines);
}

void writeDocuments(RowTarget& target, const Company& company) {
    RowInserter documents(target, "documento",
                          "Empresa, TipoDocto, Numero, IdCtaCte, TipoCtaCte, Correlativo, Fecha, Vendedor, "
                          "LisPrecio, Moneda, Neto, Impuesto, Flete, Total, Emitido, Vigencia, "
                          "ComisionMonto, ComisionCantidad, ComisionlPrecio");
    RowInserter lines(target, "documentod",
                      "Empresa, TipoDocto, Numero, IdCtaCte, Linea, Producto, Cantidad, Precio, Descuento, "
                      "Neto, Impuesto");
    int position = 0;
    for (const SalesDocument& document : company.documents) {
        const Amounts amounts = amountsOf(document.lines);
        const std::optional<Commission> commission = commissionOf(company, document);
        const auto part = [&](Hundredths Commission::*kind) {
            return commission ? std::optional(Amount{(*commission).*kind}) : std::nullopt;
        };
        const bool issued = position >= company.unissued;
        const bool voided = issued && position < company.unissued + company.voided;
        documents.add(company.code, document.type, QString::number(document.number), document.customer,
                      "CLIENTE", document.number, document.date, document.salesperson, document.priceList,
                      company.currency(), Amount{amounts.net}, Amount{amounts.tax}, Amount{document.freight},
                      Amount{amounts.withTax() + document.freight}, issued ? "S" : "N", voided ? "A" : "V",
                      part(&Commission::byAmount), part(&Commission::byQuantity),
                      part(&Commission::byPriceList));
        writeDocumentLines(lines, company, document);
        ++position;
    }
}

} // namespace dalvora::demo
