#include "tests/reportengine_layout/LayoutFixture.h"
#include "tests/support/ErrorOf.h"

using namespace quorvane;
using namespace quorvane::report;
using namespace Qt::StringLiterals;

namespace {

class Pages : public test::LayoutFixture {
protected:
    void addFrame() {
        add(u"título", Kind::ReportHeader, 20);
        add(u"encabezado", Kind::PageHeader, 10, {field(Source::Count)});
        add(u"línea", Kind::Details, 20, {numberField()});
        add(u"total", Kind::ReportFooter, 20, {field(Source::Count)});
        add(u"pie", Kind::PageFooter, 10, {numberField()});
    }
    static ReportObject field(Source kind) { return test::field(kind); }
};

} // namespace

TEST_F(Pages, ReportHeaderComesOnceAndThePagesFrameEachTime) {
    addFrame();
    layOut(u"a1 a2 a3 a4 a5 a6 a7"_s);
    EXPECT_EQ(allPages(), QStringList({u"título, encabezado 0, línea 1, línea 2, línea 3, pie 3"_s,
                                       u"encabezado 3, línea 4, línea 5, línea 6, línea 7, pie 7"_s,
                                       u"encabezado 7, total 7, pie 7"_s}));
    const Page first = layout->page(0);
    EXPECT_EQ(first.number, 1);
    std::vector<double> tops;
    for (const Band& band : first.bands)
        tops.push_back(band.top);
    EXPECT_EQ(tops, std::vector<double>({10, 30, 40, 60, 80, 100}));
    EXPECT_EQ(layout->page(2).number, 3);
    EXPECT_EQ(layout->page(2).bands.back().top, 100);
}

TEST_F(Pages, NoRowsGiveOnePageWithItsFrame) {
    addFrame();
    layOut(QString());
    EXPECT_EQ(allPages(), QStringList({u"título, encabezado 0, total 0, pie "_s}));
    EXPECT_EQ(layout->page(0).bands.back().row, -1);
    EXPECT_TRUE(layout->complete());
    EXPECT_EQ(layout->rowsLaidOut(), 0);
}

TEST_F(Pages, ADefinitionWithoutSectionsIsOneEmptyPage) {
    layOut(u"a1 a2"_s);
    EXPECT_EQ(allPages(), QStringList({QString()}));
    EXPECT_EQ(layout->rowsLaidOut(), 2);
}

TEST_F(Pages, AnEmptySectionTakesNoPlace) {
    add(u"nada", Kind::PageHeader, 0);
    add(u"línea", Kind::Details, 50, {numberField()});
    layOut(u"a1 a2 a3"_s);
    EXPECT_EQ(allPages(), QStringList({u"línea 1, línea 2"_s, u"línea 3"_s}));
}

TEST_F(Pages, ASectionHigherThanThePageHasAPageOfItsOwn) {
    add(u"encabezado", Kind::PageHeader, 10);
    add(u"línea", Kind::Details, 30, {numberField()});
    add(u"total", Kind::ReportFooter, 500);
    add(u"firma", Kind::ReportFooter, 10);
    layOut(u"a1 a2"_s);
    EXPECT_EQ(allPages(), QStringList({u"encabezado, línea 1, línea 2"_s, u"encabezado, total"_s,
                                       u"encabezado, firma"_s}));
}

TEST_F(Pages, DetailsHigherThanThePageNeverLoop) {
    add(u"título", Kind::ReportHeader, 20);
    add(u"línea", Kind::Details, 101, {numberField()});
    layOut(u"a1 a2"_s);
    EXPECT_EQ(allPages(), QStringList({u"título"_s, u"línea 1"_s, u"línea 2"_s}));
}

TEST_F(Pages, AReportHeaderHigherThanThePageStandsAlone) {
    add(u"título", Kind::ReportHeader, 130);
    add(u"encabezado", Kind::PageHeader, 10);
    add(u"línea", Kind::Details, 20, {numberField()});
    layOut(u"a1"_s);
    EXPECT_EQ(allPages(), QStringList({u"título"_s, u"encabezado, línea 1"_s}));
}

TEST_F(Pages, AFrameHigherThanThePageStillGivesEveryRow) {
    add(u"encabezado", Kind::PageHeader, 80);
    add(u"línea", Kind::Details, 20, {numberField()});
    add(u"pie", Kind::PageFooter, 80);
    layOut(u"a1 a2"_s);
    EXPECT_EQ(allPages(), QStringList({u"encabezado, línea 1, pie"_s, u"encabezado, línea 2, pie"_s}));
}

TEST_F(Pages, ThePartsOfARowStayTogetherWhenAPageHasRoom) {
    add(u"línea", Kind::Details, 40, {numberField()});
    add(u"glosa", Kind::Details, 20, {nameField()});
    layOut(u"a1 b2"_s);
    EXPECT_EQ(allPages(), QStringList({u"línea 1, glosa a"_s, u"línea 2, glosa b"_s}));
}

TEST_F(Pages, ADetailCanBeginItsOwnPage) {
    add(u"título", Kind::ReportHeader, 20);
    add(u"ficha", Kind::Details, 20, {numberField()}).newPageBefore = true;
    add(u"total", Kind::ReportFooter, 10).newPageBefore = true;
    layOut(u"a1 a2"_s);
    EXPECT_EQ(allPages(), QStringList({u"título, ficha 1"_s, u"ficha 2"_s, u"total"_s}));
}

TEST_F(Pages, HeightsFromMillimetresFillAPageToTheBrim) {
    definition.margins = {0, 0, 0, 0};
    definition.pageSize = {200, 20 * 72 / 25.4 * 10};
    add(u"línea", Kind::Details, 20 * 72 / 25.4, {numberField()});
    layOut(u"a1 a2 a3 a4 a5 a6 a7 a8 a9 a0 a1"_s);
    EXPECT_EQ(layout->pageCount(), 2);
    EXPECT_EQ(layout->page(0).bands.size(), 10U);
}

TEST_F(Pages, AnyPageIsTheSameWhateverWasAskedBefore) {
    addFrame();
    definition.sort = {{numberColumnIndex, false}};
    QString rows;
    for (int i = 0; i < 500; ++i)
        rows += QStringLiteral("a%1 ").arg(i * 7 % 500);
    layOut(rows);
    ASSERT_GT(layout->pageCount(), 100);
    const QStringList pages = allPages();
    for (int i = 0; i < layout->pageCount(); ++i) {
        const int page = i * 37 % layout->pageCount();
        EXPECT_EQ(told(layout->page(page)), pages[page]);
    }
    EXPECT_EQ(pages[1], u"encabezado 3, línea 3, línea 4, línea 5, línea 6, pie 6"_s);
}

TEST_F(Pages, AKnownPageCanBeMadeWhileOthersAreCounted) {
    addFrame();
    definition.sortedBySource = true;
    layout = std::make_unique<Layout>(
        definition, std::make_unique<test::ListRows>(columnNames(), 1000, [](qint64 row) -> test::RowValues {
            return {u"a"_s, qint32(row), Value::Null{}};
        }));
    EXPECT_EQ(layout->pageCount(), 0);
    EXPECT_EQ(test::errorOf([&] { (void)layout->page(0); }), ErrorSubscript);
    layout->advanceToPage(0);
    EXPECT_EQ(layout->pageCount(), 1);
    EXPECT_LT(layout->rowsFetched(), 6);
    EXPECT_EQ(told(layout->page(0)), u"título, encabezado 0, línea 0, línea 1, línea 2, pie 2"_s);
    while (layout->advance(std::chrono::milliseconds(0)))
        EXPECT_EQ(told(layout->page(layout->pageCount() - 1)).count(u"línea"_s),
                  layout->pageCount() == 1 ? 3 : 4);
    EXPECT_EQ(layout->rowsLaidOut(), 1000);
    EXPECT_EQ(test::errorOf([&] { (void)layout->page(layout->pageCount()); }), ErrorSubscript);
    EXPECT_EQ(test::errorOf([&] { (void)layout->page(-1); }), ErrorSubscript);
}

TEST_F(Pages, ARowKnowsItsPageAndItsValues) {
    addFrame();
    layOut(u"a1 a2 a3 a4 a5 a6 a7"_s);
    std::vector<int> pages;
    for (int row = 0; row < 7; ++row)
        pages.push_back(layout->pageOfRow(row));
    EXPECT_EQ(pages, std::vector<int>({0, 0, 0, 1, 1, 1, 1}));
    EXPECT_EQ(text(layout->row(4)[numberColumnIndex]), u"5"_s);
    EXPECT_TRUE(layout->row(4)[dateColumnIndex].isNull());
    EXPECT_EQ(test::errorOf([&] { (void)layout->pageOfRow(7); }), ErrorSubscript);
    EXPECT_EQ(test::errorOf([&] { (void)layout->row(-1); }), ErrorSubscript);
}
