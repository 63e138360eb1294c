#pragma once

#include "platform/quorvane32/core/Engine.h"
#include <QStringView>
#include <memory>

namespace quorvane {

/// A forward-only, read-only result: it stands on the first row when opened and fetches as it goes, so a
/// result of any length costs one row of memory. Look ordinals up once before a loop.
class Recordset {
public:
    explicit Recordset(std::unique_ptr<Cursor> cursor);

    /// True past the last row (at once for an empty result).
    bool eof() const { return m_eof; }
    void moveNext();
    /// Ends the fetch and frees what the database holds for it; a closed result is at its end.
    void close();

    int fieldCount() const;
    QString fieldName(int ordinal) const;
    /// Position of a field, its name compared without regard to case. Error 3265 for an unknown one.
    int ordinal(QStringView name) const;
    /// The current row's value. Error 3021 when there is no current row.
    Value value(int ordinal) const;
    Value value(QStringView name) const { return value(ordinal(name)); }

private:
    std::unique_ptr<Cursor> m_cursor;
    bool m_eof = true;
};

} // namespace quorvane
