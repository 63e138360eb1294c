#include "demo/Schemes.h"

#include <span>

namespace dalvora::demo {

namespace {

struct LineEntry {
    LineKind kind;
    const char* subType;
    const char* code;
    int from;
    int to;
    int percent;
    Basis basis;
};

struct PeriodEntry {
    const char* code;
    const char* description;
    QDate start;
    QDate end;
    bool accumulates;
    std::span<const LineEntry> lines;
};

constexpr auto P = LineKind::Product;
constexpr auto M = LineKind::Amount;
constexpr auto L = LineKind::PriceList;
constexpr auto Net = Basis::Net;
constexpr auto Total = Basis::Total;

// Brackets and percentages in hundredths: 1000 is ten units or 10 %.
constexpr LineEntry general1996[] = {
    {P, "Todos", "Todos", 0, 0, 150, Net},     {M, "", "TODOS", 0, 99999, 50, Net},
    {M, "", "TODOS", 100000, 499999, 75, Net}, {M, "", "TODOS", 500000, 0, 100, Net},
    {L, "", "Todas", 0, 0, 25, Net},
};
constexpr LineEntry generalLater[] = {
    {P, "Todos", "Todos", 0, 4999, 150, Net}, {P, "Todos", "Todos", 5000, 0, 200, Net},
    {M, "", "TODOS", 0, 99999, 50, Net},      {M, "", "TODOS", 100000, 499999, 100, Net},
    {M, "", "TODOS", 500000, 0, 150, Net},    {L, "", "Todas", 0, 0, 50, Net},
};
constexpr LineEntry families[] = {
    {P, "Familia", "BEBIDAS", 0, 1999, 200, Net},    {P, "Familia", "BEBIDAS", 2000, 5999, 300, Net},
    {P, "Familia", "BEBIDAS", 6000, 0, 400, Net},    {P, "Familia", "CONDIMENTOS", 0, 0, 250, Net},
    {P, "Familia", "REPOSTERIA", 0, 2999, 200, Net}, {P, "Familia", "REPOSTERIA", 3000, 0, 350, Net},
    {P, "Familia", "LACTEOS", 0, 0, 175, Net},       {P, "Familia", "CEREALES", 0, 0, 225, Net},
    {P, "Familia", "CARNES", 0, 0, 150, Total},      {P, "Familia", "HORTALIZAS", 0, 0, 275, Net},
    {P, "Familia", "PESCADOS", 0, 2499, 225, Net},   {P, "Familia", "PESCADOS", 2500, 0, 300, Net},
};
constexpr LineEntry suppliers[] = {
    {P, "Todos", "Todos", 0, 0, 100, Net},
    {P, "SubFamilia", "PAVLOVA, LTD", 0, 0, 150, Net},
    {P, "SubFamilia", "GRANDMA KELLY'S", 0, 0, 125, Net},
    {P, "SubFamilia", "FORMAGGI FORTINI", 0, 2999, 75, Net},
    {P, "SubFamilia", "FORMAGGI FORTINI", 3000, 0, 125, Net},
    {P, "SubFamilia", "AUX JOYEUX", 0, 0, 50, Total},
    {P, "SubFamilia", "TOKYO TRADERS", 0, 0, 200, Net},
};
constexpr LineEntry products[] = {
    {P, "Producto", "038", 0, 1999, 300, Net},
    {P, "Producto", "038", 2000, 4999, 400, Net},
    {P, "Producto", "038", 5000, 0, 500, Net},
    {P, "Producto", "029", 0, 2999, 250, Net},
    {P, "Producto", "029", 3000, 0, 350, Net},
    {P, "Producto", "059", 0, 0, 275, Net},
    {P, "Producto", "060", 0, 0, 225, Net},
    {P, "Producto", "051", 0, 0, 200, Total},
    {P, "Familia", "REPOSTERIA", 0, 0, 150, Net},
    {P, "Todos", "Todos", 0, 0, 100, Net},
    {L, "", "L1997", 0, 0, 50, Net},
};
constexpr LineEntry amounts[] = {
    {M, "", "FACTURA", 0, 49999, 150, Total},   {M, "", "FACTURA", 50000, 199999, 225, Total},
    {M, "", "FACTURA", 200000, 0, 300, Total},  {M, "", "FACEXP", 0, 49999, 200, Net},
    {M, "", "FACEXP", 50000, 199999, 275, Net}, {M, "", "FACEXP", 200000, 0, 350, Net},
};
constexpr LineEntry priceLists[] = {
    {L, "", "L1996", 0, 0, 225, Net},
    {L, "", "L1997", 0, 0, 300, Net},
};
constexpr LineEntry perishables[] = {
    {P, "TipoProducto", "PERECIBLE", 0, 0, 325, Net},
    {P, "TipoProducto", "NO PERECIBLE", 0, 0, 175, Net},
    {M, "", "TODOS", 0, 0, 25, Net},
};
constexpr LineEntry mixed[] = {
    {P, "Todos", "Todos", 0, 0, 50, Net},     {P, "TipoProducto", "PERECIBLE", 0, 0, 25, Net},
    {P, "Familia", "BEBIDAS", 0, 0, 50, Net}, {P, "SubFamilia", "G'DAY, MATE", 0, 0, 75, Net},
    {P, "Producto", "038", 0, 0, 100, Net},   {M, "", "TODOS", 0, 0, 25, Net},
    {M, "", "FACEXP", 100000, 0, 50, Net},    {L, "", "Todas", 0, 0, 25, Net},
    {L, "", "L1997", 0, 0, 25, Total},
};
constexpr LineEntry campaign[] = {
    {P, "Producto", "001", 0, 0, 500, Net},
    {P, "Familia", "LACTEOS", 1000, 0, 450, Net},
    {M, "", "TODOS", 100000, 0, 100, Net},
    {L, "", "L1999", 0, 0, 100, Net},
};

std::vector<PeriodEntry> periods() {
    const QDate mid96(1996, 7, 1);
    const QDate end96(1996, 12, 31);
    const QDate start97(1997, 1, 1);
    const QDate end97(1997, 12, 31);
    const QDate start98(1998, 1, 1);
    const QDate end98(1998, 12, 31);
    return {
        {"GENERAL", "Comisión general", mid96, end96, false, general1996},
        {"GENERAL", "Comisión general", start97, end97, false, generalLater},
        {"GENERAL", "Comisión general", start98, end98, false, generalLater},
        {"FAMILIAS", "Comisión por familia y cantidad", mid96, end97, false, families},
        {"FAMILIAS", "Comisión por familia y cantidad", start98, end98, true, families},
        {"PROVEEDORES", "Comisión por proveedor (subfamilia)", mid96, end98, true, suppliers},
        {"PRODUCTOS", "Productos de campaña", mid96, end97, true, products},
        {"PRODUCTOS", "Productos de campaña", start98, end98, false, products},
        {"MONTOS", "Tramos por monto del documento", mid96, end98, false, amounts},
        {"LISTAS", "Comisión por lista de precios", mid96, end98, false, priceLists},
        {"PERECIBLES", "Productos perecibles y no perecibles", mid96, end97, false, perishables},
        {"PERECIBLES", "Productos perecibles y no perecibles", start98, end98, false, perishables},
        {"MIXTA", "Todas las clases de comisión, acumulables", mid96, end98, true, mixed},
        // Periods in which nothing was sold.
        {"CAMPAÑA", "Campaña de verano (anterior a las ventas)", QDate(1995, 1, 1), QDate(1995, 3, 31), false,
         campaign},
        {"CAMPAÑA", "Campaña de verano (posterior a las ventas)", QDate(1999, 1, 1), QDate(1999, 3, 31),
         false, campaign},
    };
}

struct Assignment {
    const char16_t* salesperson;
    const char16_t* scheme;
};

constexpr Assignment assignments[] = {
    {u"01", u"GENERAL"}, {u"02", u"MIXTA"},  {u"03", u"FAMILIAS"},   {u"04", u"PROVEEDORES"},
    {u"05", u"MONTOS"},  {u"06", u"LISTAS"}, {u"07", u"PERECIBLES"}, {u"08", u"PRODUCTOS"},
};

} // namespace

std::vector<Scheme> demonstrationSchemes() {
    std::vector<Scheme> schemes;
    for (const PeriodEntry& period : periods()) {
        Scheme scheme{QString::fromUtf8(period.code),
                      QString::fromUtf8(period.description),
                      period.start,
                      period.end,
                      period.accumulates,
                      {}};
        for (const LineEntry& line : period.lines)
            scheme.lines.push_back({line.kind, QLatin1String(line.subType), QLatin1String(line.code),
                                    line.from, line.to, line.percent, line.basis});
        schemes.push_back(std::move(scheme));
    }
    return schemes;
}

QString assignedScheme(const QString& salesperson) {
    for (const Assignment& assignment : assignments)
        if (salesperson == QStringView(assignment.salesperson))
            return QString::fromUtf16(assignment.scheme);
    return {};
}

} // namespace dalvora::demo
