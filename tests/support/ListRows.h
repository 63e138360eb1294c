#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/rows/RowSource.h"
#include <QStringList>
#include <functional>
#include <vector>

namespace quorvane::test {

using RowValues = std::vector<Value>;

/// A report's rows from a list, or made one by one. A fault can be set before any row.
class ListRows final : public report::RowSource {
public:
    ListRows(QStringList columns, std::vector<RowValues> rows)
        : m_columns(std::move(columns)), m_count(static_cast<qint64>(rows.size())) {
        m_make = [list = std::move(rows)](qint64 row) { return list[static_cast<std::size_t>(row)]; };
    }
    ListRows(QStringList columns, qint64 count, std::function<RowValues(qint64)> make)
        : m_columns(std::move(columns)), m_count(count), m_make(std::move(make)) {}

    /// The connection is lost when this row is asked for.
    void failAt(qint64 row) { m_failAt = row; }
    /// Counts up when it is thrown away.
    void setGone(int* gone) { m_gone = gone; }
    ~ListRows() override {
        if (m_gone)
            ++*m_gone;
    }
    ListRows(const ListRows&) = delete;
    ListRows& operator=(const ListRows&) = delete;

    int columnCount() const override { return static_cast<int>(m_columns.size()); }
    QString columnName(int column) const override { return m_columns[column]; }
    bool next() override {
        if (++m_row == m_failAt)
            throw RunTimeError(ErrorConnectionLost, QStringLiteral("Se perdió la conexión"));
        if (m_row >= m_count)
            return false;
        m_values = m_make(m_row);
        return true;
    }
    Value value(int column) override { return m_values.at(static_cast<std::size_t>(column)); }

private:
    QStringList m_columns;
    qint64 m_count = 0;
    std::function<RowValues(qint64)> m_make;
    RowValues m_values;
    qint64 m_row = -1;
    qint64 m_failAt = -1;
    int* m_gone = nullptr;
};

} // namespace quorvane::test
