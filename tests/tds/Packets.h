#pragma once

#include "tests/tds/Bytes.h"
#include <optional>

namespace dalvora::test::tds {

/// The kinds of message that this server knows by name.
enum class MessageType : quint8 {
    Batch = 1,
    RemoteProcedure = 3,
    Answer = 4,
    Attention = 6,
    TransactionManager = 14,
    Login = 16,
    PreLogin = 18,
};

struct Message {
    MessageType type = MessageType::Batch;
    QByteArray payload;
};

inline constexpr qsizetype packetHeader = 8;
inline constexpr int smallestPacket = 512;
inline constexpr int largestPacket = 32767;

/// Joins packets to messages, in whatever pieces they arrive. A packet that cannot be is a ProtocolError,
/// also a message beyond 16 MB: nobody shall make the server hold any amount.
class PacketReader {
public:
    void feed(QByteArrayView data) { m_waiting.append(data); }
    /// The next whole message. One that its sender has withdrawn is left out.
    std::optional<Message> take();

private:
    bool takePacket();

    QByteArray m_waiting;
    Message m_message;
    bool m_begun = false;
    bool m_whole = false;
    bool m_withdrawn = false;
};

/// One packet with its header. `number` counts the packets of a message from 1.
QByteArray packet(MessageType type, QByteArrayView payload, bool last, quint8 number);

} // namespace dalvora::test::tds
