#pragma once

#include <QString>

namespace quorvane {

/// What a link can be set to.
enum LinkMode : int {
    LinkNone = 0,   ///< no conversation
    LinkManual = 2, ///< a conversation that moves only when it is told to
};

/// The asking end of a request channel: a conversation with another program that is addressed by a topic
/// "application|topic" and takes commands. Programs see this interface; behind it LocalRequestLink talks over
/// local sockets, and DdeRequestLink over DDE.
///
/// Errors are RunTimeError: 282 when no application answers, 285 when it refuses a command, 286 when it does
/// not answer in time, 290 when it answers in a way that cannot be read, 291 when it ended meanwhile, 293
/// without a conversation, 297 for a topic that is none. All are raised by the call that met them.
class RequestLink {
public:
    virtual ~RequestLink() = default;

    /// The longest wait for an answer, in tenths of a second. For opening it is the time granted to the
    /// application since the topic was set, over all attempts: a program that stays silent costs it once.
    /// Error 5 below 0.
    virtual void setLinkTimeout(int tenths) = 0;
    /// Whom to talk to. Changing the topic ends a conversation.
    virtual void setLinkTopic(const QString& topic) = 0;
    /// LinkNone ends the conversation, LinkManual opens one with the topic's application (ending the one
    /// before); error 5 for any other mode. Errors 282, 286, 290, 297. After an error there is none.
    virtual void setLinkMode(int mode) = 0;
    virtual int linkMode() const = 0;
    /// Sends a command and waits until the application has accepted it. Errors 5 (a text that no message
    /// holds), 285, 286, 290, 291, 293. The conversation stays open after 285 only.
    virtual void LinkExecute(const QString& command) = 0;
};

} // namespace quorvane
