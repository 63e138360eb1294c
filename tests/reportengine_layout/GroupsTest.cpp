#include "tests/reportengine_layout/LayoutFixture.h"

using namespace quorvane;
using namespace quorvane::report;
using namespace Qt::StringLiterals;

namespace {

class Groups : public test::LayoutFixture {
protected:
    /// One group by name: header and footer of 10 points, details of 20.
    void addGroup() {
        definition.groups = {test::group(nameColumn)};
        add(u"grupo", Kind::GroupHeader, 10, {nameField()});
        add(u"línea", Kind::Details, 20, {numberField()});
        add(u"suma", Kind::GroupFooter, 10, {sumField(0)});
    }
    static QString rowsOf(const QString& name, int from, int to) {
        QString rows;
        for (int i = from; i <= to; ++i)
            rows += name + QString::number(i) + u' ';
        return rows;
    }
};

} // namespace

TEST_F(Groups, BeginAndEndWithTheirHeadersAndFooters) {
    addGroup();
    add(u"total", Kind::ReportFooter, 10, {sumField(FieldSource::WholeReport)});
    layOut(u"b5 a1 b7 a2"_s);
    EXPECT_EQ(allPages(), QStringList({u"grupo a, línea 1, línea 2, suma 3, grupo b, línea 5"_s,
                                       u"línea 7, suma 12, total 15"_s}));
}

TEST_F(Groups, NestAndEndFromTheInnermostOutward) {
    definition.pageSize = {200, 1000};
    definition.groups = {test::group(nameColumn), test::group(numberColumnIndex)};
    add(u"G", Kind::GroupHeader, 10, {nameField()}, 0);
    add(u"g", Kind::GroupHeader, 10, {numberField()}, 1);
    add(u"línea", Kind::Details, 10);
    add(u"/g", Kind::GroupFooter, 10, {test::field(Source::Count, 0, 1)}, 1);
    add(u"/G", Kind::GroupFooter, 10, {test::field(Source::Count, 0, 0)}, 0);
    layOut(u"a2 b1 a1 a1 b1"_s);
    EXPECT_EQ(allPages(), QStringList({u"G a, g 1, línea, línea, /g 2, g 2, línea, /g 1, /G 3, "
                                       u"G b, g 1, línea, línea, /g 2, /G 2"_s}));
}

TEST_F(Groups, CompareWithoutLetterCaseButWithAccents) {
    addGroup();
    definition.pageSize = {200, 1000};
    definition.sortedBySource = true;
    layOut(std::vector<test::RowValues>{{u"ñandú"_s, qint32(1), {}},
                                        {u"ÑANDÚ "_s, qint32(2), {}},
                                        {u"ñandu"_s, qint32(3), {}},
                                        {Value::Null{}, qint32(4), {}},
                                        {Value::Null{}, qint32(5), {}},
                                        {QString(), qint32(6), {}}});
    EXPECT_EQ(allPages(),
              QStringList({u"grupo ñandú, línea 1, línea 2, suma 3, grupo ñandu, línea 3, suma 3, "
                           u"grupo Null, línea 4, línea 5, suma 9, grupo , línea 6, suma 6"_s}));
}

TEST_F(Groups, AHeaderIsNeverAloneAtTheFootOfAPage) {
    addGroup();
    // 10 + 3 * 20 + 10 leave 20 points: room for a header, not for a line below it.
    layOut(u"a1 a2 a3 b4"_s);
    EXPECT_EQ(allPages(),
              QStringList({u"grupo a, línea 1, línea 2, línea 3, suma 6"_s, u"grupo b, línea 4, suma 4"_s}));
}

TEST_F(Groups, NestedHeadersMoveTogetherWithTheirFirstDetail) {
    definition.groups = {test::group(nameColumn), test::group(numberColumnIndex)};
    add(u"G", Kind::GroupHeader, 20, {nameField()}, 0);
    add(u"g", Kind::GroupHeader, 20, {numberField()}, 1);
    add(u"línea", Kind::Details, 20);
    layOut(u"a1 b1"_s);
    EXPECT_EQ(allPages(), QStringList({u"G a, g 1, línea"_s, u"G b, g 1, línea"_s}));
}

TEST_F(Groups, AFooterTakesTheLastDetailAlong) {
    addGroup();
    layOut(rowsOf(u"a"_s, 1, 4)); // header and four lines are 90 points: the footer fits
    EXPECT_EQ(allPages(), QStringList({u"grupo a, línea 1, línea 2, línea 3, línea 4, suma 10"_s}));
    definition.sections[2].height = 11;
    layOut(rowsOf(u"a"_s, 1, 4));
    EXPECT_EQ(allPages(), QStringList({u"grupo a, línea 1, línea 2, línea 3"_s, u"línea 4, suma 10"_s}));
}

TEST_F(Groups, AHeaderStaysWithItsDetailRatherThanTheDetailWithTheFooter) {
    addGroup();
    definition.sections[2].height = 75; // detail and footer fit on a page, the header above them does not
    layOut(u"a1 b2"_s);
    EXPECT_EQ(allPages(),
              QStringList({u"grupo a, línea 1"_s, u"suma 1"_s, u"grupo b, línea 2"_s, u"suma 2"_s}));
}

TEST_F(Groups, AFooterThatFitsOnNoPageWithADetailGoesAlone) {
    addGroup();
    definition.sections[2].height = 90;
    layOut(u"a1 a2"_s);
    EXPECT_EQ(allPages(), QStringList({u"grupo a, línea 1, línea 2"_s, u"suma 3"_s}));
}

TEST_F(Groups, AHeaderComesAgainOnTheGroupsNextPages) {
    addGroup();
    definition.sections[0].repeatOnPage = true;
    layOut(rowsOf(u"a"_s, 1, 9) + u"b1"_s);
    EXPECT_EQ(allPages(), QStringList({u"grupo a, línea 1, línea 2, línea 3, línea 4"_s,
                                       u"grupo a, línea 5, línea 6, línea 7, línea 8"_s,
                                       u"grupo a, línea 9, suma 45, grupo b, línea 1, suma 1"_s}));
    EXPECT_FALSE(layout->page(0).bands[0].repeated);
    EXPECT_TRUE(layout->page(1).bands[0].repeated);
    EXPECT_FALSE(layout->page(2).bands[3].repeated);
}

TEST_F(Groups, OnlyTheOuterHeaderComesAgainBeforeANewInnerGroup) {
    definition.groups = {test::group(nameColumn), test::group(numberColumnIndex)};
    add(u"G", Kind::GroupHeader, 20, {nameField()}, 0).repeatOnPage = true;
    add(u"g", Kind::GroupHeader, 20, {numberField()}, 1).repeatOnPage = true;
    add(u"línea", Kind::Details, 20);
    layOut(u"a1 a1 a2 a2 a2 a2"_s);
    EXPECT_EQ(allPages(), QStringList({u"G a, g 1, línea, línea"_s, u"G a, g 2, línea, línea, línea"_s,
                                       u"G a, g 2, línea"_s}));
}

TEST_F(Groups, AFooterOnANewPageStandsUnderItsHeader) {
    addGroup();
    definition.sections[0].repeatOnPage = true;
    definition.sections[2].height = 80; // no page has room for header, detail and footer
    layOut(u"a1 b2"_s);
    EXPECT_EQ(allPages(), QStringList({u"grupo a, línea 1"_s, u"grupo a, suma 1"_s, u"grupo b, línea 2"_s,
                                       u"grupo b, suma 2"_s}));
}

TEST_F(Groups, AHeaderTooHighToComeAgainIsLeftOut) {
    addGroup();
    definition.sections[0].repeatOnPage = true;
    definition.sections[0].height = 85;
    layOut(u"a1 a2"_s);
    EXPECT_EQ(allPages(), QStringList({u"grupo a"_s, u"línea 1, línea 2, suma 3"_s}));
}

TEST_F(Groups, CanBeginOnNewPages) {
    addGroup();
    add(u"título", Kind::ReportHeader, 20);
    definition.sections[0].newPageBefore = true;
    layOut(u"a1 b2 b3"_s);
    EXPECT_EQ(allPages(),
              QStringList({u"título, grupo a, línea 1, suma 1"_s, u"grupo b, línea 2, línea 3, suma 5"_s}));
}

TEST_F(Groups, AnInnerHeaderThatBeginsAPageTakesTheOuterOneAlong) {
    definition.groups = {test::group(nameColumn), test::group(numberColumnIndex)};
    add(u"G", Kind::GroupHeader, 10, {nameField()}, 0);
    add(u"g", Kind::GroupHeader, 10, {numberField()}, 1).newPageBefore = true;
    add(u"línea", Kind::Details, 10);
    layOut(u"a1 a2 b1"_s);
    EXPECT_EQ(allPages(), QStringList({u"G a, g 1, línea"_s, u"g 2, línea"_s, u"G b, g 1, línea"_s}));
}

TEST_F(Groups, OddRowsBeginAnewInEachGroup) {
    addGroup();
    definition.pageSize = {200, 1000};
    layOut(u"a1 a2 a3 b1 b2"_s);
    std::vector<bool> odd;
    for (const Band& band : layout->page(0).bands)
        if (definition.sections[band.section].kind == Kind::Details)
            odd.push_back(band.odd);
    EXPECT_EQ(odd, std::vector<bool>({false, true, false, false, true}));
}

TEST_F(Groups, AreEnteredInTheTreeWithTheirPageAndTotals) {
    addGroup();
    definition.groups[0].caption = u"Vendedor"_s;
    add(u"total", Kind::ReportFooter, 10, {test::chart(0, numberColumnIndex)});
    layOut(rowsOf(u"a"_s, 1, 9) + u"b4 b5"_s);
    const std::vector<GroupEntry>& groups = layout->groups();
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0].caption, u"Vendedor a"_s);
    EXPECT_EQ(groups[1].name, u"b"_s);
    EXPECT_EQ(groups[0].page, 0);
    EXPECT_EQ(groups[1].page, layout->pageOfRow(9));
    EXPECT_EQ(groups[1].row, 9);
    EXPECT_EQ(groups[0].totals, std::vector<double>({45}));
    EXPECT_EQ(groups[1].totals, std::vector<double>({9}));
    EXPECT_EQ(chartColumns(definition), std::vector<int>({numberColumnIndex}));
}

TEST_F(Groups, ByMonthAndYearTakeDatesTogether) {
    definition.pageSize = {200, 1000};
    definition.groups = {test::group(dateColumnIndex, Period::Year),
                         test::group(dateColumnIndex, Period::Month)};
    add(u"año", Kind::GroupHeader, 10, {test::field(Source::Column, dateColumnIndex)}, 0);
    add(u"línea", Kind::Details, 10, {numberField()});
    add(u"mes", Kind::GroupFooter, 10, {sumField(1)}, 1);
    const auto on = [](int year, int month, int day, int number) -> test::RowValues {
        return {u"a"_s, qint32(number), Date::fromYmd(year, month, day)};
    };
    layOut({on(1997, 1, 2, 4), on(1996, 7, 31, 2), on(1996, 8, 1, 3), on(1996, 7, 4, 1)});
    EXPECT_EQ(allPages(), QStringList({u"año 31/07/1996, línea 2, línea 1, mes 3, línea 3, mes 3, "
                                       u"año 02/01/1997, línea 4, mes 4"_s}));
    QStringList names;
    for (const GroupEntry& entry : layout->groups())
        names.append(entry.name);
    EXPECT_EQ(names, QStringList({u"1996"_s, u"julio 1996"_s, u"agosto 1996"_s, u"1997"_s, u"enero 1997"_s}));
}
