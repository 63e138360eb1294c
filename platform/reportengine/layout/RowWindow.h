#pragma once

#include "platform/reportengine/rows/ReportRows.h"
#include <array>

namespace quorvane::report {

/// The few rows around the place where a report is being laid out, ready to be read.
class RowWindow {
public:
    RowWindow(const ReportRows& rows, int columns);

    /// The row, from the store unless it is here. Good until four other rows have been asked for.
    const RowReader& at(qint64 row);
    /// Keeps a row that has just come.
    void put(qint64 row, QByteArrayView bytes);

private:
    struct Slot {
        qint64 row = -1;
        ByteBuffer bytes;
        RowReader reader;
    };
    Slot& slot(qint64 row) { return m_slots[static_cast<std::size_t>(row) % m_slots.size()]; }

    const ReportRows& m_rows;
    std::array<Slot, 4> m_slots;
};

/// Finds where groups change.
class GroupBreaks {
public:
    explicit GroupBreaks(const Definition& definition) : m_parts(groupParts(definition)) {}

    /// The outermost group whose value differs, the number of groups when none does.
    int level(const RowReader& previous, const RowReader& row);

private:
    bool differs(const KeyPart& part, const RowReader& previous, const RowReader& row);

    std::vector<KeyPart> m_parts;
    SpanishKey m_previousKey;
    SpanishKey m_key;
};

} // namespace quorvane::report
