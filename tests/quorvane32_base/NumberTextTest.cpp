#include "platform/quorvane32/base/NumberText.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;
using quorvane::generalNumber;
using quorvane::groupedNumber;
using quorvane::leadingNumber;
using quorvane::roundHalfEven;
using quorvane::test::errorOf;

TEST(GeneralNumber, TakesAsManyDecimalsAsItNeedsAndNeverAnExponent) {
    EXPECT_EQ(generalNumber(0.1, u'.'), u"0.1"_s);
    EXPECT_EQ(generalNumber(1234.5, u','), u"1234,5"_s);
    EXPECT_EQ(generalNumber(1e15, u'.'), u"1000000000000000"_s);
    EXPECT_EQ(generalNumber(-1e-7, u'.'), u"-0.0000001"_s);
    EXPECT_EQ(generalNumber(7, u'.'), u"7"_s);
}

TEST(GeneralNumber, NeverShowsANegativeZero) {
    EXPECT_EQ(generalNumber(-0.0, u'.'), u"0"_s);
}

TEST(GeneralNumber, WritesTheLargestAndTheSmallestNumber) {
    EXPECT_EQ(generalNumber(std::numeric_limits<double>::max(), u'.').size(), 309);
    const QString least = generalNumber(std::numeric_limits<double>::denorm_min(), u'.');
    EXPECT_TRUE(least.startsWith(u"0.000") && least.endsWith(u'5'));
}

TEST(GroupedNumber, GroupsThousandsAndKeepsItsDecimals) {
    EXPECT_EQ(groupedNumber(1234.5, 2, u',', u'.'), u"1.234,50"_s);
    EXPECT_EQ(groupedNumber(1234.5, 2, u'.', u','), u"1,234.50"_s);
    EXPECT_EQ(groupedNumber(1234567, 0, u',', u'.'), u"1.234.567"_s);
    EXPECT_EQ(groupedNumber(123, 2, u',', u'.'), u"123,00"_s);
    EXPECT_EQ(groupedNumber(0, 2, u',', u'.'), u"0,00"_s);
    EXPECT_EQ(groupedNumber(-1234.5, 2, u',', u'.'), u"-1.234,50"_s);
}

TEST(GroupedNumber, RoundsHalvesToEvenAndShowsNoNegativeZero) {
    EXPECT_EQ(groupedNumber(0.125, 2, u',', u'.'), u"0,12"_s);
    EXPECT_EQ(groupedNumber(-0.001, 2, u',', u'.'), u"0,00"_s);
    EXPECT_EQ(groupedNumber(999.995, 2, u',', u'.'), u"1.000,00"_s);
}

TEST(RoundHalfEven, WorksOnDecimalDigits) {
    EXPECT_EQ(roundHalfEven(2.675, 2), 2.68);
    EXPECT_EQ(roundHalfEven(2.5, 0), 2);
    EXPECT_EQ(roundHalfEven(3.5, 0), 4);
    EXPECT_EQ(roundHalfEven(1e300, 2), 1e300);
}

TEST(RoundHalfEven, ANegativeCountOfDecimalsChangesNothing) {
    EXPECT_EQ(roundHalfEven(2.675, -1), 2.675);
}

TEST(LeadingNumber, StopsAtTheFirstCharacterThatCannotGoOn) {
    EXPECT_EQ(leadingNumber(u"12.5kg"), 12.5);
    EXPECT_EQ(leadingNumber(u"  -3 de 4"), -3);
    EXPECT_EQ(leadingNumber(u"+7"), 7);
    EXPECT_EQ(leadingNumber(u"1.2.3"), 1.2);
    EXPECT_EQ(leadingNumber(u"12,5"), 12);
    EXPECT_EQ(leadingNumber(u"1e2x"), 100);
    EXPECT_EQ(leadingNumber(u"1e"), 1);
    EXPECT_EQ(leadingNumber(u"1e+"), 1);
    EXPECT_EQ(leadingNumber(u".5"), 0.5);
    EXPECT_EQ(leadingNumber(u"5."), 5);
}

TEST(LeadingNumber, NoNumberIsZero) {
    for (const QString& text : {u""_s, u"abc"_s, u"-"_s, u"."_s, u"e5"_s, u"--1"_s, u"inf"_s, u"nan"_s})
        EXPECT_EQ(leadingNumber(text), 0) << text.toStdString();
}

TEST(LeadingNumber, ANumberTooLargeIsAnOverflowAndOneTooSmallIsZero) {
    for (const QString& text : {u"1e400"_s, u"-1e400"_s, u"0.5e400"_s, QString(400, u'9')})
        EXPECT_EQ(errorOf([&] { leadingNumber(text); }), 6) << text.left(10).toStdString();
    for (const QString& text :
         {u"1e-400"_s, u"0."_s + QString(400, u'0') + u'1', u'.' + QString(400, u'0') + u'1'})
        EXPECT_EQ(leadingNumber(text), 0) << text.left(10).toStdString();
}
