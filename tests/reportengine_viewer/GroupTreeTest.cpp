#include "platform/reportengine/viewer/GroupTreeModel.h"
#include "tests/reportengine_viewer/ViewerFixture.h"
#include "tests/support/ReportParts.h"
#include <QAbstractItemModelTester>
#include <QTreeView>

using namespace Qt::StringLiterals;
using namespace quorvane::report;

namespace {

class GroupTree : public test::ViewerFixture {
protected:
    QTreeView& tree() { return part<QTreeView>("groups"); }
    QModelIndex group(int row) { return tree().model()->index(row, GroupTreeModel::Caption); }
};

/// Rows of two levels of groups: 40 rows, a new outer group every 20, an inner one every 5.
std::unique_ptr<Layout> twoLevels(const Definition& definition) {
    const auto make = [](qint64 row) {
        return quorvane::test::RowValues{u"g%1"_s.arg(row / 20), u"h%1"_s.arg(row / 5)};
    };
    return std::make_unique<Layout>(
        definition, std::make_unique<quorvane::test::ListRows>(QStringList{u"a"_s, u"b"_s}, 40, make));
}

Definition twoLevelDefinition() {
    using namespace quorvane::test;
    Definition definition;
    definition.pageSize = {200, 120};
    definition.margins = {10, 10, 10, 10};
    definition.columns = {textColumn(u"a"_s), textColumn(u"b"_s)};
    definition.groups = {quorvane::test::group(0), quorvane::test::group(1)};
    definition.sortedBySource = true;
    definition.sections = {section(SectionKind::Details, 10)};
    return definition;
}

} // namespace

TEST_F(GroupTree, ShowsTheSalespeopleWithTheirPages) {
    open(2000);
    ASSERT_EQ(tree().model()->rowCount(), 10);
    EXPECT_EQ(group(0).data().toString(), u"Vendedor Andrés Peña"_s);
    EXPECT_EQ(group(0).siblingAtColumn(GroupTreeModel::PageNumber).data().toString(), u"1"_s);
    EXPECT_EQ(group(7).data().toString(), u"Vendedor Hugo Ñancupil"_s);
}

TEST_F(GroupTree, AClickGoesToTheGroup) {
    open(2000);
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(group(7)).center());
    const int page = view().currentPage();
    EXPECT_EQ(group(7).siblingAtColumn(GroupTreeModel::PageNumber).data().toInt(), page + 1);
    // Its heading is to be seen, though it stands in the middle of the page.
    const QRect heading = placeOf(page, u"Hugo Ñancupil"_s);
    EXPECT_TRUE(view().viewport()->rect().contains(heading));
    EXPECT_LT(heading.top(), view().viewport()->height() / 2);
}

TEST_F(GroupTree, FollowsTheReader) {
    open(2000);
    press(Qt::Key_End);
    EXPECT_EQ(tree().currentIndex().row(), 9);
    press(Qt::Key_Home);
    EXPECT_EQ(tree().currentIndex().row(), 0);
}

TEST_F(GroupTree, GroupsComeInWhileTheReportIsLaidOut) {
    show(300000, true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return tree().model()->rowCount() > 0; }));
    EXPECT_LT(tree().model()->rowCount(), 10);
    viewer->stop();
}

TEST_F(GroupTree, CanBeHidden) {
    open(100);
    EXPECT_TRUE(tree().isVisible());
    press(Qt::Key_F4);
    EXPECT_FALSE(tree().isVisible());
    press(Qt::Key_F4);
    EXPECT_TRUE(tree().isVisible());
}

TEST(GroupTreeModel, InnerGroupsAreToldWhenTheyAreOpened) {
    const Definition definition = twoLevelDefinition();
    const std::unique_ptr<Layout> layout = twoLevels(definition);
    GroupTreeModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    tester.setUseFetchMore(false);
    model.setLayout(layout.get());
    layout->advanceToPage(0);
    model.update();
    ASSERT_EQ(model.rowCount(), 1);
    const QModelIndex outer = model.index(0, 0);
    EXPECT_TRUE(model.hasChildren(outer));
    model.fetchMore(outer);
    const int known = model.rowCount(outer);
    EXPECT_GT(known, 0);
    layout->finish();
    model.update();
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.rowCount(outer), 4);
    const QModelIndex second = model.index(1, 0);
    model.fetchMore(second);
    ASSERT_EQ(model.rowCount(second), 4);
    EXPECT_EQ(model.index(3, 0, second).data().toString(), u"h7"_s);
    EXPECT_EQ(model.parent(model.index(3, 0, second)), second);
}

TEST(GroupTreeModel, KnowsTheGroupOfAPage) {
    const Definition definition = twoLevelDefinition();
    const std::unique_ptr<Layout> layout = twoLevels(definition);
    layout->finish();
    GroupTreeModel model;
    model.setLayout(layout.get());
    EXPECT_EQ(model.indexOfPage(0).row(), 0);
    EXPECT_EQ(model.indexOfPage(1).row(), 0);
    EXPECT_EQ(model.indexOfPage(2).row(), 1);
    EXPECT_EQ(model.indexOfPage(3).row(), 1);
    EXPECT_EQ(model.indexOfPage(99).row(), 1);
}
