#pragma once

#include "platform/quorvane32/base/Value.h"
#include <QDateTime>
#include <QSqlQuery>
#include <vector>

namespace quorvane::qtsql {

enum class ValueKind : quint8 { Text, Exact, Float, Whole, Date, Truth };

/// Reads the values of a result's rows, each in the kind of its column.
class FieldReader {
public:
    virtual ~FieldReader() = default;
    /// The result stands on another row now.
    virtual void nextRow() {}
    /// A value of the current row; false when the driver fails, which then knows why.
    virtual bool read(const QSqlQuery& query, int ordinal, Value& value) = 0;
};

/// Reads what Qt's driver makes of the values.
class QtFieldReader final : public FieldReader {
public:
    explicit QtFieldReader(std::vector<ValueKind> kinds) : m_kinds(std::move(kinds)) {}
    bool read(const QSqlQuery& query, int ordinal, Value& value) override;

private:
    std::vector<ValueKind> m_kinds;
};

/// A Long, or a Decimal beyond its range.
Value wholeValue(qint64 number);
/// A Date with the time of day as its fraction.
Value momentValue(const QDate& day, const QTime& time);
/// An exact number with no more digits than it needs: the server pads a column's values with zeros. One with
/// more digits than a Decimal holds becomes the nearest that it can.
Value exactValue(const QString& text);

} // namespace quorvane::qtsql
