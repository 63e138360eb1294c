#include "tests/load/CellHistory.h"

#include "tests/load/LoadHistory.h"
#include <algorithm>

namespace dalvora::test {

using namespace Qt::StringLiterals;

void CellHistory::sort() {
    m_writes.push_back({first, first, m_first.isNull() ? absentValue : m_first});
    std::sort(m_writes.begin(), m_writes.end(),
              [](const CellWrite& a, const CellWrite& b) { return a.start < b.start; });
    m_earliestEnd.assign(m_writes.size() + 1, last);
    for (std::size_t i = m_writes.size(); i-- > 0;) {
        m_earliestEnd[i] = std::min(m_earliestEnd[i + 1], m_writes[i].end);
        m_byValue[m_writes[i].value].push_back(i);
    }
}

qint64 CellHistory::overwritten(qint64 from) const {
    const auto it = std::upper_bound(m_writes.begin(), m_writes.end(), from,
                                     [](qint64 time, const CellWrite& write) { return time < write.start; });
    return m_earliestEnd[static_cast<std::size_t>(it - m_writes.begin())];
}

QString CellHistory::problem(const QString& value, qint64 start, qint64 end) const {
    // A cell that nobody ever wrote.
    if (m_writes.empty())
        return value == absentValue ? QString() : u"nobody wrote that"_s;
    const auto found = m_byValue.find(value);
    if (found == m_byValue.end())
        return u"nobody wrote that"_s;
    bool begun = false;
    for (const std::size_t place : found.value()) {
        if (m_writes[place].start > end)
            continue;
        begun = true;
        if (overwritten(m_writes[place].end) >= start)
            return {};
    }
    return begun ? u"it had been overwritten before"_s : u"it was written later"_s;
}

} // namespace dalvora::test
