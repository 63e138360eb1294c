#pragma once

#include "platform/quorvane32/core/Engine.h"
#include "tests/tds/Tokens.h"
#include <deque>

namespace dalvora::test::tds {

/// A result of the embedded engine with the types that the server would tell: those of the tables' columns,
/// and for expressions what the first rows hold. Fetches as it goes.
class ResultRows {
public:
    explicit ResultRows(std::unique_ptr<quorvane::Cursor> cursor);

    const std::vector<Column>& columns() const { return m_columns; }
    bool next();
    const std::vector<quorvane::Value>& values() const { return m_values; }

private:
    bool fetch(std::vector<quorvane::Value>& values);

    std::unique_ptr<quorvane::Cursor> m_cursor;
    std::vector<Column> m_columns;
    std::deque<std::vector<quorvane::Value>> m_ahead;
    std::vector<quorvane::Value> m_values;
    bool m_ended = false;
};

} // namespace dalvora::test::tds
