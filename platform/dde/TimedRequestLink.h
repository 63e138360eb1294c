#pragma once

#include "platform/dde/RequestAnswerer.h"
#include "platform/dde/RequestLink.h"
#include <QString>
#include <chrono>
#include <functional>
#include <optional>

class QEventLoop;

namespace quorvane {

/// What links of every kind share: modes, topic, time-outs and how they wait. While a link waits, windows are
/// painted and timers run, but keys and clicks stay queued, so no command starts inside another one. Nothing
/// that runs meanwhile may use the link.
class TimedRequestLink : public RequestLink {
public:
    TimedRequestLink();

    void setLinkTimeout(int tenths) final;
    void setLinkTopic(const QString& topic) final;
    void setLinkMode(int mode) final;
    int linkMode() const final;
    void LinkExecute(const QString& command) final;

protected:
    using Milliseconds = std::chrono::milliseconds;

    virtual bool isConnected() const = 0;
    /// Opens a conversation; false when the application did not answer in time. Errors 282, 290.
    virtual bool connectTo(const QString& topic, Milliseconds longest) = 0;
    /// What the application answered; nothing when it did not in time. Errors 5 (the conversation goes on),
    /// 290, 291.
    virtual std::optional<ChannelAnswer> send(const QString& command, Milliseconds longest) = 0;
    /// Ends the conversation, if there is one.
    virtual void disconnect() = 0;

    /// Waits until the condition holds or the time is over; whatever may change it ends `loop`.
    static bool wait(QEventLoop& loop, Milliseconds longest, const std::function<bool()>& condition);

private:
    void openConversation();

    QString m_topic;
    Milliseconds m_timeout;
    /// What is left of the time-out for the topic's application to let itself be talked to.
    Milliseconds m_patience;
};

} // namespace quorvane
