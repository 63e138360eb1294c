#include "tests/tds/ClientLink.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>

namespace dalvora::test::tds {

namespace {

constexpr int look = 10; // ms between looks at whether the server ends

} // namespace

void ClientLink::waitFor(short events) {
    pollfd waiting{m_socket, events, 0};
    while (poll(&waiting, 1, look) <= 0)
        if (m_ends)
            throw LinkClosed();
}

void ClientLink::readArrived() {
    std::array<char, 65536> data;
    const ssize_t count = recv(m_socket, data.data(), data.size(), MSG_DONTWAIT);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count <= 0)
        throw LinkClosed();
    m_reader.feed({data.data(), count});
    while (std::optional<Message> message = m_reader.take())
        m_arrived.push_back(std::move(*message));
}

Message ClientLink::receive() {
    while (m_arrived.empty()) {
        waitFor(POLLIN);
        readArrived();
    }
    Message message = std::move(m_arrived.front());
    m_arrived.pop_front();
    return message;
}

void ClientLink::send(QByteArrayView data) {
    while (!data.isEmpty()) {
        const ssize_t count = ::send(m_socket, data.data(), data.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count > 0)
            data = data.sliced(count);
        else if (count < 0 && errno != EAGAIN && errno != EINTR)
            throw LinkClosed();
        else
            waitFor(POLLOUT);
    }
}

bool ClientLink::takeAttention() {
    readArrived();
    const auto found = std::ranges::find(m_arrived, MessageType::Attention, &Message::type);
    if (found == m_arrived.end())
        return false;
    m_arrived.erase(found);
    return true;
}

bool ClientLink::pause(int milliseconds) {
    if (m_ends)
        throw LinkClosed();
    pollfd waiting{m_socket, POLLIN, 0};
    poll(&waiting, 1, milliseconds);
    return !takeAttention();
}

void ClientLink::cut() {
    // With nothing kept back: what was sent arrives, and then the end.
    shutdown(m_socket, SHUT_RDWR);
    throw LinkClosed();
}

void Answer::sendPacket(qsizetype size, bool last) {
    m_link.send(packet(MessageType::Answer, m_tokens.take(size), last, ++m_number));
}

void Answer::sendFullPackets() {
    while (m_tokens.size() > m_room)
        sendPacket(m_room, false);
}

void Answer::sendTorn() {
    sendFullPackets();
    sendPacket(m_tokens.size(), false);
}

void Answer::finish() {
    sendFullPackets();
    sendPacket(m_tokens.size(), true);
}

} // namespace dalvora::test::tds
