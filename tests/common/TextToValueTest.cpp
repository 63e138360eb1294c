#include "common/SqlText.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::Kind;
using quorvane::RegionalSettings;
using quorvane::Value;

namespace {

const RegionalSettings spanish;
constexpr int noLimit = -1;

QString text(const QString& entry, int limit) {
    Value value;
    EXPECT_TRUE(TextToValue(entry, Kind::String, value, limit, spanish));
    return *value.get<QString>();
}

double number(const QString& entry, int decimals, const RegionalSettings& regional = spanish) {
    Value value;
    EXPECT_TRUE(TextToValue(entry, Kind::Double, value, decimals, regional));
    return value.get<double>() != nullptr ? *value.get<double>() : -999;
}

Date date(const QString& entry) {
    Value value;
    EXPECT_TRUE(TextToValue(entry, Kind::Date, value, 0, spanish));
    return value.get<Date>() != nullptr ? *value.get<Date>() : Date(-999);
}

/// The entry is refused and the output keeps what it held.
bool refused(const QString& entry, Kind code, int limit = noLimit) {
    Value value(u"antes"_s);
    const bool taken = TextToValue(entry, code, value, limit, spanish);
    return !taken && value.get<QString>() != nullptr && *value.get<QString>() == u"antes";
}

} // namespace

TEST(TextToValue, ATextIsTrimmedAndThenCut) {
    EXPECT_EQ(text(u"   abcdefghijklmnopqrstuvwxyz   "_s, 20), u"abcdefghijklmnopqrst"_s);
    EXPECT_EQ(text(u"abcdefghijklmnopqrs    z"_s, 20), u"abcdefghijklmnopqrs "_s);
}

TEST(TextToValue, ATextWithoutALimitIsNotCut) {
    EXPECT_EQ(text(u"  abc  "_s, 0), u"abc"_s);
    EXPECT_EQ(text(QString(10000, u'x'), noLimit).size(), 10000);
}

TEST(TextToValue, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(text(u" \tabc\t "_s, 20), u"\tabc\t"_s);
    EXPECT_EQ(text(u"      "_s, 20), u""_s);
}

TEST(TextToValue, ACutNeverLeavesHalfACharacter) {
    const QString emoji = u"😀"_s;
    EXPECT_EQ(text(QString(19, u'a') + emoji, 20), QString(19, u'a'));
    EXPECT_EQ(text(QString(18, u'a') + emoji + u'b', 20), QString(18, u'a') + emoji);
}

TEST(TextToValue, QuotesSemicolonsAndNulStayInAText) {
    const QString entry = u"'; DROP TABLE x; -- 100% "_s + QChar(0) + u"ñ"_s;
    EXPECT_EQ(text(entry, 50), entry);
}

TEST(TextToValue, AnEmptyDoubleMeansOne) {
    EXPECT_EQ(number(u""_s, 2), 1);
}

TEST(TextToValue, ADoubleIsReadUnderTheRegionalSettings) {
    EXPECT_EQ(number(u"1.234,5"_s, 2), 1234.5);
    EXPECT_EQ(number(u"1,234.5"_s, 2, RegionalSettings{u'.', u',', u'/'}), 1234.5);
    EXPECT_EQ(number(u"  -7  "_s, 2), -7);
}

TEST(TextToValue, ADoubleIsRoundedHalvesToEven) {
    EXPECT_EQ(number(u"2,5"_s, 0), 2);
    EXPECT_EQ(number(u"3,5"_s, 0), 4);
    EXPECT_EQ(number(u"2,675"_s, 2), 2.68);
    EXPECT_EQ(number(u"2,665"_s, 2), 2.66);
    EXPECT_EQ(number(u"0,125"_s, noLimit), 0.125);
}

TEST(TextToValue, ATextThatIsNoNumberIsRefused) {
    for (const QString& entry : {u"abc"_s, u"12a"_s, u"1,2,3"_s, u" "_s, u"1e400"_s, u"inf"_s, u"nan"_s,
                                 u"--1"_s, QString(10000, u'9'), QString(u'1') + QChar(0)})
        EXPECT_TRUE(refused(entry, Kind::Double, 2)) << entry.left(20).toStdString();
}

TEST(TextToValue, AWholeNumberIsALongAndEmptyIsZero) {
    for (const Kind code : {Kind::Long, Kind::Integer}) {
        Value value;
        ASSERT_TRUE(TextToValue(u""_s, code, value, noLimit, spanish));
        EXPECT_EQ(*value.get<qint32>(), 0);
        ASSERT_TRUE(TextToValue(u"2,5"_s, code, value, noLimit, spanish));
        EXPECT_EQ(*value.get<qint32>(), 2);
        ASSERT_TRUE(TextToValue(u"1.003,5"_s, code, value, noLimit, spanish));
        EXPECT_EQ(*value.get<qint32>(), 1004);
        EXPECT_TRUE(refused(u"abc"_s, code));
    }
}

TEST(TextToValue, AWholeNumberBeyond32BitsIsRefused) {
    EXPECT_TRUE(refused(u"2147483648"_s, Kind::Long));
    EXPECT_TRUE(refused(u"-2147483649"_s, Kind::Integer));
    EXPECT_TRUE(refused(u"2147483647,5"_s, Kind::Long));
    EXPECT_FALSE(refused(u"2147483647,4"_s, Kind::Long));
}

TEST(TextToValue, AnEmptyDateIsTheEmptyDate) {
    EXPECT_TRUE(date(u""_s).isEmpty());
    EXPECT_TRUE(date(u"0"_s).isEmpty());
}

TEST(TextToValue, ADateIsReadAsDayMonthYear) {
    for (const QString& entry : {u"05/03/2006"_s, u"5/3/06"_s, u"5-3-2006"_s, u"05.03.2006"_s})
        EXPECT_EQ(date(entry), Date::fromYmd(2006, 3, 5));
    EXPECT_EQ(date(u"01/01/0100"_s), Date::fromYmd(100, 1, 1));
    EXPECT_EQ(date(u"31/12/9999"_s), Date::fromYmd(9999, 12, 31));
}

TEST(TextToValue, ATextThatIsNoDateIsRefused) {
    for (const QString& entry : {u"31/02/2006"_s, u"29/02/2007"_s, u"01/01/10000"_s, u"01/13/2006"_s,
                                 u"hoy"_s, u"1/1"_s, u"01/01/0099"_s, QString(10000, u'1')})
        EXPECT_TRUE(refused(entry, Kind::Date)) << entry.left(20).toStdString();
}

TEST(TextToValue, ABooleanIsTrueForACapitalSOnly) {
    for (const auto& [entry, expected] : {std::pair{u"S"_s, true}, std::pair{u"s"_s, false},
                                          std::pair{u""_s, false}, std::pair{u"N"_s, false}}) {
        Value value;
        ASSERT_TRUE(TextToValue(entry, Kind::Boolean, value, noLimit, spanish));
        EXPECT_EQ(*value.get<bool>(), expected);
    }
}

TEST(TextToValue, AnyOtherCodeTakesTheTextUntrimmed) {
    Value value;
    ASSERT_TRUE(TextToValue(u"  abc  "_s, Kind::Byte, value, 2, spanish));
    EXPECT_EQ(*value.get<QString>(), u"  abc  "_s);
}
