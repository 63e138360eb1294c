#include "tests/reportengine_layout/LayoutFixture.h"
#include <random>

using namespace quorvane;
using namespace quorvane::report;
using namespace Qt::StringLiterals;

namespace {

/// Reports with heights, groups, flags and rows by chance: whatever they are, nothing may be lost, come twice
/// or lie upon another.
class RandomReports : public test::LayoutFixture, public testing::WithParamInterface<unsigned> {
protected:
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(m_random); }
    bool chance(int oneIn) { return upTo(oneIn - 1) == 0; }

    void makeDefinition() {
        definition.sortedBySource = chance(3);
        definition.groups = {test::group(nameColumn), test::group(numberColumnIndex)};
        definition.groups.resize(static_cast<std::size_t>(upTo(2)));
        const int groups = static_cast<int>(definition.groups.size());
        addMaybe(Kind::ReportHeader);
        addMaybe(Kind::PageHeader);
        for (int i = 0; i < groups; ++i)
            addMaybe(Kind::GroupHeader, i);
        add(u"línea", Kind::Details, 1 + upTo(40), {numberField()});
        for (int i = groups - 1; i >= 0; --i)
            addMaybe(Kind::GroupFooter, i);
        addMaybe(Kind::ReportFooter);
        addMaybe(Kind::PageFooter);
    }
    void addMaybe(Kind kind, int group = 0) {
        if (chance(4))
            return;
        Section& section = add(u"otra", kind, 1 + upTo(chance(5) ? 120 : 20), {nameField()}, group);
        section.repeatOnPage = kind == Kind::GroupHeader && chance(2);
        const bool isFrame =
            kind == Kind::ReportHeader || kind == Kind::PageHeader || kind == Kind::PageFooter;
        section.newPageBefore = !isFrame && chance(6);
    }
    std::vector<test::RowValues> makeRows() {
        std::vector<test::RowValues> rows(static_cast<std::size_t>(upTo(150)));
        for (test::RowValues& row : rows)
            row = {QString(QChar(u'a' + upTo(3))), qint32(upTo(4)), Value::Null{}};
        return rows;
    }
    Kind kindOf(const Band& band) const { return definition.sections[band.section].kind; }
    double bottomOf(const Band& band) const { return band.top + definition.sections[band.section].height; }
    bool isBody(const Band& band) const {
        const Kind kind = kindOf(band);
        return !band.repeated && kind != Kind::ReportHeader && kind != Kind::PageHeader &&
               kind != Kind::PageFooter;
    }
    double footerTop() const {
        double top = 110;
        for (const Section& section : definition.sections)
            if (section.kind == Kind::PageFooter)
                top -= section.height;
        return top;
    }

    /// Bands stand below each other and above the page's footer, unless a body has but one that is too high.
    void expectInPlace(const Page& page, bool isFirst) const {
        double below = 10;
        int bodies = 0;
        for (const Band& band : page.bands) {
            bodies += isBody(band);
            if (kindOf(band) == Kind::PageFooter) {
                EXPECT_DOUBLE_EQ(bottomOf(band), 110);
                break;
            }
            EXPECT_DOUBLE_EQ(band.top, below);
            below = bottomOf(band);
        }
        EXPECT_TRUE(bodies <= 1 || below <= footerTop() + 0.01) << below;
        EXPECT_TRUE(bodies >= 1 || isFirst);
    }
    /// A header is the last on a page only when it and the details fit on none.
    void expectHeaderKept(const Page& page) const {
        const Band* last = nullptr;
        for (const Band& band : page.bands)
            if (isBody(band))
                last = &band;
        if (!last || kindOf(*last) != Kind::GroupHeader)
            return;
        double needed = 0;
        for (const Section& section : definition.sections)
            if (section.kind == Kind::GroupHeader || section.kind == Kind::Details ||
                section.kind == Kind::PageHeader)
                needed += section.height * (section.repeatOnPage ? 2 : 1);
        EXPECT_GT(needed, footerTop() - 10);
    }

private:
    std::mt19937 m_random{GetParam()};
};

} // namespace

TEST_P(RandomReports, LoseNothingAndKeepEverythingInPlace) {
    makeDefinition();
    std::vector<test::RowValues> rows = makeRows();
    const auto count = static_cast<qint64>(rows.size());
    layOut(std::move(rows));
    qint64 nextRow = 0;
    std::vector<qint64> begun(2);
    std::vector<qint64> ended(2);
    for (int i = 0; i < layout->pageCount(); ++i) {
        const Page page = layout->page(i);
        expectInPlace(page, i == 0);
        expectHeaderKept(page);
        for (const Band& band : page.bands) {
            if (kindOf(band) == Kind::Details) {
                EXPECT_EQ(band.row, nextRow++);
                EXPECT_EQ(layout->pageOfRow(band.row), i);
            }
            const int group = definition.sections[band.section].group;
            begun[group] += kindOf(band) == Kind::GroupHeader && !band.repeated;
            ended[group] += kindOf(band) == Kind::GroupFooter;
        }
    }
    EXPECT_EQ(nextRow, count);
    std::vector<qint64> groups(2);
    for (const GroupEntry& entry : layout->groups())
        ++groups[entry.level];
    for (const Section& section : definition.sections) {
        const bool isHeader = section.kind == Kind::GroupHeader;
        if (isHeader || section.kind == Kind::GroupFooter) {
            EXPECT_EQ((isHeader ? begun : ended)[section.group], groups[section.group]);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomReports, testing::Range(0U, 300U));
