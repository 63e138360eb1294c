#include "demo/Company.h"

#include "demo/Schemes.h"
#include <algorithm>

namespace dalvora::demo {

namespace {

// Invented, save the legal representative, who is the trading data's vice president.
constexpr CompanySetting mainSettings[] = {
    {"RAZON", "Comercial Viento Norte S.A."},
    {"DIRECCION", "Avenida del Comercio 1996"},
    {"COMUNA", "Puerto Norte"},
    {"CIUDAD", "Puerto Norte"},
    {"FONO", "+00 555 0100"},
    {"CODLEGAL", "00.000.001-0"},
    {"GIRO", "Comercio mayorista de alimentos"},
    {"CODLEGALREP", "00.000.002-0"},
    {"REPLEGAL", "Andrew Fuller"},
    {"MONEDA", "USD"},
};

constexpr CompanySetting secondSettings[] = {
    {"RAZON", "Bebidas del Sur Ltda."},
    {"DIRECCION", "Calle del Muelle 98"},
    {"COMUNA", "Bahía Sur"},
    {"CIUDAD", "Bahía Sur"},
    {"FONO", "+00 555 0200"},
    {"CODLEGAL", "00.000.003-0"},
    {"GIRO", "Distribución de bebidas"},
    {"CODLEGALREP", "00.000.004-0"},
    {"REPLEGAL", "Anne Dodsworth"},
    {"MONEDA", "EUR"},
};

} // namespace

QString Company::currency() const {
    for (const CompanySetting& setting : settings)
        if (qstrcmp(setting.code, "MONEDA") == 0)
            return QString::fromUtf8(setting.text);
    return {};
}

Company mainCompany() {
    Company company;
    company.code = QStringLiteral("001");
    company.name = QStringLiteral("Comercial Viento Norte S.A.");
    company.settings = mainSettings;
    company.data = TradingData::load();
    company.schemes = demonstrationSchemes();
    company.assignedScheme = assignedScheme;
    company.documents = invoicesOf(company.data);
    for (SalesDocument& note : creditNotesOf(company.data, company.documents))
        company.documents.push_back(std::move(note));
    return company;
}

Company secondCompany() {
    const QString seller = QStringLiteral("09");
    const QDate from(1998, 4, 1);
    Company company;
    company.code = QStringLiteral("002");
    company.name = QStringLiteral("Bebidas del Sur Ltda.");
    company.settings = secondSettings;
    company.quantityDecimals = 0;
    company.onlyFamily = QStringLiteral("BEBIDAS");
    company.data = TradingData::load();
    company.unissued = 1;
    company.voided = 1;
    company.assignedScheme = [seller](const QString& salesperson) {
        return salesperson == seller ? QStringLiteral("GENERAL") : QString();
    };
    std::erase_if(company.data.orders,
                  [&](const Order& order) { return order.salesperson != seller || order.ordered < from; });
    company.documents = invoicesOf(company.data);
    std::erase_if(company.data.salespeople, [&](const Salesperson& person) {
        return person.code != seller && person.code != QLatin1String("01");
    });
    std::erase_if(company.data.customers, [&](const Customer& customer) {
        return std::none_of(
            company.documents.begin(), company.documents.end(),
            [&](const SalesDocument& document) { return document.customer == customer.account; });
    });
    for (const Scheme& scheme : demonstrationSchemes())
        if (scheme.code == QLatin1String("GENERAL"))
            company.schemes.push_back(scheme);
    return company;
}

} // namespace dalvora::demo
