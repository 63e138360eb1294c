#include "demo/Commission.h"

#include <algorithm>
#include <functional>

namespace dalvora::demo {

namespace {

constexpr qint64 percentUnit = 10000; // percentages are hundredths of a hundredth

struct Specificity {
    const char16_t* subType;
    QString Product::*field;
};

/// From the most general kind of product line to the most specific; "Todos" needs no field.
constexpr Specificity specificities[] = {
    {u"Todos", nullptr},
    {u"TipoProducto", &Product::type},
    {u"Familia", &Product::family},
    {u"SubFamilia", &Product::subFamily},
    {u"Producto", &Product::code},
};

constexpr int notApplicable = -1;

bool inBracket(const SchemeLine& line, Hundredths value) {
    return value >= line.from && (line.to == 0 || value <= line.to);
}

int productRank(const SchemeLine& line, const Product& product) {
    for (int rank = 0; const Specificity& entry : specificities) {
        if (line.subType == QStringView(entry.subType))
            return !entry.field || product.*entry.field == line.code ? rank : notApplicable;
        ++rank;
    }
    return notApplicable;
}

/// 0 for the code that means all, 1 for the code itself.
int codeRank(const SchemeLine& line, QStringView all, const QString& code) {
    if (line.code.compare(all, Qt::CaseInsensitive) == 0)
        return 0;
    return line.code == code ? 1 : notApplicable;
}

/// The money that the applicable lines of one kind give on an amount, in percent units. `rankOf` tells how
/// specifically a line applies.
qint64 earned(const Scheme& scheme, LineKind kind, const Amounts& amounts,
              const std::function<int(const SchemeLine&)>& rankOf) {
    qint64 sum = 0;
    const SchemeLine* chosen = nullptr;
    int chosenRank = notApplicable;
    const auto share = [&](const SchemeLine& line) {
        return (line.basis == Basis::Net ? amounts.net : amounts.withTax()) * line.percent;
    };
    for (const SchemeLine& line : scheme.lines) {
        const int rank = line.kind == kind ? rankOf(line) : notApplicable;
        if (rank == notApplicable)
            continue;
        sum += share(line);
        if (rank > chosenRank || (rank == chosenRank && line.percent > chosen->percent)) {
            chosen = &line;
            chosenRank = rank;
        }
    }
    if (scheme.accumulates)
        return sum;
    return chosen ? share(*chosen) : 0;
}

} // namespace

Commission commissionOf(const Scheme& scheme, const std::vector<Product>& products,
                        const SalesDocument& document, const std::vector<DocumentLine>& lines) {
    const Amounts amounts = amountsOf(lines);
    const Amounts decisive = amountsOf(document.lines);
    const qint64 byAmount = earned(scheme, LineKind::Amount, amounts, [&](const SchemeLine& line) {
        const Hundredths value = line.basis == Basis::Net ? decisive.net : decisive.withTax();
        return inBracket(line, value) ? codeRank(line, u"TODOS", document.type) : notApplicable;
    });
    const qint64 byPriceList = earned(scheme, LineKind::PriceList, amounts, [&](const SchemeLine& line) {
        return codeRank(line, u"Todas", document.priceList);
    });
    qint64 byQuantity = 0;
    for (const DocumentLine& sold : lines)
        byQuantity += earned(scheme, LineKind::Product, amountsOf({sold}), [&](const SchemeLine& line) {
            return inBracket(line, sold.quantity * 100) ? productRank(line, products[sold.product])
                                                        : notApplicable;
        });
    return {roundedShare(byAmount, 1, percentUnit), roundedShare(byQuantity, 1, percentUnit),
            roundedShare(byPriceList, 1, percentUnit)};
}

} // namespace dalvora::demo
