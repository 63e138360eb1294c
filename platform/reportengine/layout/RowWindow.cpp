#include "platform/reportengine/layout/RowWindow.h"
#include <algorithm>

namespace quorvane::report {

RowWindow::RowWindow(const ReportRows& rows, int columns)
    : m_rows(rows)
    , m_slots{Slot{-1, {}, RowReader(columns)}, Slot{-1, {}, RowReader(columns)},
              Slot{-1, {}, RowReader(columns)}, Slot{-1, {}, RowReader(columns)}} {}

const RowReader& RowWindow::at(qint64 row) {
    Slot& place = slot(row);
    if (place.row != row) {
        place.row = -1; // a row that cannot be read leaves nothing behind
        place.reader.load(m_rows.row(row, place.bytes));
        place.row = row;
    }
    return place.reader;
}

void RowWindow::put(qint64 row, QByteArrayView bytes) {
    Slot& place = slot(row);
    place.row = row;
    place.bytes.clear();
    place.bytes.append(bytes);
    place.reader.load(place.bytes.view());
}

int GroupBreaks::level(const RowReader& previous, const RowReader& row) {
    int level = 0;
    for (const KeyPart& part : m_parts) {
        if (differs(part, previous, row))
            break;
        ++level;
    }
    return level;
}

bool GroupBreaks::differs(const KeyPart& part, const RowReader& previous, const RowReader& row) {
    const QByteArrayView before = previous.bytes(part.column);
    const QByteArrayView now = row.bytes(part.column);
    if (before.size() == now.size() && std::equal(before.begin(), before.end(), now.begin()))
        return false;
    m_previousKey.clear();
    m_key.clear();
    appendKey(part, previous.value(part.column), m_previousKey);
    appendKey(part, row.value(part.column), m_key);
    return m_previousKey != m_key;
}

} // namespace quorvane::report
