#include "demo/Csv.h"
#include "demo/Labels.h"
#include "demo/Money.h"
#include "platform/quorvane32/base/RunTimeError.h"

#include <gtest/gtest.h>

namespace {

using namespace dalvora::demo;

TEST(CsvTable, ReadsQuotedFieldsWithCommasQuotesAndLineBreaks) {
    const CsvTable csv = CsvTable::parse("a,b\n\"x, \"\"y\"\"\nz\",2\r\n 3 ,\n");
    ASSERT_EQ(csv.rowCount(), 2U);
    EXPECT_EQ(csv.text(0, csv.column(QStringLiteral("a"))), QStringLiteral("x, \"y\"\nz"));
    EXPECT_EQ(csv.text(0, csv.column(QStringLiteral("b"))), QStringLiteral("2"));
    EXPECT_EQ(csv.text(1, csv.column(QStringLiteral("a"))), QStringLiteral("3"));
    EXPECT_EQ(csv.text(1, csv.column(QStringLiteral("b"))), QString());
}

TEST(CsvTable, RefusesRaggedRowsOpenQuotesAndUnknownColumns) {
    EXPECT_THROW(CsvTable::parse("a,b\n1\n"), quorvane::RunTimeError);
    EXPECT_THROW(CsvTable::parse("a,b\n1,2,3\n"), quorvane::RunTimeError);
    EXPECT_THROW(CsvTable::parse("a,b\n\"1,2\n"), quorvane::RunTimeError);
    EXPECT_THROW(CsvTable::parse("a,b\n1,2\n").column(QStringLiteral("c")), quorvane::RunTimeError);
}

TEST(Money, KeepsAmountsAsWholeHundredths) {
    EXPECT_EQ(hundredthsOf(u"14"), 1400);
    EXPECT_EQ(hundredthsOf(u"9.8"), 980);
    EXPECT_EQ(hundredthsOf(u"0.05"), 5);
    EXPECT_THROW(hundredthsOf(u""), quorvane::RunTimeError);
}

TEST(Money, RoundsSharesHalfAwayFromZero) {
    EXPECT_EQ(roundedShare(1, 50, 100), 1);
    EXPECT_EQ(roundedShare(-1, 50, 100), -1);
    EXPECT_EQ(roundedShare(1, 49, 100), 0);
    EXPECT_EQ(roundedShare(150, 19, 100), 29); // 28.5
}

TEST(Labels, TakeTheFirstPackagingWordAsUnit) {
    EXPECT_EQ(unitOf(QStringLiteral("10 boxes x 20 bags")), QStringLiteral("CAJA"));
    EXPECT_EQ(unitOf(QStringLiteral("24 - 12 oz bottles")), QStringLiteral("BOTELLA"));
    EXPECT_EQ(unitOf(QStringLiteral("24 pieces")), QStringLiteral("PIEZA"));
    EXPECT_EQ(unitOf(QStringLiteral("48 pies")), QStringLiteral("PASTEL"));
    EXPECT_EQ(unitOf(QStringLiteral("500 ml")), QStringLiteral("UNIDAD"));
}

TEST(Labels, CutNamesToWholeWordsThatFitACode) {
    EXPECT_EQ(codeOfName(QStringLiteral("Exotic Liquids")), QStringLiteral("EXOTIC LIQUIDS"));
    EXPECT_EQ(codeOfName(QStringLiteral("Pavlova, Ltd.")), QStringLiteral("PAVLOVA, LTD"));
    EXPECT_EQ(codeOfName(QStringLiteral("Heli Süßwaren GmbH & Co. KG")),
              QStringLiteral("HELI SÜSSWAREN GMBH"));
}

} // namespace
