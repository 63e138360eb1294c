#include "platform/dde/windows/DdeRequestLink.h"
#include "platform/dde/Frame.h"
#include "platform/dde/windows/DdeConversation.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QEventLoop>
#include <QScopedValueRollback>

namespace quorvane {

namespace {

/// The system takes a window that listens to nothing for so long for hung and asks it no more, so an older
/// attempt may wait for one that a new attempt passes by.
constexpr std::chrono::seconds hungWindow(5);
/// For the other end to be told that a conversation is over.
constexpr std::chrono::milliseconds farewell(300);

} // namespace

DdeRequestLink::DdeRequestLink() = default;

DdeRequestLink::~DdeRequestLink() = default;

void DdeRequestLink::begin(const QString& topic) {
    const qsizetype bar = topic.indexOf(u'|');
    m_conversation = std::make_unique<DdeConversation>(topic.left(bar), topic.mid(bar + 1));
    m_topic = topic;
    // One that is opened when nobody waits any more is not kept: who comes next opens his own.
    QObject::connect(m_conversation.get(), &DdeConversation::answered, m_conversation.get(), [this] {
        if (m_conversation && !m_waiting)
            m_conversation.release()->deleteLater();
    });
}

bool DdeRequestLink::connectTo(const QString& topic, Milliseconds longest) {
    if (!m_conversation || m_topic != topic || m_conversation->age() > hungWindow)
        begin(topic);
    const auto error = outcome(longest);
    if (!error)
        return false;
    m_connected = *error == 0;
    if (!m_connected) {
        m_conversation.reset();
        raise(*error);
    }
    return true;
}

std::optional<ChannelAnswer> DdeRequestLink::send(const QString& command, Milliseconds longest) {
    // DDE would take more; programs shall meet the same bounds on every system.
    if (!encodeFrame({FrameKind::Execute, command}))
        raise(ErrorInvalidCall);
    m_conversation->execute(command, longest);
    const int error = outcome(longest).value_or(ErrorLinkTimeout);
    if (error == ErrorLinkTimeout)
        return std::nullopt;
    if (error != 0 && error != ErrorLinkRefused)
        raise(error);
    return ChannelAnswer{error == 0, {}};
}

std::optional<int> DdeRequestLink::outcome(Milliseconds longest) {
    const QScopedValueRollback<bool> waiting(m_waiting, true);
    QEventLoop loop;
    QObject::connect(m_conversation.get(), &DdeConversation::answered, &loop, &QEventLoop::quit);
    wait(loop, longest, [this] { return m_conversation->outcome().has_value(); });
    return m_conversation->outcome();
}

void DdeRequestLink::disconnect() {
    if (!m_connected)
        return;
    m_connected = false;
    const std::unique_ptr<DdeConversation> ending = std::move(m_conversation);
    ending->leave();
    QEventLoop loop;
    QObject::connect(ending.get(), &DdeConversation::left, &loop, &QEventLoop::quit);
    wait(loop, farewell, [&ending] { return ending->hasLeft(); });
}

} // namespace quorvane
