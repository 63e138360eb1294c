#include "platform/dde/ServedClient.h"
#include "platform/dde/RequestAnswerer.h"
#include <QLocalSocket>

namespace quorvane {

namespace {

/// Of answers that the client does not fetch.
constexpr qint64 mostUnsent = 4 * frameLongestText;

} // namespace

ServedClient::ServedClient(QLocalSocket* socket, QString topic, std::chrono::milliseconds longestSilence,
                           QObject* parent)
    : QObject(parent), m_socket(socket), m_topic(std::move(topic)) {
    m_socket->setParent(this);
    m_socket->setReadBufferSize(frameHeader + frameLongestText);
    m_silence.setSingleShot(true);
    m_silence.start(longestSilence);
    connect(&m_silence, &QTimer::timeout, this, &ServedClient::hangUp);
    connect(m_socket, &QLocalSocket::readyRead, this, [this] {
        m_silence.start();
        Q_EMIT arrived();
    });
    connect(m_socket, &QLocalSocket::disconnected, this, &ServedClient::gone);
}

std::optional<Frame> ServedClient::nextFrame() {
    auto frame = m_reader.next();
    while (!frame && !m_reader.damaged() && m_socket->bytesAvailable() > 0) {
        m_reader.feed(m_socket->readAll());
        frame = m_reader.next();
    }
    if (m_reader.damaged())
        hangUp();
    return frame;
}

std::optional<QString> ServedClient::nextCommand() {
    while (m_socket->state() == QLocalSocket::ConnectedState) {
        const auto frame = nextFrame();
        if (!frame)
            return std::nullopt;
        if (frame->kind == FrameKind::Execute && m_initiated)
            return frame->text;
        if (frame->kind != FrameKind::Initiate) {
            hangUp();
            return std::nullopt;
        }
        m_initiated = frame->text.compare(m_topic, Qt::CaseInsensitive) == 0;
        send({m_initiated ? FrameKind::Accept : FrameKind::Refuse, {}});
    }
    return std::nullopt;
}

void ServedClient::reply(const ChannelAnswer& answer) {
    send({answer.accepted ? FrameKind::Accept : FrameKind::Refuse,
          answer.accepted ? QString() : answer.reason});
}

void ServedClient::send(const Frame& frame) {
    auto bytes = encodeFrame(frame);
    if (!bytes) // a reason that no message holds
        bytes = encodeFrame({frame.kind, {}});
    m_socket->write(*bytes);
    m_socket->flush();
    if (m_socket->bytesToWrite() > mostUnsent)
        hangUp();
}

void ServedClient::hangUp() {
    m_socket->abort();
}

} // namespace quorvane
