#include "platform/reportengine/layout/Layout.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/layout/BandMaker.h"
#include "platform/reportengine/layout/PageIndex.h"
#include "platform/reportengine/layout/PageWalker.h"
#include "platform/reportengine/layout/RowWindow.h"
#include <limits>
#include <optional>

namespace quorvane::report {

namespace {

/// Rows laid out between two looks at the clock.
constexpr int rowsAtATime = 16;

QString textOf(const Value& value, const RegionalSettings& regional) {
    return value.isNull() ? QString() : value.toText(regional);
}

/// A group's name: the value of its caption column, or the month or year that it is about.
QString nameOf(const Group& group, const RowReader& row, const RegionalSettings& regional) {
    if (group.period == Period::None)
        return textOf(row.value(group.captionColumn), regional);
    const Value value = row.value(group.column);
    const Date* date = value.get<Date>();
    if (!date || date->isEmpty())
        return {};
    return group.period == Period::Month ? regional.monthText(*date)
                                         : QString::number(date->toQDate().year());
}

/// Makes the bands of one page.
class PageMaker final : public WalkListener {
public:
    PageMaker(const Definition& definition, RowWindow& window) : m_definition(definition), m_window(window) {}

    void begin(int number) {
        m_page = {};
        m_page.number = number;
    }
    Page take() { return std::move(m_page); }

    void placed(const Placing& placing, const Totals& totals) override {
        const RowReader* row = placing.row >= 0 ? &m_window.at(placing.row) : nullptr;
        Band band = makeBand(m_definition, placing.section, row, totals);
        band.top = placing.top;
        band.row = placing.row;
        band.repeated = placing.repeated;
        if (m_definition.sections[placing.section].kind == SectionKind::Details) {
            // Within the innermost group, or the report when there are none.
            const int scope = static_cast<int>(m_definition.groups.size()) - 1;
            band.odd = totals.count(scope) % 2 == 0;
        }
        m_page.bands.push_back(std::move(band));
    }
    void groupsEnded(int, const Totals&) override {}
    void groupsBegan(int, qint64) override {}
    bool pageFull(const PageStart&) override { return false; }
    const RowReader& rowAt(qint64 row) override { return m_window.at(row); }

private:
    const Definition& m_definition;
    RowWindow& m_window;
    Page m_page;
};

} // namespace

class Layout::Impl final : public WalkListener {
public:
    Impl(const Definition& definition, std::unique_ptr<RowSource> rows, const LayoutOptions& options)
        : m_definition(definition)
        , m_regional(options.regional)
        , m_plan(definition)
        , m_rows(definition, std::move(rows), options.rows)
        , m_coming(m_rows, static_cast<int>(definition.columns.size()))
        , m_shown(m_rows, static_cast<int>(definition.columns.size()))
        , m_breaks(definition)
        , m_walker(definition, m_plan, *this)
        , m_maker(definition, m_shown)
        , m_pageWalker(definition, m_plan, m_maker)
        , m_chartColumns(chartColumns(definition))
        , m_isCharted(definition.groups.size())
        , m_openEntries(definition.groups.size()) {
        m_pages.add({{}, Totals(definition).state()});
        for (const Section& section : definition.sections)
            for (const ReportObject& object : section.objects)
                if (object.kind == ObjectKind::Chart)
                    m_isCharted[object.chart.group] = true;
    }

    /// Does a bounded piece of work; true when a look at the clock is due.
    bool step();
    bool isComplete() const { return m_complete; }
    int pageCount() const { return m_complete ? m_pages.size() : m_pages.size() - 1; }
    Page page(int index);
    int pageOfRow(qint64 row) const;
    std::vector<Value> row(qint64 row);

    const ReportRows& rows() const { return m_rows; }
    qint64 rowsLaidOut() const { return m_walker.row(); }
    const std::vector<GroupEntry>& groups() const { return m_groups; }

    void placed(const Placing&, const Totals&) override {}
    void groupsEnded(int level, const Totals& totals) override;
    void groupsBegan(int level, qint64 row) override;
    bool pageFull(const PageStart& next) override {
        m_pages.add(next);
        return true;
    }
    const RowReader& rowAt(qint64 row) override { return m_coming.at(row); }

private:
    bool work();
    void rowCame();
    void rowsEnded();
    int levelOf(qint64 row) const { return row < std::ssize(m_levels) ? m_levels[row] : 0; }
    void checkRow(qint64 row) const;

    const Definition& m_definition;
    RegionalSettings m_regional;
    SectionPlan m_plan;
    ReportRows m_rows;
    RowWindow m_coming; ///< around the row that is laid out
    RowWindow m_shown;  ///< around the page that is made
    GroupBreaks m_breaks;
    PageWalker m_walker;
    PageMaker m_maker;
    PageWalker m_pageWalker;
    PageIndex m_pages;
    std::vector<quint16> m_levels; ///< of each row that has come, the outermost group that it begins
    std::vector<GroupEntry> m_groups;
    std::vector<int> m_chartColumns;
    std::vector<bool> m_isCharted;          ///< of each group
    std::vector<std::size_t> m_openEntries; ///< of each group, the entry of the one that is open
    std::optional<RunTimeError> m_error;
    int m_sinceClock = 0;
    bool m_complete = false;
};

bool Layout::Impl::step() {
    if (m_error)
        throw *m_error;
    try {
        return work();
    } catch (const RunTimeError& error) {
        m_error = error;
        throw;
    }
}

bool Layout::Impl::work() {
    switch (m_rows.next()) {
    case ReportRows::Next::Row:
        rowCame();
        m_sinceClock = (m_sinceClock + 1) % rowsAtATime;
        return m_sinceClock == 0;
    case ReportRows::Next::End:
        rowsEnded();
        break;
    case ReportRows::Next::NotYet:
        break;
    }
    return true;
}

/// A row is laid out when the next one has come: whether its groups end with it decides what must stand
/// below it.
void Layout::Impl::rowCame() {
    const qint64 row = m_rows.count() - 1;
    m_coming.put(row, m_rows.current());
    const int level = row == 0 ? 0 : m_breaks.level(m_coming.at(row - 1), m_coming.at(row));
    m_levels.push_back(static_cast<quint16>(level));
    if (row == 0)
        m_walker.begin(0, m_pages.at(0), 0, false);
    else
        m_walker.walkRow(levelOf(row - 1), level);
}

void Layout::Impl::rowsEnded() {
    if (m_rows.count() > 0)
        m_walker.walkRow(levelOf(m_rows.count() - 1), 0);
    else
        m_walker.begin(0, m_pages.at(0), 0, true);
    m_walker.walkEnd();
    m_complete = true;
}

void Layout::Impl::groupsEnded(int level, const Totals& totals) {
    for (std::size_t group = level; group < m_openEntries.size(); ++group) {
        std::vector<double>& sums = m_groups[m_openEntries[group]].totals;
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] = totals.sum(static_cast<int>(group), m_chartColumns[i]);
    }
}

void Layout::Impl::groupsBegan(int level, qint64 row) {
    for (std::size_t group = level; group < m_openEntries.size(); ++group) {
        const Group& kind = m_definition.groups[group];
        GroupEntry entry;
        entry.level = static_cast<int>(group);
        entry.name = nameOf(kind, m_coming.at(row), m_regional);
        entry.caption = kind.caption.isEmpty() ? entry.name : kind.caption + u' ' + entry.name;
        entry.page = m_walker.page();
        entry.row = row;
        if (m_isCharted[group])
            entry.totals.resize(m_chartColumns.size());
        m_openEntries[group] = m_groups.size();
        m_groups.push_back(std::move(entry));
    }
}

Page Layout::Impl::page(int index) {
    if (index < 0 || index >= pageCount())
        raise(ErrorSubscript);
    const PageStart start = m_pages.at(index);
    const qint64 count = m_rows.count();
    m_maker.begin(index + 1);
    m_pageWalker.begin(index, start, levelOf(start.place.row), start.place.row == count);
    bool goesOn = true;
    while (goesOn && m_pageWalker.row() < count)
        goesOn = m_pageWalker.walkRow(levelOf(m_pageWalker.row()), levelOf(m_pageWalker.row() + 1));
    if (goesOn)
        m_pageWalker.walkEnd();
    return m_maker.take();
}

void Layout::Impl::checkRow(qint64 row) const {
    if (row < 0 || row >= m_walker.row())
        raise(ErrorSubscript);
}

int Layout::Impl::pageOfRow(qint64 row) const {
    checkRow(row);
    const int level = levelOf(row);
    const int footers = row > 0 ? m_plan.footersFrom[level].size() : 0;
    return m_pages.pageOf({row, footers + m_plan.headersFrom[level].size()});
}

std::vector<Value> Layout::Impl::row(qint64 row) {
    checkRow(row);
    const RowReader& reader = m_shown.at(row);
    std::vector<Value> values(m_definition.columns.size());
    for (std::size_t column = 0; column < values.size(); ++column)
        values[column] = reader.value(static_cast<int>(column));
    return values;
}

Layout::Layout(const Definition& definition, std::unique_ptr<RowSource> rows, const LayoutOptions& options)
    : m_impl(std::make_unique<Impl>(definition, std::move(rows), options)) {}

Layout::~Layout() = default;

bool Layout::advance(std::chrono::milliseconds slice) {
    const auto end = std::chrono::steady_clock::now() + slice;
    while (!complete())
        if (m_impl->step() && std::chrono::steady_clock::now() >= end)
            break;
    return !complete();
}

void Layout::advanceToPage(int page) {
    while (!complete() && pageCount() <= page)
        m_impl->step();
}

void Layout::finish() {
    advanceToPage(std::numeric_limits<int>::max());
}

bool Layout::complete() const {
    return m_impl->isComplete();
}
qint64 Layout::rowsFetched() const {
    return m_impl->rows().fetched();
}
qint64 Layout::rowsLaidOut() const {
    return m_impl->rowsLaidOut();
}
int Layout::pageCount() const {
    return m_impl->pageCount();
}
Page Layout::page(int index) {
    return m_impl->page(index);
}
int Layout::pageOfRow(qint64 row) const {
    return m_impl->pageOfRow(row);
}
std::vector<Value> Layout::row(qint64 row) {
    return m_impl->row(row);
}
const std::vector<GroupEntry>& Layout::groups() const {
    return m_impl->groups();
}

} // namespace quorvane::report
