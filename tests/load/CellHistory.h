#pragma once

#include <QHash>
#include <QString>
#include <limits>
#include <vector>

namespace dalvora::test {

/// A write of a cell: it took effect at some moment from `start` to `end`.
struct CellWrite {
    qint64 start = 0;
    qint64 end = 0;
    QString value;
};

/// All writes of one cell. A read may show a value when a write of it had begun by the read's end, and no
/// write that began after that one's end was over at the read's start. Writes that overlapped may have
/// happened in either order. A read costs the writes of its value, not all of them.
class CellHistory {
public:
    static constexpr qint64 first = std::numeric_limits<qint64>::min();
    static constexpr qint64 last = std::numeric_limits<qint64>::max();

    /// The value before everything; absent when it is never called.
    void addFirst(const QString& value) { m_first = value; }
    void add(const CellWrite& write) { m_writes.push_back(write); }
    /// After the last write and before the first question.
    void sort();

    /// Why a read in this time cannot have shown the value; "" when it can.
    QString problem(const QString& value, qint64 start, qint64 end) const;

private:
    /// The earliest end of a write that began at this time or later.
    qint64 overwritten(qint64 from) const;

    QString m_first;
    std::vector<CellWrite> m_writes;   ///< by their start
    std::vector<qint64> m_earliestEnd; ///< of the writes from this place on
    QHash<QString, std::vector<std::size_t>> m_byValue;
};

} // namespace dalvora::test
