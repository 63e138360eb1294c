#pragma once

#include "platform/reportengine/rows/ByteBuffer.h"
#include "platform/reportengine/rows/SpillFile.h"
#include <QString>
#include <deque>

namespace quorvane::report {

/// How much a report keeps in memory and where the rest goes.
struct RowLimits {
    qsizetype memory = 32 << 20;  ///< bytes of finished segments; what comes later goes to the file
    qsizetype runBytes = 8 << 20; ///< a segment is finished at this size
    qsizetype runRows = 1 << 16;  ///< or at this number of rows: sorting it takes some hundredths of a second
    QString folder;               ///< for the temporary file; "" for the system's own
};

/// Where a record lies.
struct RowAddress {
    quint32 segment = 0;
    quint32 offset = 0;
};

/// A row as it is stored, with the key that it is sorted by.
struct Record {
    QByteArrayView key;
    QByteArrayView row;
    qsizetype size = 0; ///< with its head
};

/// Appends a record.
void appendRecord(ByteBuffer& buffer, QByteArrayView key, QByteArrayView row);
/// The record that begins here.
Record recordAt(const char* place);

/// The rows of a report: records in segments of some megabytes, the first ones in memory, the others in a
/// temporary file.
class RowStore {
public:
    explicit RowStore(const RowLimits& limits);

    /// The position of the next segment.
    int segmentCount() const { return static_cast<int>(m_segments.size()); }
    /// Opens a segment that will have the given size; errors 61 and 75.
    void beginSegment(qsizetype size);
    void append(QByteArrayView bytes);
    void endSegment();

    /// The record; its bytes lie in the store or in the scratch. Error 75.
    Record read(RowAddress address, ByteBuffer& scratch) const;

private:
    friend class SegmentReader;
    struct Segment {
        ByteBuffer memory;
        bool inFile = false;
        qint64 fileOffset = 0;
        qsizetype size = 0;
    };
    void flush();

    RowLimits m_limits;
    std::deque<Segment> m_segments;
    Segment m_open;
    ByteBuffer m_pending; ///< of the open segment, when it goes to the file
    qsizetype m_inMemory = 0;
    mutable SpillFile m_file;
};

/// Walks the records of a segment in their order, through a window when they lie in the file.
class SegmentReader {
public:
    SegmentReader(const RowStore& store, int segment);

    /// The next record and its address, good until the next call; false past the last one. Error 75.
    bool next();
    const Record& record() const { return m_record; }
    RowAddress address() const { return m_address; }

private:
    /// Makes the window begin at the present offset and hold at least the given number of bytes.
    void fill(qsizetype least);

    const RowStore* m_store;
    const RowStore::Segment* m_segment;
    Record m_record;
    RowAddress m_address;
    qsizetype m_offset = 0;      ///< of the next record
    qsizetype m_windowStart = 0; ///< offset of the window's first byte
    ByteBuffer m_window;
};

} // namespace quorvane::report
