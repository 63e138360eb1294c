#pragma once

#include <QByteArray>
#include <QString>
#include <stdexcept>

namespace dalvora::test::tds {

/// What a client sends breaks the protocol: its link is cut.
class ProtocolError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the fields of a message in their order; past its end is a ProtocolError.
class ByteReader {
public:
    explicit ByteReader(QByteArrayView data) : m_data(data) {}

    quint8 u8() { return static_cast<quint8>(bytes(1)[0]); }
    quint16 u16() { return static_cast<quint16>(number(2)); }
    quint32 u32() { return static_cast<quint32>(number(4)); }
    quint64 u64() { return number(8); }
    quint16 u16BigEndian();
    QByteArrayView bytes(qsizetype count);
    /// UTF-16 text of so many units.
    QString text(qsizetype units);
    /// The text that is left.
    QString restAsText();
    qsizetype left() const { return m_data.size() - m_place; }
    /// Goes to a place counted from the beginning.
    void seek(qsizetype place);

private:
    quint64 number(int size);

    QByteArrayView m_data;
    qsizetype m_place = 0;
};

/// Appends fields to a message; numbers are little-endian.
class ByteWriter {
public:
    void u8(quint8 value) { number(value, 1); }
    void u16(quint16 value) { number(value, 2); }
    void u32(quint32 value) { number(value, 4); }
    void u64(quint64 value) { number(value, 8); }
    void u16BigEndian(quint16 value);
    void bytes(QByteArrayView data) { m_data.append(data); }
    /// UTF-16 units without a length; behind one that counts units (8 or 16 bits).
    void units(const QString& text);
    void shortText(const QString& text);
    void longText(const QString& text);
    /// A number of `size` bytes.
    void number(quint64 value, int size);
    /// Writes the size of what follows `place` + 2 there, where u16 was written before.
    void patchLength(qsizetype place);

    const QByteArray& data() const { return m_data; }
    qsizetype size() const { return m_data.size(); }
    /// Hands over the first bytes.
    QByteArray take(qsizetype count);

private:
    QByteArray m_data;
};

} // namespace dalvora::test::tds
