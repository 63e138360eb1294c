#include "common/SqlText.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>
#include <limits>

using namespace dalvora;
using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::Decimal;
using quorvane::Kind;
using quorvane::RegionalSettings;
using quorvane::Value;

namespace {

const RegionalSettings spanish;
const RegionalSettings english{u'.', u',', u'-'};

QString sqlText(const Value& value, Kind code) {
    return SqlText(value, code, spanish);
}

int errorOf(const Value& value, Kind code) {
    try {
        SqlText(value, code, spanish);
        return 0;
    } catch (const quorvane::RunTimeError& error) {
        return error.number();
    }
}

} // namespace

TEST(SqlText, DoublesTheQuotesOfAText) {
    EXPECT_EQ(sqlText(u"O'Brien"_s, Kind::String), u"O''Brien"_s);
    EXPECT_EQ(sqlText(u"''"_s, Kind::String), u"''''"_s);
}

TEST(SqlText, AddsNoQuotesAroundAText) {
    EXPECT_EQ(sqlText(u""_s, Kind::String), u""_s);
    EXPECT_EQ(sqlText(u" a;b%c "_s, Kind::String), u" a;b%c "_s);
}

TEST(SqlText, InfersTheCodeFromTheValue) {
    EXPECT_EQ(sqlText(Value(), Kind::Empty), u""_s);
    EXPECT_EQ(sqlText(u"O'N"_s, Kind::Empty), u"O''N"_s);
    EXPECT_EQ(sqlText(0.5F, Kind::Empty), u"0.5"_s);
    EXPECT_EQ(sqlText(Value::Currency{12500}, Kind::Empty), u"1.25"_s);
    EXPECT_EQ(sqlText(Decimal(25, 1), Kind::Empty), u"2.5"_s);
    EXPECT_EQ(sqlText(quint8(200), Kind::Empty), u"200"_s);
    EXPECT_EQ(sqlText(qint16(-3), Kind::Empty), u"-3"_s);
    EXPECT_EQ(sqlText(Date::fromYmd(2006, 3, 5), Kind::Empty), u"05/03/2006"_s);
    EXPECT_EQ(sqlText(true, Kind::Empty), u"S"_s);
}

TEST(SqlText, WritesADoubleWithAPointUnderAnyRegionalSettings) {
    for (const RegionalSettings& regional : {spanish, english}) {
        EXPECT_EQ(SqlText(1234.5, Kind::Double, regional), u"1234.5"_s);
        EXPECT_EQ(SqlText(Decimal(12345, 1), Kind::Double, regional), u"1234.5"_s);
        EXPECT_EQ(SqlText(Value::Currency{-5000}, Kind::Double, regional), u"-0.5"_s);
    }
}

TEST(SqlText, WritesADoubleWithAsManyDecimalsAsItNeedsAndNoExponent) {
    EXPECT_EQ(sqlText(0.1, Kind::Double), u"0.1"_s);
    EXPECT_EQ(sqlText(-0.1, Kind::Double), u"-0.1"_s);
    EXPECT_EQ(sqlText(-0.0, Kind::Double), u"0"_s);
    EXPECT_EQ(sqlText(1e15, Kind::Double), u"1000000000000000"_s);
    EXPECT_EQ(sqlText(1e22, Kind::Double), u"10000000000000000000000"_s);
    EXPECT_EQ(sqlText(1e-7, Kind::Double), u"0.0000001"_s);
    EXPECT_EQ(sqlText(0.1 + 0.2, Kind::Double), u"0.30000000000000004"_s);
}

TEST(SqlText, ReadsATextAsANumberUnderTheRegionalSettings) {
    EXPECT_EQ(sqlText(u"1.234,5"_s, Kind::Double), u"1234.5"_s);
    EXPECT_EQ(errorOf(u"1; DROP TABLE x"_s, Kind::Double), 13);
    EXPECT_EQ(errorOf(u"0 or 1=1"_s, Kind::Long), 13);
}

TEST(SqlText, WritesADateGivenAsANumberInItsRegionalForm) {
    EXPECT_EQ(sqlText(Date::fromYmd(2006, 12, 31), Kind::Double), u"31/12/2006"_s);
    EXPECT_EQ(SqlText(Date::fromYmd(2006, 12, 31), Kind::Double, english), u"31-12-2006"_s);
    EXPECT_EQ(SqlText(Date::fromYmd(2006, 12, 31), Kind::Double, RegionalSettings{u',', u'.', u','}),
              u"31.12.2006"_s);
    EXPECT_EQ(sqlText(Date(), Kind::Double), u""_s);
}

TEST(SqlText, WritesWholeNumbers) {
    EXPECT_EQ(sqlText(qint32(7), Kind::Long), u"7"_s);
    EXPECT_EQ(sqlText(7.0, Kind::Long), u"7"_s);
    EXPECT_EQ(sqlText(qint32(-2147483647 - 1), Kind::Integer), u"-2147483648"_s);
    EXPECT_EQ(sqlText(Value(), Kind::Long), u"0"_s);
}

TEST(SqlText, LeavesTheRegionalCommaInAWholeNumbersDecimals) {
    EXPECT_EQ(sqlText(7.5, Kind::Long), u"7,5"_s);
}

TEST(SqlText, WritesADateAsDayMonthYearUnderAnyRegionalSettings) {
    for (const RegionalSettings& regional : {spanish, english})
        EXPECT_EQ(SqlText(Date::fromYmd(2006, 3, 5), Kind::Date, regional), u"05/03/2006"_s);
    EXPECT_EQ(sqlText(Date(Date::fromYmd(2006, 3, 5).serial() + 0.75), Kind::Date), u"05/03/2006"_s);
    EXPECT_EQ(sqlText(Date::fromYmd(100, 1, 1), Kind::Date), u"01/01/0100"_s);
    EXPECT_EQ(sqlText(Date::fromYmd(9999, 12, 31), Kind::Date), u"31/12/9999"_s);
    EXPECT_EQ(sqlText(Date(1), Kind::Date), u"31/12/1899"_s);
    EXPECT_EQ(sqlText(38781.0, Kind::Date), u"05/03/2006"_s);
    EXPECT_EQ(sqlText(u"5-3-06"_s, Kind::Date), u"05/03/2006"_s);
}

TEST(SqlText, WritesTheEmptyDateAsTheEmptyText) {
    EXPECT_EQ(sqlText(Date(), Kind::Date), u""_s);
    EXPECT_EQ(sqlText(Value(), Kind::Date), u""_s);
    EXPECT_EQ(sqlText(qint16(0), Kind::Date), u""_s);
}

TEST(SqlText, RefusesADateOutsideTheCalendar) {
    EXPECT_EQ(errorOf(2958466.0, Kind::Date), 6);
    EXPECT_EQ(errorOf(-657435.0, Kind::Date), 6);
    EXPECT_EQ(errorOf(std::numeric_limits<double>::quiet_NaN(), Kind::Date), 6);
    EXPECT_EQ(errorOf(u"31/02/2006"_s, Kind::Date), 13);
}

TEST(SqlText, WritesABooleanAsSOrN) {
    EXPECT_EQ(sqlText(true, Kind::Boolean), u"S"_s);
    EXPECT_EQ(sqlText(false, Kind::Boolean), u"N"_s);
    EXPECT_EQ(sqlText(qint32(2), Kind::Boolean), u"S"_s);
    EXPECT_EQ(sqlText(0.0, Kind::Boolean), u"N"_s);
    EXPECT_EQ(sqlText(Value(), Kind::Boolean), u"N"_s);
}

TEST(SqlText, WritesThePlainTextForAnyOtherCode) {
    EXPECT_EQ(sqlText(1234.5, Kind::Byte), u"1234,5"_s);
    EXPECT_EQ(sqlText(u"a'b"_s, Kind::Currency), u"a'b"_s);
}

TEST(SqlText, ANullIsAnErrorOfTheCaller) {
    EXPECT_EQ(errorOf(Value::Null{}, Kind::Empty), 94);
    EXPECT_EQ(errorOf(Value::Null{}, Kind::String), 94);
    EXPECT_EQ(errorOf(Value::Null{}, Kind::Double), 94);
    EXPECT_EQ(errorOf(Value::Null{}, Kind::Date), 94);
}
