#pragma once

#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/layout/Page.h"
#include "platform/reportengine/rows/RowSource.h"
#include <QString>
#include <chrono>
#include <memory>
#include <vector>

namespace quorvane::report {

/// A group as the tree of the viewer and the charts see it.
struct GroupEntry {
    int level = 0;
    QString caption;
    int page = 0; ///< position of the page where it begins
    /// One for each column that charts sum, in the order in which the sections' charts first name them;
    /// complete once the group has ended.
    std::vector<double> totals;
};

/// A report's rows in order and the places where its pages begin. Works in slices, so a window stays alive
/// meanwhile: rows are fetched and sorted first (a report that the database orders skips that), then pages
/// are counted; a known page can be made at any time, while others are still being counted.
class Layout {
public:
    /// Error 3265 when the rows lack a column of the definition. Both arguments outlive the layout.
    Layout(const Definition& definition, std::unique_ptr<RowSource> rows);
    ~Layout();

    /// Works for about the given time; false when everything is laid out.
    bool advance(std::chrono::milliseconds slice);
    /// Works until the page is known or everything is laid out.
    void advanceToPage(int page);
    void finish();
    bool complete() const;

    qint64 rowsFetched() const;
    qint64 rowsLaidOut() const;
    /// Pages known so far; all of them once complete. A report without rows has one page.
    int pageCount() const;
    /// A known page, counted from 0. Error 9 for another.
    Page page(int index);
    /// The page on which a row in report order stands.
    int pageOfRow(qint64 row) const;
    /// The row's values, one a column of the definition.
    std::vector<Value> row(qint64 row);
    const std::vector<GroupEntry>& groups() const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace quorvane::report
