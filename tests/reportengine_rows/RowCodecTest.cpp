#include "platform/reportengine/rows/RowCodec.h"
#include <gtest/gtest.h>
#include <limits>

using namespace quorvane;
using namespace quorvane::report;

namespace {

Value roundTrip(const Value& value) {
    ByteBuffer row;
    appendValue(row, qint32(7)); // a neighbour on either side
    appendValue(row, value);
    appendValue(row, QStringLiteral("fin"));
    RowReader reader(3);
    reader.load(row.view());
    EXPECT_EQ(*reader.value(0).get<qint32>(), 7);
    EXPECT_EQ(*reader.value(2).get<QString>(), QStringLiteral("fin"));
    return reader.value(1);
}

template<class T> void expectKept(T value) {
    const Value back = roundTrip(value);
    ASSERT_NE(back.get<T>(), nullptr);
    EXPECT_EQ(*back.get<T>(), value);
}

qsizetype sizeOf(const Value& value) {
    ByteBuffer row;
    appendValue(row, value);
    return row.size();
}

} // namespace

TEST(RowCodec, KeepsEveryKindOfValue) {
    EXPECT_EQ(roundTrip({}).kind(), Kind::Empty);
    EXPECT_TRUE(roundTrip(Value::Null{}).isNull());
    for (const qint16 number : {qint16(0), qint16(-1), std::numeric_limits<qint16>::min()})
        expectKept(number);
    for (const qint32 number :
         {0, 63, -64, 64, std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min()})
        expectKept(number);
    for (const float number : {0.0F, -1.5F, 3.4e38F})
        expectKept(number);
    for (const double number : {0.0, -1.5, 1e300, std::numeric_limits<double>::denorm_min()})
        expectKept(number);
    expectKept(true);
    expectKept(false);
    expectKept(quint8(255));
    for (const double serial : {0.0, 35000.0, -600000.0, 35000.75, -0.25})
        expectKept(Date(serial));
}

TEST(RowCodec, KeepsCurrenciesAndDecimalsToTheirLastDigit) {
    for (const qint64 digits : {0LL, -1LL, 123456789012345678LL, std::numeric_limits<qint64>::min(),
                                std::numeric_limits<qint64>::max()}) {
        EXPECT_EQ(roundTrip(Value::Currency{digits}).get<Value::Currency>()->tenThousandths, digits);
        const Value back = roundTrip(Decimal(digits, -3));
        EXPECT_EQ(back.get<Decimal>()->unscaled(), digits);
        EXPECT_EQ(back.get<Decimal>()->scale(), -3);
    }
}

TEST(RowCodec, KeepsTextsOfEveryLengthAndAlphabet) {
    for (const QString& text :
         {QString(), QStringLiteral("Ñandú"), QStringLiteral("€ 😀 Ğ"), QString(300, u'x'),
          QString(70000, u'é'), QString(70000, u'ж'), QString(QChar(0)) + QStringLiteral("a")})
        expectKept(text);
}

TEST(RowCodec, TakesFewBytes) {
    EXPECT_EQ(sizeOf(Value::Null{}), 1);
    EXPECT_EQ(sizeOf(qint32(50)), 2);
    EXPECT_EQ(sizeOf(Decimal(1995, 2)), 4);
    EXPECT_EQ(sizeOf(Date(35000)), 4);
    EXPECT_EQ(sizeOf(QStringLiteral("Año")), 5);
}

TEST(RowCodec, ReadsNumbersWithoutMakingValues) {
    ByteBuffer row;
    const std::vector<Value> values = {
        Decimal(-1250, 2),      qint32(7),   2.5,  Value::Null{},         Value(), QStringLiteral("12.5"),
        QStringLiteral("doce"), Date(35000), true, Value::Currency{15000}};
    for (const Value& value : values)
        appendValue(row, value);
    RowReader reader(static_cast<int>(values.size()));
    reader.load(row.view());
    const std::vector<double> wanted = {-12.5, 7, 2.5, 0, 0, 12.5, 0, 35000, -1, 1.5};
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_EQ(reader.number(static_cast<int>(i)), wanted[i]) << i;
}

TEST(RowCodec, EqualValuesHaveEqualBytes) {
    ByteBuffer row;
    for (const char16_t* text : {u"uno", u"uno", u"dos"})
        appendValue(row, QString::fromUtf16(text));
    RowReader reader(3);
    reader.load(row.view());
    EXPECT_EQ(reader.bytes(0).toByteArray(), reader.bytes(1).toByteArray());
    EXPECT_NE(reader.bytes(0).toByteArray(), reader.bytes(2).toByteArray());
}
