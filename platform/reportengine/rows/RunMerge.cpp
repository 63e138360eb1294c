#include "platform/reportengine/rows/RunMerge.h"
#include "platform/reportengine/rows/SortKeys.h"

namespace quorvane::report {

RunMerge::RunMerge(const RowStore& store) {
    for (int segment = 0; segment < store.segmentCount(); ++segment)
        m_runs.push_back({SegmentReader(store, segment)});
}

bool RunMerge::next() {
    if (!m_started) {
        m_started = true;
        for (int run = 0; run < static_cast<int>(m_runs.size()); ++run)
            if (advance(run))
                m_heap.push_back(run);
        for (std::size_t place = m_heap.size() / 2; place-- > 0;)
            siftDown(place);
    } else if (!m_heap.empty()) {
        if (!advance(m_heap.front())) {
            m_heap.front() = m_heap.back();
            m_heap.pop_back();
        }
        siftDown(0);
    }
    return !m_heap.empty();
}

bool RunMerge::advance(int run) {
    if (!m_runs[run].reader.next())
        return false;
    m_runs[run].prefix = keyPrefix(m_runs[run].reader.record().key);
    return true;
}

bool RunMerge::isBefore(int a, int b) const {
    if (m_runs[a].prefix != m_runs[b].prefix)
        return m_runs[a].prefix < m_runs[b].prefix;
    const int order = compareKeys(m_runs[a].reader.record().key, m_runs[b].reader.record().key);
    return order != 0 ? order < 0 : a < b; // the earlier run came first
}

void RunMerge::siftDown(std::size_t place) {
    for (;;) {
        std::size_t least = 2 * place + 1;
        if (least >= m_heap.size())
            return;
        if (least + 1 < m_heap.size() && isBefore(m_heap[least + 1], m_heap[least]))
            ++least;
        if (!isBefore(m_heap[least], m_heap[place]))
            return;
        std::swap(m_heap[place], m_heap[least]);
        place = least;
    }
}

} // namespace quorvane::report
