#pragma once

#include "platform/reportengine/rows/RowStore.h"
#include <vector>

namespace quorvane::report {

/// Walks the sorted segments of a store as one: each step costs a few comparisons, and nothing is read that
/// is not asked for yet.
class RunMerge {
public:
    explicit RunMerge(const RowStore& store);

    /// The next record of all; false past the last one. Error 75.
    bool next();
    /// Good until the next call.
    const Record& record() const { return m_runs[m_heap.front()].reader.record(); }
    RowAddress address() const { return m_runs[m_heap.front()].reader.address(); }

private:
    struct Run {
        SegmentReader reader;
        quint64 prefix = 0;
    };
    /// Moves a run to its next record; false when it has none.
    bool advance(int run);
    bool isBefore(int a, int b) const;
    void siftDown(std::size_t place);

    std::vector<Run> m_runs;
    std::vector<int> m_heap; ///< positions of runs; the first has the least record
    bool m_started = false;
};

} // namespace quorvane::report
