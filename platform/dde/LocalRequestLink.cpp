#include "platform/dde/LocalRequestLink.h"
#include "platform/dde/ChannelAddress.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLocalSocket>
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

LocalRequestLink::LocalRequestLink() : m_timeout(usualTenths * oneTenth), m_patience(m_timeout) {}

LocalRequestLink::~LocalRequestLink() {
    close();
}

void LocalRequestLink::setLinkTimeout(int tenths) {
    if (tenths < 0)
        raise(ErrorInvalidCall);
    m_timeout = tenths * oneTenth;
    m_patience = m_timeout;
}

void LocalRequestLink::setLinkTopic(const QString& topic) {
    close();
    m_topic = topic;
    m_patience = m_timeout;
}

void LocalRequestLink::setLinkMode(int mode) {
    if (mode != LinkNone && mode != LinkManual)
        raise(ErrorInvalidCall);
    close();
    if (mode == LinkManual)
        openConversation();
}

int LocalRequestLink::linkMode() const {
    return m_socket ? LinkManual : LinkNone;
}

void LocalRequestLink::close() {
    m_reader = {};
    if (!m_socket)
        return;
    m_socket->abort();
    m_socket.reset();
}

void LocalRequestLink::openConversation() {
    if (!isChannelTopic(m_topic))
        raise(ErrorLinkTopic);
    const QString address = channelAddress(m_topic);
    if (address.isEmpty())
        raise(ErrorLinkNoAnswer);
    // A program that has used up its time is asked once more, shortly: it may be awake now.
    const Milliseconds longest =
        std::max<Milliseconds>(m_patience, std::min<Milliseconds>(m_timeout, oneTenth));
    const QDeadlineTimer start(longest);
    std::optional<Frame> reply;
    try {
        reply = initiate(address, longest);
    } catch (const RunTimeError&) {
        close();
        throw;
    }
    m_patience = std::min(m_patience, std::chrono::floor<Milliseconds>(start.remainingTimeAsDuration()));
    if (reply && reply->kind == FrameKind::Accept)
        return;
    close();
    raise(reply ? ErrorLinkNoAnswer : ErrorLinkTimeout);
}

std::optional<Frame> LocalRequestLink::initiate(const QString& address, Milliseconds longest) {
    const QDeadlineTimer deadline(longest);
    m_socket = std::make_unique<QLocalSocket>();
    m_socket->setReadBufferSize(frameHeader + frameLongestText);
    m_socket->connectToServer(address);
    wait(longest, [this] { return m_socket->state() != QLocalSocket::ConnectingState; });
    if (m_socket->state() == QLocalSocket::ConnectingState)
        return std::nullopt;
    if (m_socket->state() != QLocalSocket::ConnectedState)
        raise(ErrorLinkNoAnswer);
    send({FrameKind::Initiate, m_topic});
    try {
        return answer(std::chrono::ceil<Milliseconds>(deadline.remainingTimeAsDuration()));
    } catch (const RunTimeError& error) {
        // One that goes away before it has answered has not answered.
        if (error.number() == ErrorLinkQuit)
            raise(ErrorLinkNoAnswer);
        throw;
    }
}

void LocalRequestLink::LinkExecute(const QString& command) {
    if (!m_socket)
        raise(ErrorLinkNotOpen);
    std::optional<Frame> reply;
    try {
        send({FrameKind::Execute, command});
        reply = answer(m_timeout);
        if (!reply)
            raise(ErrorLinkTimeout);
    } catch (const RunTimeError& error) {
        // What comes later would be taken for the answer to another command.
        if (error.number() != ErrorInvalidCall)
            close();
        throw;
    }
    if (reply->kind == FrameKind::Refuse)
        raiseRefusal(reply->text);
}

void LocalRequestLink::send(const Frame& frame) {
    const auto bytes = encodeFrame(frame);
    if (!bytes)
        raise(ErrorInvalidCall);
    m_socket->write(*bytes);
    m_socket->flush();
}

std::optional<Frame> LocalRequestLink::answer(Milliseconds longest) {
    std::optional<Frame> frame;
    const auto read = [&] {
        if (!frame && m_socket->isOpen())
            m_reader.feed(m_socket->readAll());
        if (!frame)
            frame = m_reader.next();
        return frame || m_reader.damaged() || m_socket->state() != QLocalSocket::ConnectedState;
    };
    // At once: a socket that is closed behind its answer drops what was not read.
    const QObject reading;
    QObject::connect(m_socket.get(), &QLocalSocket::readyRead, &reading, read);
    const bool told = wait(longest, read);
    if (m_reader.damaged() || (frame && frame->kind != FrameKind::Accept && frame->kind != FrameKind::Refuse))
        raise(ErrorLinkFormat);
    if (told && !frame)
        raise(ErrorLinkQuit);
    return frame;
}

bool LocalRequestLink::wait(Milliseconds longest, const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(longest);
    QEventLoop loop;
    QTimer alarm;
    alarm.setSingleShot(true);
    alarm.setTimerType(Qt::PreciseTimer);
    const auto wake = [&loop] { loop.quit(); };
    QObject::connect(&alarm, &QTimer::timeout, &loop, wake);
    QObject::connect(m_socket.get(), &QLocalSocket::stateChanged, &loop, wake);
    QObject::connect(m_socket.get(), &QLocalSocket::readyRead, &loop, wake);
    QObject::connect(m_socket.get(), &QLocalSocket::errorOccurred, &loop, wake);
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
