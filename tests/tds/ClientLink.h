#pragma once

#include "tests/tds/Packets.h"
#include <atomic>
#include <deque>

namespace dalvora::test::tds {

/// The link is gone, or the server ends, or a fault cut it: the client's thread has nothing left to do.
class LinkClosed : public std::exception {
public:
    const char* what() const noexcept override { return "the link is closed"; }
};

/// One client's socket, on the thread that serves it. Its operations raise LinkClosed; what breaks the
/// protocol is a ProtocolError.
class ClientLink {
public:
    /// `ends` is looked at while waiting.
    ClientLink(int socket, const std::atomic<bool>& ends) : m_socket(socket), m_ends(ends) {}

    /// Waits for the next message.
    Message receive();
    void send(QByteArrayView data);
    /// True when the client has asked to give up what it asked for; that request is used up then.
    bool takeAttention();
    /// Waits, but not for a client that is gone or gives up: false then.
    bool pause(int milliseconds);
    /// Breaks the link in the middle of whatever it is.
    [[noreturn]] void cut();

private:
    void waitFor(short events);
    /// Reads what has arrived.
    void readArrived();

    int m_socket;
    const std::atomic<bool>& m_ends;
    PacketReader m_reader;
    std::deque<Message> m_arrived;
};

/// An answer under way: tokens fill packets of the agreed size, which leave as they get full.
class Answer {
public:
    Answer(ClientLink& link, int packetSize) : m_link(link), m_room(packetSize - packetHeader) {}

    ByteWriter& tokens() { return m_tokens; }
    ClientLink& link() { return m_link; }
    void sendFullPackets();
    /// Sends what there is although more was to follow, for a link about to be cut.
    void sendTorn();
    void finish();

private:
    void sendPacket(qsizetype size, bool last);

    ClientLink& m_link;
    qsizetype m_room;
    ByteWriter m_tokens;
    quint8 m_number = 0;
};

} // namespace dalvora::test::tds
