#pragma once

#include <QString>
#include <functional>

namespace quorvane {

/// What a program answers to a command.
struct ChannelAnswer {
    bool accepted = false;
    /// Why it was refused, in Spanish; may be empty. A channel that carries no text drops it.
    QString reason;
};

/// The answering end of a request channel: answers one topic of this user, on this machine only, and hands
/// each command to a callback, one after another. Programs see this interface, as askers see RequestLink.
class RequestAnswerer {
public:
    /// Should answer at once: the client waits, at most for its time-out. A RunTimeError refuses the command
    /// with its description. Commands that arrive while it runs wait or are turned away, even if it lets
    /// events run. It must not destroy the answerer.
    using Executor = std::function<ChannelAnswer(const QString& command)>;

    virtual ~RequestAnswerer() = default;

    /// Begins to answer. False when a living process answers the topic already, when it is no topic, or when
    /// the system gives no means to answer. True again while it answers.
    virtual bool listen() = 0;
    /// Ends the conversations and gives the topic back.
    virtual void close() = 0;
};

} // namespace quorvane
