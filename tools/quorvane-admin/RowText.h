#pragma once

#include "platform/quorvane32/base/Value.h"
#include <QString>

namespace quorvane::admin {

/// A value as a literal of the ERP's SQL that every engine stores exactly as it was: dates as day/month/year,
/// numbers with all their digits.
QString literalOf(const Value& value);

/// A value as people read it, for messages; "nulo" for none.
QString readable(const Value& value);

/// True when both are the same value, whatever way their engines keep it: 2 and 2.00 are, a text and the same
/// text with a blank behind it are not.
bool isSame(const Value& a, const Value& b);

/// Sums of rows: equal for the same rows in any order, since engines order texts each in its own way.
class RowSum {
public:
    void addValue(const Value& value);
    void endRow();

    qint64 rows() const { return m_rows; }
    QString text() const;
    friend bool operator==(const RowSum& a, const RowSum& b) {
        return a.m_rows == b.m_rows && a.m_sum == b.m_sum;
    }

private:
    static constexpr quint64 start = 14695981039346656037ULL;

    quint64 m_row = start;
    quint64 m_sum = 0;
    qint64 m_rows = 0;
};

} // namespace quorvane::admin
