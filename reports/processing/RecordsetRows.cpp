#include "reports/processing/RecordsetRows.h"

namespace dalvora {

RecordsetRows::RecordsetRows(std::shared_ptr<quorvane::Connection> connection, quorvane::Recordset rows)
    : m_connection(std::move(connection)), m_rows(std::move(rows)) {}

bool RecordsetRows::next() {
    if (m_error)
        throw *m_error;
    if (!m_started) {
        m_started = true;
        return !m_rows.eof();
    }
    if (m_rows.eof())
        return false;
    try {
        m_rows.moveNext();
    } catch (const quorvane::RunTimeError& error) {
        m_error = error;
        throw;
    }
    return !m_rows.eof();
}

} // namespace dalvora
