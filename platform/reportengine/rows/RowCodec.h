#pragma once

#include "platform/quorvane32/base/Value.h"
#include "platform/reportengine/rows/ByteBuffer.h"
#include <QByteArrayView>
#include <optional>
#include <vector>

namespace quorvane::report {

/// The number that a value stands for: a date its serial number, a text what it reads as ("12.5"), nothing
/// for Null, Empty and other texts.
std::optional<double> numberOf(const Value& value);

/// Appends a value as a tag and as few bytes as keep it exactly: whole numbers and decimals as many as they
/// have digits for, texts one a letter where they can be.
void appendValue(ByteBuffer& row, const Value& value);

/// Reads rows of a fixed number of values where they lie: nothing is copied or made before it is asked for.
class RowReader {
public:
    explicit RowReader(int columns) : m_ends(static_cast<std::size_t>(columns) + 1) {}

    /// The bytes must outlive the reading.
    void load(QByteArrayView row);
    Value value(int column) const;
    /// As numberOf, 0 where there is no number.
    double number(int column) const;
    /// The value's bytes: equal ones are equal values.
    QByteArrayView bytes(int column) const { return {m_row + m_ends[column], m_row + m_ends[column + 1]}; }

private:
    const char* m_row = nullptr;
    std::vector<int> m_ends; ///< where each value ends; the first is where the first begins
};

} // namespace quorvane::report
