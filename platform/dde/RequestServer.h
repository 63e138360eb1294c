#pragma once

#include "platform/dde/ChannelLock.h"
#include <QObject>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

class QLocalServer;

namespace quorvane {

class ServedClient;

/// What a program answers to a command.
struct ChannelAnswer {
    bool accepted = false;
    /// Why it was refused, in Spanish; may be empty.
    QString reason;
};

/// The answering end of a request channel: answers one topic of this user, on this machine only, and hands
/// each command to a callback. Clients are served side by side, commands one after another. A client that
/// says anything but the protocol is hung up on, and one that is silent for too long as well.
class RequestServer : public QObject {
    Q_OBJECT
public:
    using Executor = std::function<ChannelAnswer(const QString& command)>;

    /// The topic is "application|topic". The callback should answer at once: the client waits, at most for
    /// its time-out. A RunTimeError refuses the command with its description. Commands that arrive while it
    /// runs wait, even if it lets events run. It must not destroy the server.
    RequestServer(QString topic, Executor execute, QObject* parent = nullptr);
    ~RequestServer() override;

    /// Begins to answer. False when a living process answers the topic already, when it is no topic, or when
    /// no socket can be made.
    bool listen();
    void close();
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
