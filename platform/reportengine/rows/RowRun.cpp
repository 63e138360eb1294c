#include "platform/reportengine/rows/RowRun.h"
#include "platform/reportengine/rows/SortKeys.h"
#include <algorithm>

namespace quorvane::report {

namespace {

constexpr qsizetype storeSize = 1 << 20;

} // namespace

bool RowRun::isFull() const {
    return m_records.size() >= m_limits.runBytes || std::ssize(m_order) >= m_limits.runRows;
}

quint32 RowRun::add(QByteArrayView key, QByteArrayView row) {
    if (m_order.empty()) { // memory that is not used costs nothing, moving what has grown does
        m_records.reserve(m_limits.runBytes);
        m_order.reserve(static_cast<std::size_t>(m_limits.runRows));
    }
    const auto offset = static_cast<quint32>(m_records.size());
    appendRecord(m_records, key, row);
    m_order.push_back({keyPrefix(key), offset});
    return offset;
}

void RowRun::sort() {
    std::sort(m_order.begin(), m_order.end(), [this](const Entry& a, const Entry& b) {
        if (a.prefix != b.prefix)
            return a.prefix < b.prefix;
        const int order = compareKeys(recordAt(a.offset).key, recordAt(b.offset).key);
        return order != 0 ? order < 0 : a.offset < b.offset;
    });
}

bool RowRun::store(RowStore& store) {
    if (m_stored == 0)
        store.beginSegment(m_records.size());
    for (qsizetype bytes = 0; m_stored < m_order.size() && bytes < storeSize; ++m_stored) {
        const char* const place = m_records.data() + m_order[m_stored].offset;
        const qsizetype size = report::recordAt(place).size;
        store.append({place, size});
        bytes += size;
    }
    if (m_stored < m_order.size())
        return false;
    store.endSegment();
    m_records.clear();
    m_order.clear();
    m_stored = 0;
    return true;
}

} // namespace quorvane::report
