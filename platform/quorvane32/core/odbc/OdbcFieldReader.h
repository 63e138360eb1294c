#pragma once

#include "platform/quorvane32/core/qtsql/FieldReader.h"

namespace quorvane::odbc {

/// Reads values from the driver manager itself. Qt's driver asks FreeTDS for texts in bytes, as many as the
/// column has characters: a text whose letters need more bytes, or one beyond 255 of a column without a size,
/// comes back empty. It asks for a float as a text as well, and FreeTDS refuses one with many digits.
///
/// A driver need not give columns in any order, nor one twice: those of a row are read in theirs, and kept.
class OdbcFieldReader final : public qtsql::FieldReader {
public:
    explicit OdbcFieldReader(std::vector<qtsql::ValueKind> kinds) : m_kinds(std::move(kinds)) {}
    void nextRow() override { m_row.clear(); }
    bool read(const QSqlQuery& query, int ordinal, Value& value) override;

private:
    std::vector<qtsql::ValueKind> m_kinds;
    std::vector<Value> m_row;
};

/// The driver manager's handle that Qt keeps; null for none.
void* handleOf(const QVariant& handle);

} // namespace quorvane::odbc
