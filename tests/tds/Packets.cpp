#include "tests/tds/Packets.h"

namespace dalvora::test::tds {

namespace {

constexpr quint8 endOfMessage = 1;
constexpr quint8 withdrawn = 2;
constexpr qsizetype largestMessage = qsizetype(16) << 20;

} // namespace

bool PacketReader::takePacket() {
    if (m_waiting.size() < packetHeader)
        return false;
    ByteReader header(m_waiting);
    const auto type = static_cast<MessageType>(header.u8());
    const quint8 status = header.u8();
    const quint16 length = header.u16BigEndian();
    if (length < packetHeader)
        throw ProtocolError("a packet shorter than its header");
    if (m_waiting.size() < length)
        return false;
    if (m_begun && type != m_message.type)
        throw ProtocolError("a packet of another message");
    if (m_message.payload.size() + length > largestMessage)
        throw ProtocolError("a message too large");
    m_begun = true;
    m_message.type = type;
    m_message.payload.append(m_waiting.constData() + packetHeader, length - packetHeader);
    m_waiting.remove(0, length);
    m_whole = (status & endOfMessage) != 0;
    m_withdrawn = (status & withdrawn) != 0;
    return true;
}

std::optional<Message> PacketReader::take() {
    while (takePacket()) {
        if (!m_whole)
            continue;
        m_begun = false;
        Message message = std::exchange(m_message, {});
        if (!m_withdrawn)
            return message;
    }
    return {};
}

QByteArray packet(MessageType type, QByteArrayView payload, bool last, quint8 number) {
    ByteWriter out;
    out.u8(static_cast<quint8>(type));
    out.u8(last ? endOfMessage : 0);
    out.u16BigEndian(static_cast<quint16>(payload.size() + packetHeader));
    out.u16BigEndian(0); // the session's number: nobody asks for it here
    out.u8(number);
    out.u8(0);
    out.bytes(payload);
    return out.data();
}

} // namespace dalvora::test::tds
