#include "demo/Company.h"
#include "demo/Labels.h"
#include "demo/RowInserter.h"
#include <QSet>
#include <algorithm>

namespace dalvora::demo {

namespace {

struct Currency {
    const char* code;
    const char* label;
    int decimals;
};

constexpr Currency currencies[] = {
    {"USD", "Dólar estadounidense", 2},
    {"EUR", "Euro", 2},
    {"CLP", "Peso chileno", 0},
};

struct DocumentType {
    const char* code;
    const char* label;
    const char* documentClass;
    const char* system;
    const char* valued;
    const char* salesperson;
    int factor;
};

constexpr DocumentType documentTypes[] = {
    {"FACTURA", "Factura de venta", "factura", "ventas", "S", "S", 1},
    {"FACEXP", "Factura de exportación", "factura", "ventas", "S", "S", 1},
    {"BOLETA", "Boleta de venta", "boleta", "ventas", "S", "S", 1},
    {"NCREDITO", "Nota de crédito", "ncredito", "ventas", "S", "S", -1},
    {"COTIZACION", "Cotización", "cotizacion", "ventas", "N", "S", 0},
    {"GUIA", "Guía de despacho", "guia", "bodega", "N", "N", 0},
    {"FACCOMPRA", "Factura de compra", "factura", "compras", "S", "N", 0},
};

struct PriceList {
    const char16_t* code;
    const char* label;
    QDate start;
    QDate end;
};

/// L1995 had ended and L1999 had not begun when the first and the last order came.
std::vector<PriceList> priceLists() {
    return {
        {u"L1995", "Precios 1995", QDate(1995, 1, 1), QDate(1996, 6, 30)},
        {firstPriceList, "Precios 1996", QDate(1996, 7, 1), QDate(1997, 4, 30)},
        {secondPriceList, "Precios 1997-1998", QDate(1997, 4, 1), QDate(1998, 12, 31)},
        {u"L1999", "Precios 1999", QDate(1999, 1, 1), QDate(1999, 12, 31)},
    };
}

bool isSold(const Company& company, const Product& product) {
    return company.onlyFamily.isEmpty() || product.family == company.onlyFamily;
}

void writeSettings(RowInserter& codes, const Company& company) {
    for (const CompanySetting& setting : company.settings)
        codes.add(company.code, "CONFIG.EMPRESA", setting.code, "", setting.text, 0, 0);
    codes.add(company.code, "CONFIG.DALVORA", "DECIMALES.CANTIDAD", "Decimales de cantidades", "",
              company.quantityDecimals, 0);
    for (const Currency& currency : currencies)
        codes.add(company.code, "GEN_MONEDA", currency.code, currency.label, "", 0, currency.decimals);
    for (const Salesperson& person : company.data.salespeople)
        codes.add(company.code, "GEN_VENDEDOR", person.code, person.name, company.assignedScheme(person.code),
                  0, 0);
}

QString familyLabel(const QString& code) {
    return QString::fromUtf8(categoryLabelOfCode(code).label);
}

/// The groups that products belong to, each once, with their labels.
void writeProductGroups(RowInserter& codes, const Company& company) {
    QSet<QString> written;
    const auto addOnce = [&](const char* type, const QString& code, const QString& label) {
        if (written.contains(QLatin1String(type) + code))
            return;
        written.insert(QLatin1String(type) + code);
        codes.add(company.code, type, code, label, "", 0, 0);
    };
    for (const Product& product : company.data.products) {
        if (!isSold(company, product))
            continue;
        const auto supplier =
            std::find_if(company.data.suppliers.begin(), company.data.suppliers.end(),
                         [&](const Supplier& candidate) { return candidate.account == product.supplier; });
        addOnce("FAMILIA", product.family, familyLabel(product.family));
        addOnce("SUBFAMILIA", product.subFamily, supplier->name);
        addOnce("TIPOPRODUCTO", product.type,
                product.type == QStringView(perishableType) ? QStringLiteral("Productos perecibles")
                                                            : QStringLiteral("Productos no perecibles"));
    }
}

void writeProducts(RowTarget& target, const Company& company) {
    RowInserter products(target, "producto",
                         "Empresa, Producto, Glosa, Familia, SubFamilia, TipoProducto, Unidad, PrecioVenta, "
                         "Vigente");
    RowInserter relations(target, "relctacteprod", "Empresa, TipoCtaCte, CtaCte, Producto, Unidad");
    for (const Product& product : company.data.products) {
        if (!isSold(company, product))
            continue;
        products.add(company.code, product.code, product.name, product.family, product.subFamily,
                     product.type, product.unit, Amount{product.price}, product.discontinued ? "N" : "S");
        relations.add(company.code, "PROVEEDOR", product.supplier, product.code, product.unit);
    }
}

void writeAccounts(RowTarget& target, const Company& company) {
    RowInserter accounts(target, "ctacte",
                         "Empresa, TipoCtaCte, CtaCte, RazonSocial, CodLegal, Ciudad, Pais");
    // The data holds no legal codes: the account's own code stands for it.
    for (const Customer& customer : company.data.customers)
        accounts.add(company.code, "CLIENTE", customer.account, customer.name, customer.account,
                     customer.city, customer.country);
    for (const Supplier& supplier : company.data.suppliers)
        if (std::any_of(company.data.products.begin(), company.data.products.end(),
                        [&](const Product& product) {
                            return product.supplier == supplier.account && isSold(company, product);
                        }))
            accounts.add(company.code, "PROVEEDOR", supplier.account, supplier.name, supplier.account, "",
                         supplier.country);
}

void writeDocumentTypes(RowTarget& target, const Company& company) {
    RowInserter types(target, "tipodocumento",
                      "Empresa, TipoDocto, Descripcion, Clase, Sistema, Valorizado, Vendedor, FactorMonto");
    for (const DocumentType& type : documentTypes)
        types.add(company.code, type.code, type.label, type.documentClass, type.system, type.valued,
                  type.salesperson, type.factor);
    RowInserter lists(target, "ListaPrecio", "Empresa, LisPrecio, Descripcion, FechaInicio, FechaFinal");
    for (const PriceList& list : priceLists())
        lists.add(company.code, QString::fromUtf16(list.code), list.label, list.start, list.end);
}

} // namespace

QString priceListLabel(const QString& code) {
    for (const PriceList& list : priceLists())
        if (code == QStringView(list.code))
            return QString::fromUtf8(list.label);
    return {};
}

void writeMasterTables(RowTarget& target, const Company& company) {
    RowInserter codes(target, "gen_tabcod", "Empresa, Tipo, Codigo, Descripcion, Texto, Valor1, Valor2");
    writeSettings(codes, company);
    writeProductGroups(codes, company);
    writeProducts(target, company);
    writeAccounts(target, company);
    writeDocumentTypes(target, company);
}

} // namespace dalvora::demo
