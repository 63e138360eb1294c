#include "platform/dde/TimedRequestLink.h"
#include "platform/dde/ChannelAddress.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds oneTenth(100);
constexpr int usualTenths = 50;

[[noreturn]] void raiseRefusal(const QString& reason) {
    try {
        raise(ErrorLinkRefused);
    } catch (const RunTimeError& refusal) {
        if (reason.isEmpty())
            throw;
        throw RunTimeError(refusal.number(), refusal.description() + QStringLiteral(": ") + reason);
    }
}

} // namespace

TimedRequestLink::TimedRequestLink() : m_timeout(usualTenths * oneTenth), m_patience(m_timeout) {}

void TimedRequestLink::setLinkTimeout(int tenths) {
    if (tenths < 0)
        raise(ErrorInvalidCall);
    m_timeout = tenths * oneTenth;
    m_patience = m_timeout;
}

void TimedRequestLink::setLinkTopic(const QString& topic) {
    disconnect();
    m_topic = topic;
    m_patience = m_timeout;
}

void TimedRequestLink::setLinkMode(int mode) {
    if (mode != LinkNone && mode != LinkManual)
        raise(ErrorInvalidCall);
    disconnect();
    if (mode == LinkManual)
        openConversation();
}

int TimedRequestLink::linkMode() const {
    return isConnected() ? LinkManual : LinkNone;
}

void TimedRequestLink::openConversation() {
    if (!isChannelTopic(m_topic))
        raise(ErrorLinkTopic);
    // A program that has used up its time is asked once more, shortly: it may be awake now.
    const Milliseconds longest =
        std::max<Milliseconds>(m_patience, std::min<Milliseconds>(m_timeout, oneTenth));
    const QDeadlineTimer start(longest);
    if (!connectTo(m_topic, longest)) {
        m_patience = Milliseconds(0);
        raise(ErrorLinkTimeout);
    }
    m_patience = std::min(m_patience, std::chrono::floor<Milliseconds>(start.remainingTimeAsDuration()));
}

void TimedRequestLink::LinkExecute(const QString& command) {
    if (!isConnected())
        raise(ErrorLinkNotOpen);
    std::optional<ChannelAnswer> answer;
    try {
        answer = send(command, m_timeout);
        if (!answer)
            raise(ErrorLinkTimeout);
    } catch (const RunTimeError& error) {
        // What comes later would be taken for the answer to another command.
        if (error.number() != ErrorInvalidCall)
            disconnect();
        throw;
    }
    if (!answer->accepted)
        raiseRefusal(answer->reason);
}

bool TimedRequestLink::wait(QEventLoop& loop, Milliseconds longest, const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(longest);
    QTimer alarm;
    alarm.setSingleShot(true);
    alarm.setTimerType(Qt::PreciseTimer);
    QObject::connect(&alarm, &QTimer::timeout, &loop, &QEventLoop::quit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        alarm.start(std::chrono::ceil<Milliseconds>(deadline.remainingTimeAsDuration()));
        constexpr int applicationEnds = -1;
        if (loop.exec(QEventLoop::ExcludeUserInputEvents) == applicationEnds)
            return condition();
    }
    return true;
}

} // namespace quorvane
