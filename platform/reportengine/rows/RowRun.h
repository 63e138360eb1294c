#pragma once

#include "platform/reportengine/rows/RowStore.h"
#include <vector>

namespace quorvane::report {

/// The rows fetched last, until they are so many that they become a segment of the store: in the order in
/// which they came, or sorted.
class RowRun {
public:
    explicit RowRun(const RowLimits& limits) : m_limits(limits) {}

    bool isEmpty() const { return m_order.empty(); }
    qsizetype count() const { return std::ssize(m_order); }
    bool isFull() const;
    /// Where the record lies in the run: its offset.
    quint32 add(QByteArrayView key, QByteArrayView row);
    Record recordAt(quint32 offset) const { return report::recordAt(m_records.data() + offset); }

    /// The offset of the record that is the given one in the order.
    quint32 offsetOf(qsizetype index) const { return m_order[static_cast<std::size_t>(index)].offset; }

    /// By their keys; equal ones stay in the order in which they came.
    void sort();
    /// Moves the next megabyte into a segment of the store; true when the run is empty again. Errors as
    /// those of the store.
    bool store(RowStore& store);

private:
    struct Entry {
        quint64 prefix = 0; ///< of the key: what nearly all comparisons look at
        quint32 offset = 0;
    };

    RowLimits m_limits;
    ByteBuffer m_records;
    std::vector<Entry> m_order;
    std::size_t m_stored = 0; ///< how many of the order are in the store
};

} // namespace quorvane::report
