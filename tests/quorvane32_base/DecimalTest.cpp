#include "platform/quorvane32/base/Decimal.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;
using quorvane::Decimal;
using quorvane::test::errorOf;

namespace {

QString text(const Decimal& number) {
    return number.toText(u'.');
}

QString rounded(const QString& number, int decimals) {
    return text(Decimal::fromText(number).rounded(decimals));
}

} // namespace

TEST(Decimal, IsReadFromAText) {
    EXPECT_EQ(text(Decimal::fromText(u"-123.4500")), u"-123.45"_s);
    EXPECT_EQ(text(Decimal::fromText(u"0.000")), u"0"_s);
    EXPECT_EQ(text(Decimal::fromText(u"1.5e3")), u"1500"_s);
    EXPECT_EQ(text(Decimal::fromText(u"15E-3")), u"0.015"_s);
    EXPECT_EQ(text(Decimal::fromText(u"999999999999999999")), u"999999999999999999"_s);
    EXPECT_EQ(text(Decimal::fromText(u".5")), u"0.5"_s);
}

TEST(Decimal, RefusesATextThatIsNoNumber) {
    for (const QString& entry : {u""_s, u"-"_s, u"."_s, u"abc"_s, u"1x"_s, u"1e"_s, u"1.2.3"_s, u"1e99999"_s})
        EXPECT_EQ(errorOf([&] { Decimal::fromText(entry); }), 13) << entry.toStdString();
}

TEST(Decimal, RefusesMoreDigitsThanItHolds) {
    EXPECT_EQ(errorOf([] { Decimal::fromText(u"1234567890123456789"); }), 6);
    EXPECT_EQ(errorOf([] { Decimal::fromText(u"0.00001234567890123456789"); }), 6);
}

TEST(Decimal, IsWrittenWithTheGivenSeparatorAndNoTrailingZeros) {
    EXPECT_EQ(Decimal(12345, 2).toText(u','), u"123,45"_s);
    EXPECT_EQ(Decimal(12300, 2).toText(u','), u"123"_s);
    EXPECT_EQ(Decimal(-5, 3).toText(u','), u"-0,005"_s);
    EXPECT_EQ(Decimal(5, -3).toText(u','), u"5000"_s);
}

TEST(Decimal, RoundsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(rounded(u"2.5"_s, 0), u"2"_s);
    EXPECT_EQ(rounded(u"3.5"_s, 0), u"4"_s);
    EXPECT_EQ(rounded(u"-2.5"_s, 0), u"-2"_s);
    EXPECT_EQ(rounded(u"-3.5"_s, 0), u"-4"_s);
    EXPECT_EQ(rounded(u"2.675"_s, 2), u"2.68"_s);
    EXPECT_EQ(rounded(u"2.665"_s, 2), u"2.66"_s);
    EXPECT_EQ(rounded(u"2.6651"_s, 2), u"2.67"_s);
    EXPECT_EQ(rounded(u"0.5"_s, 0), u"0"_s);
    EXPECT_EQ(rounded(u"1.25"_s, 4), u"1.25"_s);
    EXPECT_EQ(rounded(u"9.999"_s, 2), u"10"_s);
}

TEST(Decimal, RoundsWhatLiesFarBehindThePointToNothing) {
    EXPECT_EQ(rounded(u"1e-30"_s, 2), u"0"_s);
    EXPECT_EQ(rounded(u"0.999999999999999999"_s, 0), u"1"_s);
}

TEST(Decimal, ADoubleComesBackAsTheSameDouble) {
    std::mt19937_64 random(1); // NOLINT(bugprone-random-generator-seed): the same numbers every run
    const auto same = [](double number) { return Decimal::fromDouble(number).toDouble() == number; };
    for (const double number : {0.0, 0.1, 1234.5, 1e15, -1e-7, 0.1 + 0.2, 1e22, 1e23, 123456789.123456,
                                std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
                                std::numeric_limits<double>::denorm_min()})
        EXPECT_TRUE(same(number)) << number;
    for (int i = 0; i < 100000; ++i) {
        const quint64 bits = random();
        double number = 0;
        std::memcpy(&number, &bits, sizeof number);
        ASSERT_TRUE(!std::isfinite(number) || same(number)) << number;
    }
}

TEST(Decimal, ADoubleTakesAsFewDigitsAsItCan) {
    EXPECT_EQ(text(Decimal::fromDouble(0.1)), u"0.1"_s);
    EXPECT_EQ(text(Decimal::fromDouble(12.34)), u"12.34"_s);
    EXPECT_EQ(text(Decimal::fromDouble(0.1 + 0.2)), u"0.30000000000000004"_s);
}

TEST(Decimal, FourDecimalsOfALargeAmountAreTheShortestOnes) {
    EXPECT_EQ(text(Decimal::fromDouble(593668925228.555)), u"593668925228.555"_s);
    EXPECT_EQ(text(Decimal::fromDouble(618937188642.805).rounded(2)), u"618937188642.8"_s);
    EXPECT_EQ(text(Decimal::fromDouble(833987652790.695).rounded(2)), u"833987652790.7"_s);
    std::mt19937_64 random(2); // NOLINT(bugprone-random-generator-seed): the same numbers every run
    std::uniform_int_distribution<qint64> unscaled(0, 9'999'999'999'999'999);
    for (int i = 0; i < 200000; ++i) {
        const double number = static_cast<double>(unscaled(random)) / std::array{1e1, 1e2, 1e3, 1e4}[i % 4];
        std::array<char, 64> buffer{};
        const auto end =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::scientific)
                .ptr;
        const auto shortest = Decimal::fromText(QString::fromLatin1(buffer.data(), end - buffer.data()));
        ASSERT_EQ(text(Decimal::fromDouble(number)), text(shortest));
    }
}

TEST(Decimal, ANumberTooLargeForADoubleIsAnOverflow) {
    EXPECT_EQ(errorOf([] { (void)Decimal::fromText(u"1e400").toDouble(); }), 6);
    EXPECT_EQ(Decimal::fromText(u"1e-400").toDouble(), 0);
}
