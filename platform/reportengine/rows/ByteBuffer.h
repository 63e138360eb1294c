#pragma once

#include <QByteArrayView>
#include <cstring>
#include <memory>

namespace quorvane::report {

/// Bytes that are filled, emptied and filled again, row after row: it never gives its memory back while it
/// lives and never writes a byte that the caller does not.
class ByteBuffer {
public:
    qsizetype size() const { return m_size; }
    const char* data() const { return m_data.get(); }
    char* data() { return m_data.get(); }
    QByteArrayView view() const { return {m_data.get(), m_size}; }

    void clear() { m_size = 0; }
    /// Frees the memory as well.
    void release() {
        m_data.reset();
        m_size = m_capacity = 0;
    }
    void reserve(qsizetype capacity) {
        if (capacity > m_capacity)
            reallocate(capacity);
    }
    /// Makes the buffer longer; the new bytes hold anything.
    char* grow(qsizetype count) {
        if (m_size + count > m_capacity)
            reallocate(std::max(m_size + count, m_capacity + m_capacity / 2));
        char* place = m_data.get() + m_size;
        m_size += count;
        return place;
    }
    void shrinkTo(qsizetype size) { m_size = size; }
    void append(QByteArrayView bytes) {
        if (!bytes.isEmpty())
            std::memcpy(grow(bytes.size()), bytes.data(), static_cast<std::size_t>(bytes.size()));
    }

private:
    void reallocate(qsizetype capacity) {
        std::unique_ptr<char[]> bigger(new char[static_cast<std::size_t>(capacity)]);
        if (m_size > 0)
            std::memcpy(bigger.get(), m_data.get(), static_cast<std::size_t>(m_size));
        m_data = std::move(bigger);
        m_capacity = capacity;
    }

    std::unique_ptr<char[]> m_data;
    qsizetype m_size = 0;
    qsizetype m_capacity = 0;
};

} // namespace quorvane::report
