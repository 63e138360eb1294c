#include "platform/reportengine/rows/RowStore.h"
#include <algorithm>

namespace quorvane::report {

namespace {

/// What stands before a record: the sizes of its key and of its row.
struct Head {
    quint32 key = 0;
    quint32 row = 0;
};
constexpr qsizetype headSize = sizeof(Head);

constexpr qsizetype writeSize = 1 << 18;
constexpr qsizetype windowSize = 1 << 16;
/// Most rows are shorter: one read fetches head and row.
constexpr qsizetype firstRead = 512;

Head headAt(const char* place) {
    Head head;
    std::memcpy(&head, place, sizeof head);
    return head;
}

qsizetype recordSize(const char* place) {
    const Head head = headAt(place);
    return headSize + head.key + head.row;
}

} // namespace

void appendRecord(ByteBuffer& buffer, QByteArrayView key, QByteArrayView row) {
    const Head head{static_cast<quint32>(key.size()), static_cast<quint32>(row.size())};
    std::memcpy(buffer.grow(headSize), &head, sizeof head);
    buffer.append(key);
    buffer.append(row);
}

Record recordAt(const char* place) {
    const Head head = headAt(place);
    const char* const key = place + headSize;
    return {{key, qsizetype(head.key)}, {key + head.key, qsizetype(head.row)}, recordSize(place)};
}

RowStore::RowStore(const RowLimits& limits) : m_limits(limits), m_file(limits.folder) {}

void RowStore::beginSegment(qsizetype size) {
    m_open = {};
    m_open.inFile = m_inMemory + size > m_limits.memory;
    m_open.fileOffset = m_file.size();
    if (!m_open.inFile)
        m_open.memory.reserve(size);
}

void RowStore::append(QByteArrayView bytes) {
    m_open.size += bytes.size();
    if (!m_open.inFile) {
        m_open.memory.append(bytes);
        return;
    }
    m_pending.append(bytes);
    if (m_pending.size() >= writeSize)
        flush();
}

void RowStore::endSegment() {
    if (m_open.inFile)
        flush();
    else
        m_inMemory += m_open.size;
    m_segments.push_back(std::move(m_open));
    m_open = {};
}

void RowStore::flush() {
    m_file.append(m_pending.view());
    m_pending.clear();
}

Record RowStore::read(RowAddress address, ByteBuffer& scratch) const {
    const Segment& segment = m_segments[address.segment];
    if (!segment.inFile)
        return recordAt(segment.memory.data() + address.offset);
    const qint64 place = segment.fileOffset + address.offset;
    scratch.clear();
    const qsizetype got = m_file.read(place, scratch.grow(firstRead), headSize, firstRead);
    const qsizetype size = recordSize(scratch.data());
    if (size > firstRead)
        scratch.grow(size - firstRead);
    if (size > got)
        m_file.read(place + got, scratch.data() + got, size - got, size - got);
    return recordAt(scratch.data());
}

SegmentReader::SegmentReader(const RowStore& store, int segment)
    : m_store(&store), m_segment(&store.m_segments[segment]), m_address{static_cast<quint32>(segment), 0} {}

bool SegmentReader::next() {
    if (m_offset >= m_segment->size)
        return false;
    const char* place = nullptr;
    if (m_segment->inFile) {
        fill(headSize);
        fill(recordSize(m_window.data() + (m_offset - m_windowStart)));
        place = m_window.data() + (m_offset - m_windowStart);
    } else {
        place = m_segment->memory.data() + m_offset;
    }
    m_record = recordAt(place);
    m_address.offset = static_cast<quint32>(m_offset);
    m_offset += m_record.size;
    return true;
}

void SegmentReader::fill(qsizetype least) {
    if (m_offset + least <= m_windowStart + m_window.size())
        return;
    const qsizetype count = std::min(std::max(least, windowSize), m_segment->size - m_offset);
    m_window.clear();
    m_window.shrinkTo(
        m_store->m_file.read(m_segment->fileOffset + m_offset, m_window.grow(count), least, count));
    m_windowStart = m_offset;
}

} // namespace quorvane::report
