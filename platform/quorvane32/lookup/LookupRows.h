#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/base/Value.h"
#include "platform/quorvane32/lookup/QueryDefinition.h"
#include <QString>
#include <QStringList>
#include <vector>

namespace quorvane {

class Recordset;

/// The rows of a lookup, filtered and ordered without the database. It keeps the values as they came in one
/// block and makes a shown text only when a cell is painted. A column's folded texts, which filters compare,
/// are built when that column is filtered for the first time, one block of characters per column: on 100,000
/// rows that costs tens of milliseconds once, and every further letter a few.
class LookupRows {
public:
    /// A row is named by its position of arrival, a visible row by its position in the list.
    using Row = int;

    LookupRows(const QueryDefinition& query, const RegionalSettings& regional);

    /// Takes the field positions from an opened result; error 3265 when it lacks a field of the query.
    void bind(const Recordset& recordset);
    /// Adds the current row of the result; returns true when it passes the filters and so is visible.
    bool append(const Recordset& recordset);

    int rowCount() const { return m_rowCount; }
    int visibleCount() const { return static_cast<int>(m_visible.size()); }
    Row rowAt(int visible) const { return m_visible[static_cast<size_t>(visible)]; }
    /// Position of a row among the visible ones, or -1.
    int visiblePosition(Row row) const;

    int columnCount() const { return static_cast<int>(m_columns.size()); }
    const QueryColumn& column(int column) const { return m_columns[static_cast<size_t>(column)]; }
    /// The text that a cell shows.
    QString text(Row row, int column) const;
    /// The values to return for a row: dates as short dates, numbers in general form.
    QStringList returnedValues(Row row) const;

    /// Keeps the rows whose text in the column holds every word of the filter, case and accents ignored.
    void setFilter(int column, const QString& filter);
    bool isFiltered() const;
    /// Orders by a column; a negative one restores the order of arrival.
    void sort(int column, Qt::SortOrder order);

private:
    /// Folded texts of one column, one behind the other; ends[r] is where row r's text ends.
    struct FoldedColumn {
        QString characters;
        std::vector<qsizetype> ends;
    };

    int stored(const QString& field);
    const Value& cell(Row row, int stored) const;
    const Value& shownCell(Row row, int column) const;
    QString shownText(const Value& value, const QueryColumn& column) const;
    QString returnedText(const Value& value) const;
    double orderNumber(const Value& value) const;
    QStringView foldedText(Row row, int column);
    bool passes(Row row);
    void refilter();
    void orderByNumber(int column, bool descending);
    void orderByText(int column, bool descending);
    template<class Key> void orderByKeys(const std::vector<Key>& keys, bool descending);

    RegionalSettings m_regional;
    std::vector<QueryColumn> m_columns;
    /// Fields that are kept, each once, in the order in which a row stores them.
    QStringList m_fields;
    /// Where a row stores the value of each column, and each returned value.
    std::vector<int> m_shown;
    std::vector<int> m_returned;
    std::vector<int> m_ordinals;
    int m_rowCount = 0;
    std::vector<Value> m_cells;
    std::vector<FoldedColumn> m_folded;
    std::vector<QStringList> m_filters;
    std::vector<Row> m_order;
    std::vector<Row> m_visible;
};

} // namespace quorvane
