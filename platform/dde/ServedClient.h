#pragma once

#include "platform/dde/Frame.h"
#include <QObject>
#include <QTimer>
#include <chrono>

class QLocalSocket;

namespace quorvane {

struct ChannelAnswer;

/// One client of a request server: its socket and how far its conversation has come.
class ServedClient : public QObject {
    Q_OBJECT
public:
    /// Takes over the socket; hangs up when nothing came for the given time.
    ServedClient(QLocalSocket* socket, QString topic, std::chrono::milliseconds longestSilence,
                 QObject* parent);

    /// The next command; answers on the way that the topic is, or is not, the right one.
    std::optional<QString> nextCommand();
    void reply(const ChannelAnswer& answer);

Q_SIGNALS:
    void arrived();
    /// Nothing more comes from this client.
    void gone();

private:
    std::optional<Frame> nextFrame();
    void send(const Frame& frame);
    void hangUp();

    QLocalSocket* m_socket;
    QString m_topic;
    FrameReader m_reader;
    QTimer m_silence;
    bool m_initiated = false;
};

} // namespace quorvane
