#include "tests/tds/ResultRows.h"

#include "platform/quorvane32/core/sqlite/SqliteCursor.h"

namespace dalvora::test::tds {

using quorvane::Value;

ResultRows::ResultRows(std::unique_ptr<quorvane::Cursor> cursor) : m_cursor(std::move(cursor)) {
    constexpr std::size_t rowsAhead = 50;
    std::vector<Value> row;
    while (m_ahead.size() < rowsAhead && fetch(row))
        m_ahead.push_back(row);
    const auto& embedded = dynamic_cast<const quorvane::sqlite::SqliteCursor&>(*m_cursor);
    for (int i = 0; i < m_cursor->columnCount(); ++i) {
        std::optional<ColumnType> type = declaredType(embedded.declaredType(i));
        if (!type) {
            std::vector<Value> values;
            for (const std::vector<Value>& known : m_ahead)
                values.push_back(known[i]);
            type = typeOfValues(values);
        }
        m_columns.push_back({m_cursor->columnName(i), *type});
    }
}

bool ResultRows::fetch(std::vector<Value>& values) {
    if (m_ended || !m_cursor->next()) {
        m_ended = true;
        return false;
    }
    values.clear();
    for (int i = 0; i < m_cursor->columnCount(); ++i)
        values.push_back(m_cursor->value(i));
    return true;
}

bool ResultRows::next() {
    if (m_ahead.empty())
        return fetch(m_values);
    m_values = std::move(m_ahead.front());
    m_ahead.pop_front();
    return true;
}

} // namespace dalvora::test::tds
