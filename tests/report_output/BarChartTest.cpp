#include "platform/reportengine/output/BarChart.h"
#include "tests/report_output/SampleReport.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

TEST(BarChartTest, MarksStandOneTwoOrFiveApart) {
    EXPECT_DOUBLE_EQ(markDistance(10, 5), 2);
    EXPECT_DOUBLE_EQ(markDistance(11, 5), 5);
    EXPECT_DOUBLE_EQ(markDistance(26, 5), 10);
    EXPECT_DOUBLE_EQ(markDistance(0.04, 5), 0.01);
    EXPECT_DOUBLE_EQ(markDistance(1e12, 5), 2e11);
    EXPECT_DOUBLE_EQ(markDistance(0, 5), 1);
}

TEST(BarChartTest, TheLargestBarsKeepTheirOrderAndTheRestIsOneBar) {
    const std::vector<Bar> bars{{u"a"_s, 1}, {u"b"_s, -9}, {u"c"_s, 2}, {u"d"_s, 5}, {u"e"_s, 3}};
    const std::vector<Bar> kept = largestBars(bars, 3);
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[0].name, u"b"_s);
    EXPECT_EQ(kept[1].name, u"d"_s);
    EXPECT_EQ(kept[2].name, u"Otros (3)"_s);
    EXPECT_DOUBLE_EQ(kept[2].value, 6);
    EXPECT_EQ(largestBars(bars, 5).size(), 5U);
}

TEST(BarChartTest, ChartsCountTheirColumnsInTheOrderOfTheSections) {
    Definition definition;
    const auto chart = [](int column) {
        ReportObject object;
        object.kind = ObjectKind::Chart;
        object.chart.column = column;
        return object;
    };
    Section first;
    first.objects = {chart(7), ReportObject(), chart(2)};
    Section second;
    second.objects = {chart(7), chart(4)};
    definition.sections = {first, second};
    EXPECT_EQ(chartTotal(definition, 7), 0);
    EXPECT_EQ(chartTotal(definition, 2), 1);
    EXPECT_EQ(chartTotal(definition, 4), 2);
    EXPECT_EQ(chartTotal(definition, 0), -1);
}

} // namespace

} // namespace quorvane::report
