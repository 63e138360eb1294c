#include "platform/dde/RequestServer.h"
#include "platform/dde/ChannelAddress.h"
#include "platform/dde/ServedClient.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QScopedValueRollback>

namespace quorvane {

namespace {

constexpr std::size_t mostClients = 32;

} // namespace

RequestServer::RequestServer(QString topic, Executor execute, QObject* parent)
    : QObject(parent)
    , m_topic(std::move(topic))
    , m_execute(std::move(execute))
    , m_address(channelAddress(m_topic))
    , m_lock(m_address) {}

RequestServer::~RequestServer() {
    RequestServer::close();
}

bool RequestServer::listen() {
    if (m_server)
        return true;
    if (!isChannelTopic(m_topic) || m_address.isEmpty() || !m_lock.acquire())
        return false;
    // Whoever left this file is dead: the lock is ours.
    QLocalServer::removeServer(m_address);
    auto server = std::make_unique<QLocalServer>();
    server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!server->listen(m_address)) {
        m_lock.release();
        return false;
    }
    m_server = std::move(server);
    connect(m_server.get(), &QLocalServer::newConnection, this, &RequestServer::acceptClients);
    return true;
}

void RequestServer::close() {
    m_server.reset();
    for (ServedClient* client : std::exchange(m_clients, {})) {
        client->disconnect(this);
        client->deleteLater();
    }
    m_lock.release();
}

void RequestServer::acceptClients() {
    while (m_server && m_server->hasPendingConnections()) {
        QLocalSocket* socket = m_server->nextPendingConnection();
        if (m_clients.size() >= mostClients) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        auto* client = new ServedClient(socket, m_topic, m_longestSilence, this);
        m_clients.push_back(client);
        connect(client, &ServedClient::arrived, this, &RequestServer::work);
        connect(client, &ServedClient::gone, this, [this, client] { forget(client); });
        work(); // what came before this was connected
    }
}

void RequestServer::forget(ServedClient* client) {
    std::erase(m_clients, client);
    client->deleteLater();
}

ChannelAnswer RequestServer::execute(const QString& command) {
    const QScopedValueRollback<bool> executing(m_executing, true);
    try {
        return m_execute(command);
    } catch (const RunTimeError& error) {
        return {false, error.description()};
    }
}

// One command a call, so that a client without end leaves the program's own events their turn.
void RequestServer::work() {
    if (m_executing)
        return;
    const std::vector<ServedClient*> clients = m_clients; // a client that is hung up on leaves the list
    for (const QPointer<ServedClient> client : clients) {
        const auto command = client->nextCommand();
        if (!command)
            continue;
        const ChannelAnswer answer = execute(*command);
        if (client)
            client->reply(answer);
        QMetaObject::invokeMethod(this, &RequestServer::work, Qt::QueuedConnection);
        return;
    }
}

} // namespace quorvane
