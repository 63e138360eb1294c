#include "tests/tds/Bytes.h"

namespace dalvora::test::tds {

QByteArrayView ByteReader::bytes(qsizetype count) {
    if (count < 0 || count > left())
        throw ProtocolError("a message ends early");
    const QByteArrayView data = m_data.sliced(m_place, count);
    m_place += count;
    return data;
}

quint64 ByteReader::number(int size) {
    const QByteArrayView data = bytes(size);
    quint64 value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = value << 8 | static_cast<quint8>(data[i]);
    return value;
}

quint16 ByteReader::u16BigEndian() {
    const quint16 high = u8();
    return static_cast<quint16>(high << 8 | u8());
}

QString ByteReader::text(qsizetype units) {
    QString text;
    // Checked before anything of that size is made.
    ByteReader field(bytes(units * 2));
    text.reserve(units);
    for (qsizetype i = 0; i < units; ++i)
        text += QChar(field.u16());
    return text;
}

QString ByteReader::restAsText() {
    if (left() % 2 != 0)
        throw ProtocolError("half a character");
    return text(left() / 2);
}

void ByteReader::seek(qsizetype place) {
    if (place < 0 || place > m_data.size())
        throw ProtocolError("a place outside the message");
    m_place = place;
}

void ByteWriter::number(quint64 value, int size) {
    for (int i = 0; i < size; ++i)
        m_data.append(static_cast<char>(value >> (8 * i)));
}

void ByteWriter::u16BigEndian(quint16 value) {
    u8(static_cast<quint8>(value >> 8));
    u8(static_cast<quint8>(value));
}

void ByteWriter::units(const QString& text) {
    for (const QChar unit : text)
        u16(unit.unicode());
}

void ByteWriter::shortText(const QString& text) {
    const QString cut = text.left(255);
    u8(static_cast<quint8>(cut.size()));
    units(cut);
}

void ByteWriter::longText(const QString& text) {
    const QString cut = text.left(4000);
    u16(static_cast<quint16>(cut.size()));
    units(cut);
}

void ByteWriter::patchLength(qsizetype place) {
    const qsizetype length = m_data.size() - place - 2;
    m_data[place] = static_cast<char>(length);
    m_data[place + 1] = static_cast<char>(length >> 8);
}

QByteArray ByteWriter::take(qsizetype count) {
    QByteArray head = m_data.first(count);
    m_data.remove(0, count);
    return head;
}

} // namespace dalvora::test::tds
