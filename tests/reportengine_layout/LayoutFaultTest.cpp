#include "tests/reportengine_layout/LayoutFixture.h"
#include "tests/support/ErrorOf.h"
#include <QDir>
#include <QTemporaryDir>

using namespace quorvane;
using namespace quorvane::report;
using namespace Qt::StringLiterals;

namespace {

class LayoutFaults : public test::LayoutFixture {
protected:
    LayoutFaults() { add(u"línea", Kind::Details, 50, {numberField()}); }

    std::unique_ptr<test::ListRows> manyRows(qint64 count) {
        return std::make_unique<test::ListRows>(columnNames(), count, [](qint64 row) -> test::RowValues {
            return {QStringLiteral("cliente %1").arg(row * 7919 % 1000), qint32(row), Value::Null{}};
        });
    }
};

} // namespace

TEST_F(LayoutFaults, AMissingColumnIsToldAtOnce) {
    definition.columns.push_back(test::textColumn(u"otra"_s));
    EXPECT_EQ(test::errorOf([&] { Layout(definition, manyRows(1)); }), ErrorItemNotFound);
}

TEST_F(LayoutFaults, ALostConnectionLeavesThePagesBeforeIt) {
    definition.sortedBySource = true;
    auto rows = manyRows(100);
    rows->failAt(7);
    Layout report(definition, std::move(rows));
    EXPECT_EQ(test::errorOf([&] { report.finish(); }), ErrorConnectionLost);
    EXPECT_FALSE(report.complete());
    ASSERT_EQ(report.pageCount(), 2);
    EXPECT_EQ(told(report.page(1)), u"línea 2, línea 3"_s);
    EXPECT_EQ(text(report.row(5)[numberColumnIndex]), u"5"_s);
    EXPECT_EQ(test::errorOf([&] { report.advance(std::chrono::milliseconds(1)); }), ErrorConnectionLost);
    EXPECT_EQ(test::errorOf([&] { (void)report.page(2); }), ErrorSubscript);
}

TEST_F(LayoutFaults, ALostConnectionBeforeTheSortingLeavesNoPages) {
    definition.sort = {{nameColumn, false}};
    auto rows = manyRows(100);
    rows->failAt(60);
    Layout report(definition, std::move(rows));
    EXPECT_EQ(test::errorOf([&] { report.advanceToPage(0); }), ErrorConnectionLost);
    EXPECT_EQ(report.pageCount(), 0);
    EXPECT_EQ(report.rowsFetched(), 60);
    EXPECT_TRUE(report.groups().empty());
}

TEST_F(LayoutFaults, AnUnwritableTemporaryFolderIsRaisedAndLeavesPagesThatWereKnown) {
    definition.sortedBySource = true;
    LayoutOptions options;
    options.rows = {1000, 1000, 100, u"/dev/null/no"_s};
    Layout report(definition, manyRows(5000), options);
    EXPECT_EQ(test::errorOf([&] { report.finish(); }), ErrorPathAccess);
    ASSERT_GT(report.pageCount(), 5);
    EXPECT_EQ(told(report.page(1)), u"línea 2, línea 3"_s);
}

TEST_F(LayoutFaults, TheTemporaryFileGoesWithTheLayout) {
    const QTemporaryDir folder;
    definition.sort = {{nameColumn, false}};
    LayoutOptions options;
    options.rows = {10000, 10000, 300, folder.path()};
    auto report = std::make_unique<Layout>(definition, manyRows(5000), options);
    report->finish();
    EXPECT_EQ(report->pageCount(), 2500);
    EXPECT_EQ(told(report->page(0)), u"línea 0, línea 1000"_s);
    EXPECT_EQ(told(report->page(2499)).count(u"línea"_s), 2);
    report.reset();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(LayoutFaults, ALayoutThrownAwayInTheMiddleLeavesNothing) {
    const QTemporaryDir folder;
    definition.sort = {{nameColumn, false}};
    LayoutOptions options;
    options.rows = {10000, 10000, 300, folder.path()};
    int gone = 0;
    {
        auto rows = manyRows(5000);
        rows->setGone(&gone);
        Layout report(definition, std::move(rows), options);
        while (report.rowsFetched() < 2000)
            report.advance(std::chrono::milliseconds(0));
    }
    EXPECT_EQ(gone, 1);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}
