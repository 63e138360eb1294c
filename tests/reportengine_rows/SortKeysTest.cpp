#include "platform/reportengine/rows/SortKeys.h"
#include "tests/support/ReportParts.h"
#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::report;

namespace {

QByteArray keyOf(const KeyPart& part, const Value& value) {
    SpanishKey key;
    appendKey(part, value, key);
    return {reinterpret_cast<const char*>(key.data()), key.size()};
}

int order(const KeyPart& part, const Value& a, const Value& b) {
    const int order = compareKeys(keyOf(part, a), keyOf(part, b));
    return (order > 0) - (order < 0);
}

void expectAscending(const KeyPart& part, const std::vector<Value>& values) {
    KeyPart backwards = part;
    backwards.descending = true;
    for (std::size_t i = 1; i < values.size(); ++i) {
        EXPECT_EQ(order(part, values[i - 1], values[i]), -1) << i;
        EXPECT_EQ(order(backwards, values[i - 1], values[i]), 1) << i;
        EXPECT_EQ(order(part, values[i], values[i]), 0) << i;
    }
}

} // namespace

TEST(SortKeys, OrderTextsAsASpanishList) {
    expectAscending({0, ColumnType::Text, Period::None, false},
                    {Value::Null{}, QString(), QStringLiteral("Álamo"), QStringLiteral("alba"),
                     QStringLiteral("nube"), QStringLiteral("ñandú"), QStringLiteral("OSO"),
                     QStringLiteral("zar")});
    EXPECT_EQ(order({}, QStringLiteral("ÑANDÚ  "), QStringLiteral("ñandú")), 0);
    EXPECT_NE(order({}, QStringLiteral("papa"), QStringLiteral("papá")), 0);
    EXPECT_EQ(order({}, qint32(5), QStringLiteral("5")), 0);
}

TEST(SortKeys, OrderNumbersAndDatesBySize) {
    expectAscending({0, ColumnType::Number, Period::None, false},
                    {Value::Null{}, -1e300, Decimal(-2, 0), -1.5, qint32(0), 1e-300, Decimal(1, 1), 0.5,
                     qint32(7), 1e300});
    EXPECT_EQ(order({0, ColumnType::Number, Period::None, false}, 0.0, -0.0), 0);
    EXPECT_EQ(order({0, ColumnType::Number, Period::None, false}, Decimal(150, 2), 1.5), 0);
    EXPECT_EQ(order({0, ColumnType::Number, Period::None, false}, QStringLiteral("doce"), Value::Null{}), 0);
    expectAscending({0, ColumnType::Date, Period::None, false},
                    {Value::Null{}, Date(-5), Date(), Date(35000), Date(35000.5), Date(35001)});
}

TEST(SortKeys, CountOnlyThePeriodOfADate) {
    const KeyPart month{0, ColumnType::Date, Period::Month, false};
    const KeyPart year{0, ColumnType::Date, Period::Year, false};
    const Date early = Date::fromYmd(1996, 12, 1);
    const Date late = Date::fromYmd(1996, 12, 31);
    const Date next = Date::fromYmd(1997, 1, 1);
    EXPECT_EQ(order(month, early, late), 0);
    expectAscending(month, {Value::Null{}, late, next});
    EXPECT_EQ(order(year, Date::fromYmd(1996, 1, 1), late), 0);
    expectAscending(year, {Date(), late, next});
}

TEST(SortKeys, LongNamesDifferInTheirLastLetter) {
    const QString name(299, u'a');
    expectAscending({}, {QString(name + u'b'), QString(name + u'c'), QString(name + u'c' + u'a')});
}

TEST(SortKeys, FollowTheGroupsAndThenTheSortKeys) {
    Definition definition;
    definition.columns = {test::textColumn(QStringLiteral("vendedor")),
                          test::dateColumn(QStringLiteral("fecha")),
                          test::numberColumn(QStringLiteral("monto"))};
    definition.groups = {test::group(1, Period::Month), test::group(0)};
    definition.sort = {{0, true}, {1, false}, {2, true}};
    const std::vector<KeyPart> parts = sortParts(definition);
    ASSERT_EQ(parts.size(), 4U);
    EXPECT_EQ(parts[0].column, 1);
    EXPECT_EQ(parts[0].period, Period::Month);
    EXPECT_EQ(parts[1].column, 0);
    EXPECT_TRUE(parts[1].descending);
    EXPECT_EQ(parts[2].column, 1);
    EXPECT_EQ(parts[2].period, Period::None);
    EXPECT_EQ(parts[3].column, 2);
    definition.sortedBySource = true;
    EXPECT_TRUE(sortParts(definition).empty());
}
