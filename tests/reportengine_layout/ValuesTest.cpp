#include "platform/reportengine/layout/BandMaker.h"
#include "tests/reportengine_layout/LayoutFixture.h"

using namespace quorvane;
using namespace quorvane::report;
using namespace Qt::StringLiterals;

namespace {

using When = Condition::Test;

class Values : public test::LayoutFixture {};

} // namespace

TEST_F(Values, ColumnsCountsAndSumsAreValuesAndTheRestIsLeftToTheDrawing) {
    add(u"línea", Kind::Details, 10,
        {nameField(), numberField(), test::field(Source::Column, dateColumnIndex),
         sumField(FieldSource::WholeReport), test::field(Source::Count), test::field(Source::PageNumber),
         test::field(Source::Formula), ReportObject()});
    layOut({{u"a"_s, Decimal(150, 2), Value::Null{}}, {QString(300, u'ñ'), Value::Null{}, Date(35000)}});
    const std::vector<Band> bands = layout->page(0).bands;
    ASSERT_EQ(bands.size(), 2U);
    ASSERT_EQ(bands[0].values.size(), 8U);
    EXPECT_EQ(bands[0].values[1].get<Decimal>()->scale(), 2);
    EXPECT_TRUE(bands[0].values[2].isNull());
    EXPECT_EQ(text(bands[1].values[0]), QString(300, u'ñ'));
    EXPECT_TRUE(bands[1].values[1].isNull());
    EXPECT_EQ(bands[1].values[2].get<Date>()->serial(), 35000);
    EXPECT_EQ(*bands[1].values[3].get<double>(), 1.5); // Null counts as nothing
    EXPECT_EQ(*bands[1].values[4].get<qint32>(), 2);
    for (const std::size_t i : {5, 6, 7})
        EXPECT_EQ(bands[1].values[i].kind(), quorvane::Kind::Empty);
    EXPECT_EQ(bands[1].row, 1);
}

TEST_F(Values, SumsDoNotLoseCents) {
    add(u"total", Kind::ReportFooter, 10, {sumField(FieldSource::WholeReport)});
    std::vector<test::RowValues> rows;
    rows.push_back({u"a"_s, 1e16, {}});
    for (int i = 0; i < 10000; ++i)
        rows.push_back({u"a"_s, Decimal(1, 1), {}});
    rows.push_back({u"a"_s, -1e16, {}});
    layOut(std::move(rows));
    EXPECT_NEAR(*layout->page(0).bands[0].values[0].get<double>(), 1000.0, 1e-9);
}

TEST_F(Values, PageFramesShowTheTotalsSoFar) {
    add(u"viene", Kind::PageHeader, 10, {sumField(FieldSource::WholeReport)});
    add(u"línea", Kind::Details, 40, {numberField()});
    add(u"va", Kind::PageFooter, 10, {sumField(FieldSource::WholeReport)});
    layOut(u"a1 a2 a3 a4 a5"_s);
    EXPECT_EQ(allPages(),
              QStringList({u"viene 0, línea 1, línea 2, va 3"_s, u"viene 3, línea 3, línea 4, va 10"_s,
                           u"viene 10, línea 5, va 15"_s}));
}

TEST(Conditions, TestValues) {
    const Value null = Value::Null{};
    EXPECT_TRUE(conditionHolds(When::Negative, Decimal(-1, 2)));
    EXPECT_FALSE(conditionHolds(When::Negative, qint32(0)));
    EXPECT_FALSE(conditionHolds(When::Negative, null));
    EXPECT_TRUE(conditionHolds(When::Positive, 0.5));
    EXPECT_FALSE(conditionHolds(When::Positive, QStringLiteral("texto")));
    EXPECT_TRUE(conditionHolds(When::Zero, Decimal()));
    EXPECT_FALSE(conditionHolds(When::Zero, null));
    for (const Value& blank : {null, Value(), Value(QStringLiteral("  ")), Value(Date())}) {
        EXPECT_TRUE(conditionHolds(When::Empty, blank));
        EXPECT_FALSE(conditionHolds(When::Filled, blank));
    }
    EXPECT_TRUE(conditionHolds(When::Filled, qint32(0)));
    EXPECT_FALSE(conditionHolds(When::None, qint32(0)));
}

TEST_F(Values, AConditionLooksAtTheRowAndOnASumAtTheSum) {
    ReportObject name = nameField();
    name.condition = {When::Negative, numberColumnIndex, 0, false};
    ReportObject sum = sumField(FieldSource::WholeReport);
    sum.condition = name.condition;
    add(u"línea", Kind::Details, 10, {numberField(), name, sum});
    layOut({{u"a"_s, qint32(5), {}}, {u"b"_s, qint32(-1), {}}, {u"c"_s, qint32(-7), {}}});
    const std::vector<Band> bands = layout->page(0).bands;
    EXPECT_TRUE(bands[0].condition.empty());
    EXPECT_EQ(bands[1].condition, std::vector<bool>({false, true, false}));
    EXPECT_EQ(bands[2].condition, std::vector<bool>({false, true, true}));
}
