#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace help {

/// Reads little-endian numbers from bytes that nobody vouches for: past the end every read gives zero and
/// ok() stays false, so a parser checks once where it matters instead of at every step.
class ByteReader {
public:
    explicit ByteReader(QByteArrayView bytes, qsizetype position = 0) : m_bytes(bytes), m_position(position) {
        m_ok = position >= 0 && position <= bytes.size();
    }

    bool ok() const { return m_ok; }
    qsizetype position() const { return m_position; }
    void skip(qsizetype count) { take(count); }
    void seek(qsizetype position) {
        m_ok = m_ok && position >= 0 && position <= m_bytes.size();
        m_position = position;
    }

    quint16 u16() { return static_cast<quint16>(number(2)); }
    quint32 u32() { return static_cast<quint32>(number(4)); }
    quint64 u64() { return number(8); }

    /// A number in groups of seven bits, the highest first; the top bit says that another byte follows.
    quint64 compressedNumber() {
        quint64 value = 0;
        for (int count = 0; count < 9; ++count) {
            const QByteArrayView one = take(1);
            if (one.isEmpty())
                return 0;
            const auto byte = static_cast<unsigned char>(one[0]);
            value = (value << 7) | (byte & 0x7fU);
            if ((byte & 0x80U) == 0)
                return value;
        }
        m_ok = false;
        return 0;
    }

    /// The next `count` bytes; none when so many are not there.
    QByteArrayView take(quint64 count) {
        if (!m_ok || count > static_cast<quint64>(m_bytes.size() - m_position)) {
            m_ok = false;
            return {};
        }
        const QByteArrayView part = m_bytes.sliced(m_position, static_cast<qsizetype>(count));
        m_position += static_cast<qsizetype>(count);
        return part;
    }

private:
    quint64 number(int width) {
        quint64 value = 0;
        const QByteArrayView part = take(static_cast<quint64>(width));
        for (qsizetype at = part.size(); at-- > 0;)
            value = (value << 8) | static_cast<unsigned char>(part[at]);
        return value;
    }

    QByteArrayView m_bytes;
    qsizetype m_position;
    bool m_ok = true;
};

} // namespace help
