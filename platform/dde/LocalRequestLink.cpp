#include "platform/dde/LocalRequestLink.h"
#include "platform/dde/ChannelAddress.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLocalSocket>

namespace quorvane {

LocalRequestLink::LocalRequestLink() = default;

LocalRequestLink::~LocalRequestLink() {
    close();
}

void LocalRequestLink::close() {
    m_reader = {};
    if (!m_socket)
        return;
    m_socket->abort();
    m_socket.reset();
}

bool LocalRequestLink::connectTo(const QString& topic, Milliseconds longest) {
    const QString address = channelAddress(topic);
    if (address.isEmpty())
        raise(ErrorLinkNoAnswer);
    std::optional<Frame> reply;
    try {
        reply = initiate(address, topic, longest);
    } catch (const RunTimeError&) {
        close();
        throw;
    }
    if (reply && reply->kind == FrameKind::Accept)
        return true;
    close();
    if (reply)
        raise(ErrorLinkNoAnswer);
    return false;
}

std::optional<Frame> LocalRequestLink::initiate(const QString& address, const QString& topic,
                                                Milliseconds longest) {
    const QDeadlineTimer deadline(longest);
    m_socket = std::make_unique<QLocalSocket>();
    m_socket->setReadBufferSize(frameHeader + frameLongestText);
    m_socket->connectToServer(address);
    waitForSocket(longest, [this] { return m_socket->state() != QLocalSocket::ConnectingState; });
    if (m_socket->state() == QLocalSocket::ConnectingState)
        return std::nullopt;
    if (m_socket->state() != QLocalSocket::ConnectedState)
        raise(ErrorLinkNoAnswer);
    write({FrameKind::Initiate, topic});
    try {
        return answer(std::chrono::ceil<Milliseconds>(deadline.remainingTimeAsDuration()));
    } catch (const RunTimeError& error) {
        // One that goes away before it has answered has not answered.
        if (error.number() == ErrorLinkQuit)
            raise(ErrorLinkNoAnswer);
        throw;
    }
}

std::optional<ChannelAnswer> LocalRequestLink::send(const QString& command, Milliseconds longest) {
    write({FrameKind::Execute, command});
    const auto reply = answer(longest);
    if (!reply)
        return std::nullopt;
    return ChannelAnswer{reply->kind == FrameKind::Accept, reply->text};
}

void LocalRequestLink::write(const Frame& frame) {
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
    const bool told = waitForSocket(longest, read);
    if (m_reader.damaged() || (frame && frame->kind != FrameKind::Accept && frame->kind != FrameKind::Refuse))
        raise(ErrorLinkFormat);
    if (told && !frame)
        raise(ErrorLinkQuit);
    return frame;
}

bool LocalRequestLink::waitForSocket(Milliseconds longest, const std::function<bool()>& condition) {
    QEventLoop loop;
    const auto wake = [&loop] { loop.quit(); };
    QObject::connect(m_socket.get(), &QLocalSocket::stateChanged, &loop, wake);
    QObject::connect(m_socket.get(), &QLocalSocket::readyRead, &loop, wake);
    QObject::connect(m_socket.get(), &QLocalSocket::errorOccurred, &loop, wake);
    return wait(loop, longest, condition);
}

} // namespace quorvane
