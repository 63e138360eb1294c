#include "tests/tds/TdsServer.h"

#include "tests/tds/BatchSession.h"
#include "tests/tds/SetStatement.h"
#include <algorithm>
#include <chrono>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace dalvora::test::tds {

namespace {

constexpr int look = 10; // ms between looks at whether the server ends
constexpr int usualPacket = 4096;

int agreedPacket(quint32 wanted) {
    if (wanted == 0)
        return usualPacket;
    return std::clamp(static_cast<int>(std::min<quint32>(wanted, largestPacket)), smallestPacket,
                      largestPacket);
}

void turnAway(ClientLink& link, const std::vector<ServerMessage>& messages) {
    Answer answer(link, usualPacket);
    for (const ServerMessage& message : messages)
        writeMessage(answer.tokens(), message);
    writeDone(answer.tokens(), DoneError, 0);
    answer.finish();
}

void welcome(ClientLink& link, const LoginRequest& login, int majorVersion) {
    Answer answer(link, usualPacket);
    ByteWriter& out = answer.tokens();
    const QString packet = QString::number(agreedPacket(login.packetSize));
    writeChange(out, Change::Database, login.database, QStringLiteral("master"));
    writeMessage(out,
                 {5701, 0, 2, QStringLiteral("Changed database context to '%1'.").arg(login.database), 1});
    writeCollation(out);
    writeChange(out, Change::Language, QStringLiteral("us_english"), {});
    writeMessage(out, {5703, 0, 1, QStringLiteral("Changed language setting to us_english."), 1});
    writeLoginAcknowledged(out, majorVersion);
    writeChange(out, Change::PacketSize, packet, QString::number(usualPacket));
    writeDone(out, DoneFinal, 0);
    answer.finish();
}

void acknowledgeAttention(Answer& answer) {
    writeDone(answer.tokens(), DoneAttention, 0);
    answer.finish();
}

void refuseProcedure(Answer& answer) {
    writeMessage(answer.tokens(),
                 serverMessage(50000, QStringLiteral("This test server runs batches, no procedures.")));
    writeDone(answer.tokens(), DoneError, 0);
    answer.finish();
}

} // namespace

TdsServer::TdsServer() {
    m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* any = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_listener, any, length) != 0 || ::listen(m_listener, 64) != 0 ||
        getsockname(m_listener, any, &length) != 0)
        qFatal("no test server");
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { listen(); });
}

TdsServer::~TdsServer() {
    m_ends = true;
    m_thread.join();
    for (Client& client : m_clients) {
        client.thread.join();
        close(client.socket);
    }
    close(m_listener);
}

void TdsServer::addLogin(const QString& user, const QString& password) {
    const std::lock_guard lock(m_mutex);
    m_passwords[user.toLower()] = password;
}

void TdsServer::addDatabase(const QString& name, const QString& path) {
    const std::lock_guard lock(m_mutex);
    m_files[name.toLower()] = path;
}

void TdsServer::closeDatabase(const QString& name) {
    const std::lock_guard lock(m_mutex);
    m_closed += name.toLower();
}

void TdsServer::removeDatabase(const QString& name) {
    std::unique_lock lock(m_mutex);
    const QString file = m_files.take(name.toLower());
    const auto holds = [&](const Client& client) { return client.file == file && !client.ended; };
    while (std::ranges::any_of(m_clients, holds)) {
        for (const Client& client : m_clients)
            if (holds(client))
                shutdown(client.socket, SHUT_RDWR);
        lock.unlock();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        lock.lock();
    }
}

void TdsServer::cutAll() {
    const std::lock_guard lock(m_mutex);
    for (const Client& client : m_clients)
        shutdown(client.socket, SHUT_RDWR);
}

int TdsServer::clients() {
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(
        std::ranges::count_if(m_clients, [](const Client& client) { return !client.ended; }));
}

QStringList TdsServer::takeStatements() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_statements, {});
}

void TdsServer::listen() {
    pollfd waiting{m_listener, POLLIN, 0};
    while (!m_ends) {
        if (poll(&waiting, 1, look) > 0)
            accept();
        forgetEnded();
    }
}

void TdsServer::accept() {
    const int socket = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0)
        return;
    if (m_faults.refusesConnections()) {
        close(socket);
        return;
    }
    const std::lock_guard lock(m_mutex);
    Client& client = m_clients.emplace_back();
    client.socket = socket;
    client.thread = std::thread([this, &client] { serve(client); });
}

void TdsServer::forgetEnded() {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_clients, [](Client& client) {
        if (!client.ended)
            return false;
        client.thread.join();
        close(client.socket);
        return true;
    });
}

void TdsServer::serve(Client& client) {
    ClientLink link(client.socket, m_ends);
    try {
        talk(client, link);
    } catch (const LinkClosed&) {
        // The client went, or was cut.
    } catch (const ProtocolError&) {
        // A server cuts the link of whoever does not speak its language.
    } catch (const quorvane::RunTimeError&) {
        // The database's file is gone.
    }
    shutdown(client.socket, SHUT_RDWR);
    client.ended = true;
}

void TdsServer::shakeHands(ClientLink& link) {
    const Message message = link.receive();
    if (message.type != MessageType::PreLogin)
        throw ProtocolError("no greeting");
    readPreLogin(message.payload);
    link.send(packet(MessageType::Answer, preLoginAnswer(m_majorVersion), true, 1));
}

QString TdsServer::signIn(ClientLink& link, const LoginRequest& login) {
    QString file;
    bool known = false;
    {
        const std::lock_guard lock(m_mutex);
        const auto password = m_passwords.constFind(login.user.toLower());
        known = password != m_passwords.constEnd() && *password == login.password;
        const QString database = login.database.toLower();
        file = m_closed.contains(database) ? QString() : m_files.value(database);
    }
    const ServerMessage refused = serverMessage(quorvane::ErrorLoginFailed, login.user);
    if (!known)
        turnAway(link, {refused});
    else if (file.isEmpty())
        turnAway(link, {serverMessage(quorvane::ErrorNoSuchDatabase, login.database), refused});
    else
        welcome(link, login, m_majorVersion);
    return known ? file : QString();
}

void TdsServer::talk(Client& client, ClientLink& link) {
    shakeHands(link);
    const Message message = link.receive();
    if (message.type != MessageType::Login)
        throw ProtocolError("no login");
    const LoginRequest login = readLogin(message.payload);
    const QString file = signIn(link, login);
    if (file.isEmpty())
        return;
    {
        const std::lock_guard lock(m_mutex);
        client.file = file;
    }
    SessionSettings settings;
    settings.login = login.user;
    settings.database = login.database;
    settings.majorVersion = m_majorVersion;
    settings.allowsSnapshots = m_allowsSnapshots;
    applyLanguage(login.language, settings);
    BatchSession session(settings, file, m_faults, [this](const QString& statement) {
        const std::lock_guard lock(m_mutex);
        m_statements += statement;
    });
    const int packetSize = agreedPacket(login.packetSize);
    for (;;) {
        const Message request = link.receive();
        Answer answer(link, packetSize);
        switch (request.type) {
        case MessageType::Batch:
            session.run(readBatch(request.payload), answer);
            break;
        case MessageType::TransactionManager:
            session.run(readTransaction(request.payload), answer);
            break;
        case MessageType::Attention:
            acknowledgeAttention(answer);
            break;
        case MessageType::RemoteProcedure:
            refuseProcedure(answer);
            break;
        default:
            throw ProtocolError("a message that nobody expects now");
        }
    }
}

} // namespace dalvora::test::tds
