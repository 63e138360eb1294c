#pragma once

#include "platform/dde/TimedRequestLink.h"
#include <memory>

namespace quorvane {

class DdeConversation;

/// A link over DDE, to whatever program answers the topic: its first part is the service, its second the
/// topic. What DDE does not carry, the reason of a refusal, is missing from error 285.
class DdeRequestLink final : public TimedRequestLink {
public:
    DdeRequestLink();
    ~DdeRequestLink() override;

private:
    bool isConnected() const override { return m_connected; }
    bool connectTo(const QString& topic, Milliseconds longest) override;
    std::optional<ChannelAnswer> send(const QString& command, Milliseconds longest) override;
    void disconnect() override;

    void begin(const QString& topic);
    /// How the conversation's step ended, nothing when it has not ended in time.
    std::optional<int> outcome(Milliseconds longest);

    /// Open, or being opened: an attempt that was not over in time goes on, and the next one for the same
    /// topic waits for it, so however often a user tries, few wait for a desktop that does not answer.
    std::unique_ptr<DdeConversation> m_conversation;
    QString m_topic; ///< the conversation's
    bool m_connected = false;
    bool m_waiting = false;
};

} // namespace quorvane
