#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/layout/Page.h"
#include "platform/reportengine/rows/RowSource.h"
#include "platform/reportengine/rows/RowStore.h"
#include <QString>
#include <chrono>
#include <memory>
#include <vector>

namespace quorvane::report {

/// A group as the tree of the viewer and the charts see it.
struct GroupEntry {
    int level = 0;
    QString caption; ///< for the tree: what its kind is called and its name
    QString name;    ///< for a chart's bars
    int page = 0;    ///< position of the page where it begins
    qint64 row = 0;  ///< its first row, in report order
    /// Of a group that charts show: one for each of chartColumns(), complete once the group has ended.
    std::vector<double> totals;
};

/// The columns that charts sum, in the order in which the sections' charts first name them.
std::vector<int> chartColumns(const Definition& definition);

struct LayoutOptions {
    RowLimits rows;
    RegionalSettings regional; ///< for the names of groups
};

/// A report's rows in order and the places where its pages begin. Works in slices, so a window stays alive
/// meanwhile: rows are fetched and sorted first (a report that the database orders skips that), then pages
/// are counted; a known page can be made at any time, while others are still being counted.
///
/// An error of the rows or of the temporary file is raised where it happens and again by every later attempt
/// to go on; the pages known by then can still be made. Errors 61 and 75 tell that the temporary file of a
/// report with very many rows cannot be written or read.
class Layout {
public:
    /// Error 3265 when the rows lack a column of the definition. The definition outlives the layout; its
    /// sections, groups, columns and sort keys stay as they are meanwhile.
    Layout(const Definition& definition, std::unique_ptr<RowSource> rows, const LayoutOptions& options = {});
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
    /// The page on which a row in report order stands. Error 9 for a row that is not laid out yet.
    int pageOfRow(qint64 row) const;
    /// The row's values, one a column of the definition. Error 9 for a row that is not laid out yet.
    std::vector<Value> row(qint64 row);
    const std::vector<GroupEntry>& groups() const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace quorvane::report
