#include "platform/quorvane32/base/Value.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::Decimal;
using quorvane::Kind;
using quorvane::RegionalSettings;
using quorvane::Value;
using quorvane::test::errorOf;

namespace {

const RegionalSettings spanish;

} // namespace

TEST(Value, KnowsItsKind) {
    EXPECT_EQ(Value().kind(), Kind::Empty);
    EXPECT_EQ(Value(Value::Null{}).kind(), Kind::Null);
    EXPECT_EQ(Value(qint16(1)).kind(), Kind::Integer);
    EXPECT_EQ(Value(qint32(1)).kind(), Kind::Long);
    EXPECT_EQ(Value(1.0F).kind(), Kind::Single);
    EXPECT_EQ(Value(1.0).kind(), Kind::Double);
    EXPECT_EQ(Value(Value::Currency{1}).kind(), Kind::Currency);
    EXPECT_EQ(Value(Date(1)).kind(), Kind::Date);
    EXPECT_EQ(Value(u""_s).kind(), Kind::String);
    EXPECT_EQ(Value(true).kind(), Kind::Boolean);
    EXPECT_EQ(Value(Decimal(1, 0)).kind(), Kind::Decimal);
    EXPECT_EQ(Value(quint8(1)).kind(), Kind::Byte);
}

TEST(Value, GivesItsPayloadInItsOwnKindOnly) {
    const Value value(qint32(7));
    ASSERT_NE(value.get<qint32>(), nullptr);
    EXPECT_EQ(*value.get<qint32>(), 7);
    EXPECT_EQ(value.get<double>(), nullptr);
    EXPECT_FALSE(value.isNull());
    EXPECT_TRUE(Value(Value::Null{}).isNull());
}

TEST(Value, HasAPlainText) {
    EXPECT_EQ(Value().toText(spanish), u""_s);
    EXPECT_EQ(Value(qint16(-5)).toText(spanish), u"-5"_s);
    EXPECT_EQ(Value(qint32(100000)).toText(spanish), u"100000"_s);
    EXPECT_EQ(Value(0.1F).toText(spanish), u"0,1"_s);
    EXPECT_EQ(Value(1234.5).toText(spanish), u"1234,5"_s);
    EXPECT_EQ(Value(Value::Currency{12345}).toText(spanish), u"1,2345"_s);
    EXPECT_EQ(Value(Date::fromYmd(2006, 3, 5)).toText(spanish), u"05/03/2006"_s);
    EXPECT_EQ(Value(Date()).toText(spanish), u""_s);
    EXPECT_EQ(Value(u"ñ"_s).toText(spanish), u"ñ"_s);
    EXPECT_EQ(Value(true).toText(spanish), u"Verdadero"_s);
    EXPECT_EQ(Value(false).toText(spanish), u"Falso"_s);
    EXPECT_EQ(Value(Decimal(25, 1)).toText(spanish), u"2,5"_s);
    EXPECT_EQ(Value(quint8(255)).toText(spanish), u"255"_s);
}

TEST(Value, IsANumber) {
    EXPECT_EQ(Value().toNumber(spanish), 0);
    EXPECT_EQ(Value(qint16(-5)).toNumber(spanish), -5);
    EXPECT_EQ(Value(0.1F).toNumber(spanish), 0.1);
    EXPECT_EQ(Value(Value::Currency{12345}).toNumber(spanish), 1.2345);
    EXPECT_EQ(Value(Date(38781)).toNumber(spanish), 38781);
    EXPECT_EQ(Value(u"1.234,5"_s).toNumber(spanish), 1234.5);
    EXPECT_EQ(Value(true).toNumber(spanish), -1);
    EXPECT_EQ(Value(false).toNumber(spanish), 0);
    EXPECT_EQ(Value(Decimal(25, 1)).toNumber(spanish), 2.5);
    EXPECT_EQ(Value(quint8(255)).toNumber(spanish), 255);
}

TEST(Value, IsTrueWhenNotZero) {
    EXPECT_TRUE(Value(qint32(2)).toBoolean(spanish));
    EXPECT_FALSE(Value(0.0).toBoolean(spanish));
    EXPECT_FALSE(Value().toBoolean(spanish));
    EXPECT_TRUE(Value(u"verdadero"_s).toBoolean(spanish));
    EXPECT_TRUE(Value(u"True"_s).toBoolean(spanish));
    EXPECT_FALSE(Value(u"FALSO"_s).toBoolean(spanish));
    EXPECT_FALSE(Value(u"false"_s).toBoolean(spanish));
    EXPECT_TRUE(Value(u"0,5"_s).toBoolean(spanish));
}

TEST(Value, ANullHasNoTextAndNoNumber) {
    const Value null(Value::Null{});
    EXPECT_EQ(errorOf([&] { (void)null.toText(spanish); }), 94);
    EXPECT_EQ(errorOf([&] { (void)null.toNumber(spanish); }), 94);
    EXPECT_EQ(errorOf([&] { (void)null.toBoolean(spanish); }), 94);
}

TEST(Value, ATextThatIsNoNumberIsATypeMismatch) {
    EXPECT_EQ(errorOf([&] { (void)Value(u"abc"_s).toNumber(spanish); }), 13);
    EXPECT_EQ(errorOf([&] { (void)Value(u""_s).toBoolean(spanish); }), 13);
}
