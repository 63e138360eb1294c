#include "demo/Commission.h"

#include "demo/Company.h"
#include "demo/Schemes.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using namespace dalvora::demo;

/// A product of every group and a document that sells 10 and 30 units of two of them.
class CommissionTest : public testing::Test {
protected:
    CommissionTest() {
        products.resize(2);
        products[0].code = QStringLiteral("A");
        products[0].family = QStringLiteral("FAM");
        products[0].subFamily = QStringLiteral("SUB");
        products[0].type = QStringLiteral("TIPO");
        products[1].code = QStringLiteral("B");
        document.type = QStringLiteral("FACTURA");
        document.priceList = QStringLiteral("L1");
        document.lines = {{0, 10, 10000, 1900}, {1, 30, 20000, 3800}};
    }

    Commission commission() const { return commissionOf(scheme, products, document, document.lines); }
    void product(const char* subType, const char* code, Hundredths percent, Hundredths from = 0,
                 Hundredths to = 0, Basis basis = Basis::Net) {
        scheme.lines.push_back(
            {LineKind::Product, QLatin1String(subType), QLatin1String(code), from, to, percent, basis});
    }

    std::vector<Product> products;
    SalesDocument document;
    Scheme scheme;
};

TEST_F(CommissionTest, AnEmptySchemeEarnsNothing) {
    EXPECT_EQ(commission(), Commission());
}

TEST_F(CommissionTest, AllProductsEarnOnEveryLine) {
    product("Todos", "Todos", 200);
    EXPECT_EQ(commission().byQuantity, 600); // 2 % of 300.00
    scheme.lines.back().basis = Basis::Total;
    EXPECT_EQ(commission().byQuantity, 714); // 2 % of 357.00
}

TEST_F(CommissionTest, TheMostSpecificLineCountsWhenPercentagesDoNotAccumulate) {
    product("Producto", "A", 100);
    product("SubFamilia", "SUB", 200);
    product("Familia", "FAM", 300);
    product("TipoProducto", "TIPO", 400);
    product("Todos", "Todos", 500);
    EXPECT_EQ(commission().byQuantity, 100 + 1000);
    scheme.lines.erase(scheme.lines.begin());
    EXPECT_EQ(commission().byQuantity, 200 + 1000);
    scheme.lines.erase(scheme.lines.begin());
    EXPECT_EQ(commission().byQuantity, 300 + 1000);
    scheme.lines.erase(scheme.lines.begin());
    EXPECT_EQ(commission().byQuantity, 400 + 1000);
}

TEST_F(CommissionTest, AllLinesCountWhenPercentagesAccumulate) {
    scheme.accumulates = true;
    product("Producto", "A", 100);
    product("Familia", "FAM", 300);
    product("Todos", "Todos", 500);
    EXPECT_EQ(commission().byQuantity, 100 + 300 + 500 + 1000);
}

TEST_F(CommissionTest, OfEquallySpecificLinesTheHighestPercentageCounts) {
    product("Producto", "A", 100);
    product("Producto", "A", 300);
    product("Producto", "A", 200);
    EXPECT_EQ(commission().byQuantity, 300);
}

TEST_F(CommissionTest, ABracketHoldsBothItsEndsAndZeroLeavesItOpen) {
    product("Todos", "Todos", 100, 1000, 3000);
    EXPECT_EQ(commission().byQuantity, 300);
    scheme.lines.back().from = 1001;
    EXPECT_EQ(commission().byQuantity, 200);
    scheme.lines.back().to = 2999;
    EXPECT_EQ(commission().byQuantity, 0);
    scheme.lines.back().to = 0;
    EXPECT_EQ(commission().byQuantity, 200);
}

TEST_F(CommissionTest, AmountLinesGoByDocumentTypeAndAmount) {
    const auto amount = [&](const char* type, Hundredths percent, Hundredths from, Hundredths to,
                            Basis basis) {
        scheme.lines.push_back({LineKind::Amount, QString(), QLatin1String(type), from, to, percent, basis});
    };
    amount("BOLETA", 5000, 0, 0, Basis::Net);
    EXPECT_EQ(commission().byAmount, 0);
    amount("todos", 100, 0, 30000, Basis::Net);
    EXPECT_EQ(commission().byAmount, 300);
    amount("FACTURA", 50, 35700, 0, Basis::Total);
    EXPECT_EQ(commission().byAmount, 179); // 0.5 % of 357.00 is 1.785
    scheme.accumulates = true;
    EXPECT_EQ(commission().byAmount, 479);
}

TEST_F(CommissionTest, PriceListLinesGoByTheDocumentsList) {
    scheme.lines.push_back({LineKind::PriceList, QString(), QStringLiteral("L2"), 0, 0, 900, Basis::Net});
    EXPECT_EQ(commission().byPriceList, 0);
    scheme.lines.push_back({LineKind::PriceList, QString(), QStringLiteral("Todas"), 0, 0, 100, Basis::Net});
    EXPECT_EQ(commission().byPriceList, 300);
    scheme.lines.push_back({LineKind::PriceList, QString(), QStringLiteral("L1"), 0, 0, 50, Basis::Net});
    EXPECT_EQ(commission().byPriceList, 150);
}

TEST_F(CommissionTest, AReturnTakesBackAtThePercentageThatTheSaleEarned) {
    scheme.lines.push_back(
        {LineKind::Amount, QString(), QStringLiteral("FACTURA"), 30000, 0, 100, Basis::Net});
    product("Todos", "Todos", 200);
    const Commission back = commissionOf(scheme, products, document, {document.lines.front()});
    EXPECT_EQ(back.byAmount, 100);
    EXPECT_EQ(back.byQuantity, 200);
}

/// Finds a document of company 001.
class RealDocuments : public testing::Test {
protected:
    Commission commission(const char16_t* type, int number) const {
        const auto document = std::find_if(
            company.documents.begin(), company.documents.end(), [&](const SalesDocument& candidate) {
                return candidate.type == QStringView(type) && candidate.number == number;
            });
        EXPECT_NE(document, company.documents.end());
        return commissionOf(company, *document).value();
    }
    Company company = mainCompany();
};

// Each worked out by hand from the CSV files and the schemes.

TEST_F(RealDocuments, AmountBracketOfAnExportInvoice) {
    // Order 10248 (salesperson 05, MONTOS, shipped to France): 12 x 14.00 + 10 x 9.80 + 5 x 34.80 = 440.00,
    // in the bracket up to 499.99: 2 %.
    EXPECT_EQ(commission(exportInvoiceType, 10248), (Commission{880, 0, 0}));
}

TEST_F(RealDocuments, FirstPriceListOfSalesperson06) {
    // Order 10249 (LISTAS): 9 x 18.60 + 40 x 42.40 = 1863.40, sold by L1996: 2.25 % is 41.9265.
    EXPECT_EQ(commission(exportInvoiceType, 10249), (Commission{0, 0, 4193}));
}

TEST_F(RealDocuments, SupplierLinesAccumulateOnTheGeneralOne) {
    // Order 10250 (salesperson 04, PROVEEDORES): 10 x 7.70 = 77.00 of product 41 (New England Seafood) at 1
    // %, 35 x 42.40 x 0.85 = 1261.40 of product 51 (G'day, Mate) at 1 %, 15 x 16.80 x 0.85 = 214.20 of
    // product 65 (New Orleans) at 1 %: 15.526.
    EXPECT_EQ(commission(invoiceType, 10250), (Commission{0, 1553, 0}));
}

TEST_F(RealDocuments, FamilyBracketsOfSalesperson03) {
    // Order 10251 (FAMILIAS): 6 x 16.80 x 0.95 = 95.76 of product 22 (CEREALES 2.25 %): 2.1546;
    // 15 x 15.60 x 0.95 = 222.30 of product 57 (CEREALES 2.25 %): 5.00175;
    // 20 x 16.80 = 336.00 of product 65 (CONDIMENTOS 2.5 %): 8.40. Together 15.55635.
    EXPECT_EQ(commission(exportInvoiceType, 10251), (Commission{0, 1556, 0}));
}

TEST_F(RealDocuments, GeneralSchemeEarnsByAllThreeKinds) {
    // Order 10258 (salesperson 01, GENERAL, 1996): 50 x 15.20 x 0.8 = 608.00, 65 x 17.00 x 0.8 = 884.00,
    // 6 x 25.60 x 0.8 = 122.88: net 1614.88. Amount bracket 1000 to 4999.99: 0.75 % is 12.1116; all products
    // 1.5 % is 24.2232; all lists 0.25 % is 4.0372.
    EXPECT_EQ(commission(exportInvoiceType, 10258), (Commission{1211, 2422, 404}));
}

TEST(DemonstrationSchemes, HoldEveryKindOfLine) {
    int kinds[3] = {};
    QStringList subTypes;
    for (const Scheme& scheme : demonstrationSchemes())
        for (const SchemeLine& line : scheme.lines) {
            ++kinds[static_cast<int>(line.kind)];
            if (line.kind == LineKind::Product && !subTypes.contains(line.subType))
                subTypes.append(line.subType);
        }
    for (const int count : kinds)
        EXPECT_GT(count, 0);
    subTypes.sort();
    EXPECT_EQ(subTypes.join(u' '), QStringLiteral("Familia Producto SubFamilia TipoProducto Todos"));
}

TEST(DemonstrationSchemes, PeriodsOfACodeNeverOverlapAndEveryCodeThatALineNamesExists) {
    const std::vector<Scheme> schemes = demonstrationSchemes();
    const TradingData data = TradingData::load();
    const auto known = [&](const SchemeLine& line, QString Product::*field) {
        return std::any_of(data.products.begin(), data.products.end(),
                           [&](const Product& product) { return product.*field == line.code; });
    };
    const std::pair<const char*, QString Product::*> groups[] = {{"Familia", &Product::family},
                                                                 {"SubFamilia", &Product::subFamily},
                                                                 {"Producto", &Product::code},
                                                                 {"TipoProducto", &Product::type}};
    for (std::size_t i = 0; i < schemes.size(); ++i) {
        for (std::size_t j = i + 1; j < schemes.size(); ++j)
            EXPECT_FALSE(schemes[i].code == schemes[j].code && schemes[i].start <= schemes[j].end &&
                         schemes[j].start <= schemes[i].end);
        for (const SchemeLine& line : schemes[i].lines) {
            for (const auto& [subType, field] : groups) {
                EXPECT_TRUE(line.subType != QLatin1String(subType) || known(line, field))
                    << qPrintable(line.code);
            }
        }
    }
}

} // namespace
