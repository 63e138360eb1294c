#pragma once

#include "platform/dde/Frame.h"
#include "platform/dde/RequestLink.h"
#include <QString>
#include <chrono>
#include <functional>
#include <memory>

class QLocalSocket;

namespace quorvane {

/// A link over the local sockets of docs/request-channel.md. While it waits, windows are painted and timers
/// run, but keys and clicks stay queued, so no command starts inside another one. Nothing that runs meanwhile
/// may use the link.
class LocalRequestLink final : public RequestLink {
public:
    LocalRequestLink();
    ~LocalRequestLink() override;

    void setLinkTimeout(int tenths) override;
    void setLinkTopic(const QString& topic) override;
    void setLinkMode(int mode) override;
    int linkMode() const override;
    void LinkExecute(const QString& command) override;

private:
    using Milliseconds = std::chrono::milliseconds;

    void openConversation();
    void close();
    /// Connects and asks for the topic; the answer, or nothing when it did not come in time.
    std::optional<Frame> initiate(const QString& address, Milliseconds longest);
    /// The next message; nothing when none came in time. Error 290 for bytes that are none, 291 when the
    /// application is gone.
    std::optional<Frame> answer(Milliseconds longest);
    /// Waits until the condition holds or the time is over, whatever happens on the socket.
    bool wait(Milliseconds longest, const std::function<bool()>& condition);
    void send(const Frame& frame);

    QString m_topic;
    Milliseconds m_timeout;
    /// What is left of the time-out for the topic's application to let itself be talked to.
    Milliseconds m_patience;
    std::unique_ptr<QLocalSocket> m_socket;
    FrameReader m_reader;
};

} // namespace quorvane
