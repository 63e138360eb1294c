#pragma once

#include "platform/dde/Frame.h"
#include "platform/dde/TimedRequestLink.h"
#include <memory>

class QLocalSocket;

namespace quorvane {

/// A link over the local sockets of docs/request-channel.md.
class LocalRequestLink final : public TimedRequestLink {
public:
    LocalRequestLink();
    ~LocalRequestLink() override;

private:
    bool isConnected() const override { return m_socket != nullptr; }
    bool connectTo(const QString& topic, Milliseconds longest) override;
    std::optional<ChannelAnswer> send(const QString& command, Milliseconds longest) override;
    void disconnect() override { close(); }

    void close();
    /// Connects and asks for the topic; the answer, or nothing when it did not come in time.
    std::optional<Frame> initiate(const QString& address, const QString& topic, Milliseconds longest);
    /// The next message; nothing when none came in time. Error 290 for bytes that are none, 291 when the
    /// application is gone.
    std::optional<Frame> answer(Milliseconds longest);
    /// Waits until the condition holds or the time is over, whatever happens on the socket.
    bool waitForSocket(Milliseconds longest, const std::function<bool()>& condition);
    void write(const Frame& frame);

    std::unique_ptr<QLocalSocket> m_socket;
    FrameReader m_reader;
};

} // namespace quorvane
