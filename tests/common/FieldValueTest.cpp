#include "common/SqlText.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::Decimal;
using quorvane::Kind;
using quorvane::RegionalSettings;
using quorvane::Value;

namespace {

const RegionalSettings spanish;
const RegionalSettings english{u'.', u',', u'/'};

double number(const Value& value, const RegionalSettings& regional = spanish) {
    const Value result = FieldValue(value, Kind::Double, regional);
    EXPECT_EQ(result.kind(), Kind::Double);
    return *result.get<double>();
}

qint32 whole(const Value& value, Kind code = Kind::Long) {
    const Value result = FieldValue(value, code, spanish);
    EXPECT_EQ(result.kind(), Kind::Long);
    return *result.get<qint32>();
}

bool truth(const Value& value) {
    return *FieldValue(value, Kind::Boolean, spanish).get<bool>();
}

} // namespace

TEST(FieldValue, ANullTextIsEmpty) {
    const Value value = FieldValue(Value::Null{}, Kind::String, spanish);
    ASSERT_EQ(value.kind(), Kind::String);
    EXPECT_EQ(*value.get<QString>(), u""_s);
}

TEST(FieldValue, ATextStaysAsItIs) {
    EXPECT_EQ(*FieldValue(u" O'N "_s, Kind::String, spanish).get<QString>(), u" O'N "_s);
    EXPECT_EQ(FieldValue(qint32(7), Kind::String, spanish).kind(), Kind::Long);
}

TEST(FieldValue, ANullNumberIsZero) {
    EXPECT_EQ(number(Value::Null{}), 0);
    EXPECT_EQ(whole(Value::Null{}), 0);
    EXPECT_EQ(whole(Value::Null{}, Kind::Integer), 0);
}

TEST(FieldValue, AnExactNumberKeepsItsDecimals) {
    for (const RegionalSettings& regional : {spanish, english})
        EXPECT_EQ(number(Decimal(12345, 2), regional), 123.45);
    EXPECT_EQ(number(Decimal(-1, 7)), -1e-7);
    EXPECT_EQ(number(Decimal::fromDouble(0.1 + 0.2)), 0.1 + 0.2);
}

TEST(FieldValue, ADoubleIsReadUpToItsRegionalComma) {
    EXPECT_EQ(number(2.5), 2);
    EXPECT_EQ(number(2.5, english), 2.5);
    EXPECT_EQ(number(Value::Currency{12500}), 1);
    EXPECT_EQ(number(7.0), 7);
}

TEST(FieldValue, ReadsTheNumberThatStartsAText) {
    EXPECT_EQ(number(u"12.5kg"_s), 12.5);
    EXPECT_EQ(number(u"12,5"_s), 12);
    EXPECT_EQ(number(u"  -3 de 4"_s), -3);
    EXPECT_EQ(number(u"abc"_s), 0);
    EXPECT_EQ(number(u""_s), 0);
    EXPECT_EQ(number(Value()), 0);
}

TEST(FieldValue, RoundsWholeNumbersHalvesToEven) {
    EXPECT_EQ(whole(Decimal(25, 1)), 2);
    EXPECT_EQ(whole(Decimal(35, 1)), 4);
    EXPECT_EQ(whole(Decimal(-25, 1)), -2);
    EXPECT_EQ(whole(Decimal(251, 2)), 3);
    EXPECT_EQ(whole(qint16(9), Kind::Integer), 9);
}

TEST(FieldValue, RefusesAWholeNumberBeyond32Bits) {
    EXPECT_EQ(whole(Decimal(2147483647, 0)), 2147483647);
    EXPECT_THROW(whole(Decimal(2147483648, 0)), quorvane::RunTimeError);
    EXPECT_THROW(whole(Decimal(-2147483649, 0)), quorvane::RunTimeError);
    EXPECT_THROW(number(u"1e400"_s), quorvane::RunTimeError);
}

TEST(FieldValue, ANullDateAndTheFirstOf1900AreTheEmptyDate) {
    for (const Value& value : {Value(Value::Null{}), Value(Date::fromYmd(1900, 1, 1))}) {
        const Value date = FieldValue(value, Kind::Date, spanish);
        ASSERT_EQ(date.kind(), Kind::Integer);
        EXPECT_EQ(*date.get<qint16>(), 0);
    }
}

TEST(FieldValue, ADateStaysADate) {
    const Value date = FieldValue(Date::fromYmd(1900, 1, 2), Kind::Date, spanish);
    ASSERT_EQ(date.kind(), Kind::Date);
    EXPECT_EQ(*date.get<Date>(), Date::fromYmd(1900, 1, 2));
}

TEST(FieldValue, OnlyACapitalSIsTrue) {
    EXPECT_TRUE(truth(u"S"_s));
    EXPECT_FALSE(truth(u"s"_s));
    EXPECT_FALSE(truth(u"N"_s));
    EXPECT_FALSE(truth(u""_s));
    EXPECT_FALSE(truth(u"S "_s));
    EXPECT_FALSE(truth(Value::Null{}));
    EXPECT_FALSE(truth(true));
}

TEST(FieldValue, AnyOtherCodeOnlyReplacesANull) {
    EXPECT_EQ(FieldValue(Value::Null{}, Kind::Byte, spanish).kind(), Kind::String);
    EXPECT_EQ(FieldValue(2.5, Kind::Byte, spanish).kind(), Kind::Double);
}
