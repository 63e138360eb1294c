#pragma once

#include "platform/dde/ChannelLock.h"
#include "platform/dde/RequestAnswerer.h"
#include <QObject>
#include <QString>
#include <chrono>
#include <memory>
#include <vector>

class QLocalServer;

namespace quorvane {

class ServedClient;

/// The answering end over the local sockets of docs/request-channel.md. Clients are served side by side. One
/// that says anything but the protocol is hung up on, and one that is silent for too long as well.
class RequestServer final : public QObject, public RequestAnswerer {
    Q_OBJECT
public:
    /// Commands that arrive while the callback runs wait.
    RequestServer(QString topic, Executor execute, QObject* parent = nullptr);
    ~RequestServer() override;

    bool listen() override;
    void close() override;
    /// How long a client that connects from now on may say nothing; a minute when not set.
    void setLongestSilence(std::chrono::milliseconds silence) { m_longestSilence = silence; }
    /// Connected clients.
    std::size_t clients() const { return m_clients.size(); }

private:
    void acceptClients();
    void forget(ServedClient* client);
    void work();
    ChannelAnswer execute(const QString& command);

    QString m_topic;
    Executor m_execute;
    QString m_address;
    ChannelLock m_lock;
    std::unique_ptr<QLocalServer> m_server;
    std::vector<ServedClient*> m_clients; ///< children of this object
    std::chrono::milliseconds m_longestSilence = std::chrono::minutes(1);
    bool m_executing = false;
};

} // namespace quorvane
