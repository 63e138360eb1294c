#pragma once

#include "platform/quorvane32/base/Value.h"
#include "tests/tds/Bytes.h"
#include <optional>
#include <vector>

namespace dalvora::test::tds {

/// What a column of a result is on the ERP's server, and how its values travel.
struct ColumnType {
    enum Kind : quint8 { Int, BigInt, Bit, Float, Exact, Date, DateTime, Narrow, Wide, NarrowMax, WideMax };

    Kind kind = Narrow;
    /// Digits of an exact number, and those of them behind the point; characters of a text.
    int size = 8000;
    int scale = 0;

    friend bool operator==(const ColumnType&, const ColumnType&) = default;
};

/// The type that a table's definition gives a column; none for an expression, whose type is empty.
std::optional<ColumnType> declaredType(const QByteArray& declared);
/// The type of an expression that gave these values: whole, exact, or text in the code page if it can be.
ColumnType typeOfValues(const std::vector<quorvane::Value>& values);

/// The description of a type in front of a result's rows.
void writeType(ByteWriter& out, const ColumnType& type);
/// One value as the type wants it; RunTimeError 8115 for a number that does not fit.
void writeValue(ByteWriter& out, const ColumnType& type, const quorvane::Value& value);

} // namespace dalvora::test::tds
