#include "platform/quorvane32/core/Recordset.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane {

Recordset::Recordset(std::unique_ptr<Cursor> cursor)
    : m_cursor(std::move(cursor)), m_eof(!m_cursor->next()) {}

void Recordset::moveNext() {
    if (m_eof)
        raise(ErrorNoCurrentRecord);
    // A row that cannot be fetched ends the result: nobody shall read half a row twice.
    m_eof = true;
    m_eof = !m_cursor->next();
}

void Recordset::close() {
    m_cursor.reset();
    m_eof = true;
}

int Recordset::fieldCount() const {
    return m_cursor ? m_cursor->columnCount() : 0;
}

QString Recordset::fieldName(int ordinal) const {
    if (ordinal < 0 || ordinal >= fieldCount())
        raise(ErrorItemNotFound);
    return m_cursor->columnName(ordinal);
}

int Recordset::ordinal(QStringView name) const {
    if (!m_cursor)
        raise(ErrorObjectClosed);
    for (int i = 0; i < m_cursor->columnCount(); ++i)
        if (name.compare(m_cursor->columnName(i), Qt::CaseInsensitive) == 0)
            return i;
    raise(ErrorItemNotFound);
}

Value Recordset::value(int ordinal) const {
    if (m_eof)
        raise(ErrorNoCurrentRecord);
    if (ordinal < 0 || ordinal >= m_cursor->columnCount())
        raise(ErrorItemNotFound);
    return m_cursor->value(ordinal);
}

} // namespace quorvane
