#include "platform/quorvane32/core/qtsql/SqlCursor.h"

namespace quorvane::qtsql {

SqlCursor::SqlCursor(std::shared_ptr<SqlLink> link, QSqlQuery query, std::vector<QString> names)
    : m_link(std::move(link))
    , m_query(std::move(query))
    , m_names(std::move(names))
    , m_fields(m_link->reader(m_query)) {
    m_link->setPending(this);
}

SqlCursor::~SqlCursor() {
    if (m_link->isPending(this))
        m_link->setPending(nullptr);
}

void SqlCursor::end() {
    m_ended = true;
    if (m_link->isPending(this))
        m_link->setPending(nullptr);
}

bool SqlCursor::fetch() {
    m_fields->nextRow();
    try {
        if (m_link->fetch(m_query))
            return true;
    } catch (const RunTimeError&) {
        end();
        throw;
    }
    end();
    return false;
}

bool SqlCursor::next() {
    if (!m_rows.empty()) {
        m_rows.pop_front();
        if (!m_rows.empty())
            return true;
    }
    if (!m_ended)
        return fetch();
    if (m_error)
        throw RunTimeError(*m_error);
    return false;
}

bool SqlCursor::takeIn(qsizetype limit) noexcept {
    if (m_ended)
        return true;
    try {
        // The current row stays the first, and there is one even before the first fetch.
        if (m_rows.empty())
            m_rows.push_back(m_query.isValid() ? fetchedRow() : Row());
        while (static_cast<qsizetype>(m_rows.size()) <= limit && fetch())
            m_rows.push_back(fetchedRow());
    } catch (const RunTimeError& error) {
        m_error = error;
    }
    if (m_ended)
        m_query.finish();
    return m_ended;
}

Value SqlCursor::value(int ordinal) {
    return m_rows.empty() ? fetched(ordinal) : m_rows.front()[ordinal];
}

SqlCursor::Row SqlCursor::fetchedRow() {
    Row row;
    row.reserve(m_names.size());
    for (int i = 0; i < columnCount(); ++i)
        row.push_back(fetched(i));
    return row;
}

Value SqlCursor::fetched(int ordinal) {
    Value value;
    if (!m_fields->read(m_query, ordinal, value))
        m_link->fail(m_query);
    return value;
}

} // namespace quorvane::qtsql
