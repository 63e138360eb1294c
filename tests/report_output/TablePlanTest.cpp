#include "platform/reportengine/output/TablePlan.h"
#include "tests/support/ReportParts.h"
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using quorvane::test::numberColumn;
using quorvane::test::section;
using quorvane::test::textColumn;

namespace quorvane::report::test {

namespace {

enum Look { FromLeft, FromRight };

ReportObject text(QRectF rect, const QString& content, int style = FromLeft) {
    ReportObject object;
    object.rect = rect;
    object.text = content;
    object.style = style;
    return object;
}

ReportObject column(QRectF rect, int position, int style = FromLeft) {
    ReportObject object = quorvane::test::field(FieldSource::Kind::Column, position);
    object.rect = rect;
    object.style = style;
    return object;
}

ReportObject sum(QRectF rect, int position) {
    ReportObject object = quorvane::test::field(FieldSource::Kind::Sum, position, 0);
    object.rect = rect;
    object.style = FromRight;
    return object;
}

/// The columns of the cells of a line, by object.
std::vector<int> columnsOf(const TableLine& line) {
    std::vector<int> columns(line.cells.size());
    for (const TableCell& cell : line.cells)
        columns[cell.object] = cell.column;
    return columns;
}

} // namespace

class TablePlanTest : public testing::Test {
protected:
    TablePlanTest() {
        definition.styles.resize(2);
        definition.styles[FromRight].alignment = Qt::AlignRight;
        definition.columns = {textColumn(u"name"_s), numberColumn(u"amount"_s), numberColumn(u"cost"_s)};
        definition.groups = {quorvane::test::group(0)};
        details = {column({0, 0, 100, 10}, 0), column({110, 0, 50, 10}, 1, FromRight),
                   column({170, 0, 50, 10}, 2, FromRight)};
    }
    /// Details with a section above or below them.
    TablePlan planWith(SectionKind kind, std::vector<ReportObject> objects) {
        const bool above = kind != SectionKind::GroupFooter && kind != SectionKind::ReportFooter;
        definition.sections = {section(SectionKind::Details, 10, details)};
        definition.sections.insert(above ? definition.sections.begin() : definition.sections.end(),
                                   section(kind, 40, std::move(objects)));
        return TablePlan(definition);
    }

    Definition definition;
    std::vector<ReportObject> details;
};

TEST_F(TablePlanTest, FieldsOfTheDetailsAreTheColumnsFromLeftToRight) {
    std::swap(details[0], details[2]);
    definition.sections = {section(SectionKind::Details, 10, details)};
    const TablePlan plan(definition);
    ASSERT_EQ(plan.columns().size(), 3U);
    EXPECT_EQ(columnsOf(plan.section(0).lines.front()), (std::vector<int>{2, 1, 0}));
}

TEST_F(TablePlanTest, ASecondLineOfADetailStaysInItsRow) {
    details.push_back(column({0, 10, 100, 10}, 0));
    definition.sections = {section(SectionKind::Details, 20, details)};
    const TablePlan plan(definition);
    EXPECT_EQ(plan.section(0).lines.size(), 1U);
    EXPECT_EQ(columnsOf(plan.section(0).lines.front()), (std::vector<int>{0, 2, 3, 1}));
}

TEST_F(TablePlanTest, FurtherDetailSectionsUseTheColumnsOfTheFirst) {
    definition.sections = {
        section(SectionKind::Details, 10, details),
        section(SectionKind::Details, 10, {column({5, 0, 90, 10}, 0), column({230, 0, 40, 10}, 1)})};
    const TablePlan plan(definition);
    EXPECT_EQ(plan.columns().size(), 4U);
    EXPECT_EQ(columnsOf(plan.section(1).lines.front()), (std::vector<int>{0, 3}));
}

TEST_F(TablePlanTest, ObjectsThatTakeTurnsShareAColumn) {
    ReportObject yes = text({230, 0, 20, 10}, u"Sí"_s);
    yes.condition = {Condition::Test::Positive, 1, 0, true};
    ReportObject no = text({230, 0, 20, 10}, u"No"_s);
    no.condition = {Condition::Test::Zero, 1, 0, true};
    details.push_back(yes);
    details.push_back(no);
    definition.sections = {section(SectionKind::Details, 10, details)};
    EXPECT_EQ(columnsOf(TablePlan(definition).section(0).lines.front()), (std::vector<int>{0, 1, 2, 3, 3}));
}

TEST_F(TablePlanTest, TotalsStandUnderWhatTheyAddUp) {
    // The sum of the cost lies for the greater part under the amount.
    const TablePlan plan =
        planWith(SectionKind::GroupFooter, {text({0, 0, 40, 10}, u"Total"_s), sum({120, 0, 55, 10}, 2)});
    EXPECT_EQ(columnsOf(plan.section(1).lines.front()), (std::vector<int>{0, 2}));
    EXPECT_FALSE(plan.section(1).isBody);
    EXPECT_EQ(plan.columns()[2].width, 55) << "its figures must find room";
}

TEST_F(TablePlanTest, ATextGoesToTheColumnBesideTheOneThatIsTaken) {
    const TablePlan plan =
        planWith(SectionKind::GroupHeader, {text({0, 0, 30, 10}, u"Vendedor"_s), column({35, 0, 60, 10}, 0)});
    EXPECT_EQ(columnsOf(plan.section(0).lines.front()), (std::vector<int>{0, 1}));
}

TEST_F(TablePlanTest, ATextWithoutAFreeColumnBesideIsJoined) {
    const TablePlan plan =
        planWith(SectionKind::GroupFooter, {text({0, 0, 30, 10}, u"Total"_s), column({35, 0, 60, 10}, 0),
                                            sum({110, 0, 50, 10}, 1), sum({170, 0, 50, 10}, 2)});
    const TableLine& line = plan.section(1).lines.front();
    EXPECT_EQ(columnsOf(line), (std::vector<int>{0, 0, 1, 2}));
    EXPECT_FALSE(line.cells[0].joined);
    EXPECT_TRUE(line.cells[1].joined);
}

TEST_F(TablePlanTest, TextsFromTheRightStandWhereTheyEnd) {
    const TablePlan plan = planWith(SectionKind::PageHeader, {text({0, 0, 220, 10}, u"Título"_s, FromRight),
                                                              text({0, 12, 220, 10}, u"Dirección"_s)});
    ASSERT_EQ(plan.section(0).lines.size(), 2U);
    EXPECT_EQ(plan.section(0).lines[0].cells[0].column, 2);
    EXPECT_EQ(plan.section(0).lines[1].cells[0].column, 0);
}

TEST_F(TablePlanTest, TextsAboveTheColumnsAreTheirHeadings) {
    const TablePlan plan =
        planWith(SectionKind::PageHeader,
                 {text({0, 0, 220, 10}, u"Título"_s), text({110, 12, 50, 10}, u"En"_s),
                  text({170, 12, 50, 10}, u"En"_s), text({0, 24, 80, 10}, u"Cliente"_s),
                  text({110, 24, 50, 10}, u"pesos"_s), text({170, 24, 50, 10}, u"dólares"_s)});
    EXPECT_EQ(plan.headingSection(), 0);
    const auto& lines = plan.section(0).lines;
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_FALSE(lines[0].heading);
    EXPECT_TRUE(lines[1].heading);
    EXPECT_TRUE(lines[2].heading);
    EXPECT_EQ(plan.columns()[0].headings.size(), 1U);
    ASSERT_EQ(plan.columns()[1].headings.size(), 2U);
    EXPECT_EQ(plan.columns()[1].headings[0].object, 1);
    EXPECT_EQ(plan.columns()[1].headings[1].object, 4);
}

TEST_F(TablePlanTest, HeadingsMayStandInTheGroupsHeader) {
    const TablePlan plan = planWith(SectionKind::GroupHeader,
                                    {text({0, 0, 80, 10}, u"Cliente"_s), text({110, 0, 50, 10}, u"Monto"_s)});
    EXPECT_EQ(plan.headingSection(), 0);
}

TEST_F(TablePlanTest, ALineWithAFieldNamesNoColumns) {
    const TablePlan plan =
        planWith(SectionKind::GroupHeader, {text({0, 0, 80, 10}, u"Cliente"_s), column({110, 0, 50, 10}, 0)});
    EXPECT_EQ(plan.headingSection(), -1);
}

TEST_F(TablePlanTest, TheTitleAboveASingleColumnIsNotItsHeading) {
    details.resize(1);
    const TablePlan plan = planWith(
        SectionKind::PageHeader, {text({0, 0, 100, 10}, u"Título"_s), text({0, 12, 100, 10}, u"Cliente"_s)});
    ASSERT_EQ(plan.columns()[0].headings.size(), 1U);
    EXPECT_EQ(plan.columns()[0].headings[0].object, 1);
}

TEST_F(TablePlanTest, WithoutDetailsTheInnermostGroupGivesTheLines) {
    definition.groups.push_back(quorvane::test::group(0));
    definition.sections = {section(SectionKind::GroupHeader, 10, {column({0, 0, 50, 10}, 0)}, 0),
                           section(SectionKind::GroupHeader, 10, {column({0, 0, 50, 10}, 0)}, 1),
                           section(SectionKind::Details, 0),
                           section(SectionKind::GroupFooter, 10, details, 1),
                           section(SectionKind::GroupFooter, 10, {sum({110, 0, 50, 10}, 1)}, 0)};
    const TablePlan plan(definition);
    EXPECT_TRUE(plan.section(3).isBody);
    EXPECT_FALSE(plan.section(1).isBody);
    EXPECT_EQ(plan.columns().size(), 3U);
    EXPECT_EQ(plan.section(4).lines.front().cells[0].column, 1);
}

TEST_F(TablePlanTest, AReportThatShowsNothingHasNoColumns) {
    definition.sections = {section(SectionKind::PageHeader, 10, {text({0, 0, 50, 10}, u"Título"_s)}),
                           section(SectionKind::Details, 0)};
    const TablePlan plan(definition);
    EXPECT_TRUE(plan.columns().empty());
    EXPECT_EQ(plan.section(0).lines.front().cells[0].column, 0);
}

} // namespace quorvane::report::test
