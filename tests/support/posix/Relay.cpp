#include "tests/support/Relay.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace dalvora::test {

namespace {

constexpr int look = 5; // ms between looks at what the test wants

QByteArray socketIn(const QString& folder) {
    return (folder + QStringLiteral("/.s.PGSQL.5432")).toLocal8Bit();
}

sockaddr_un addressOf(const QByteArray& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(),
                std::min<std::size_t>(path.size(), sizeof address.sun_path - 1));
    return address;
}

/// What has arrived; empty when the other end is gone.
QByteArray receive(int socket) {
    QByteArray data(65536, Qt::Uninitialized);
    data.resize(std::max<ssize_t>(0, recv(socket, data.data(), data.size(), 0)));
    return data;
}

bool sendAll(int socket, const QByteArray& data) {
    qsizetype sent = 0;
    while (sent < data.size()) {
        const ssize_t count = send(socket, data.constData() + sent, data.size() - sent, MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        sent += count;
    }
    return true;
}

} // namespace

Relay::Relay(const QString& host) : m_server(socketIn(host)) {
    m_listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = addressOf(socketIn(m_folder.path()));
    if (bind(m_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(m_listener, 16) != 0)
        qFatal("no relay");
    m_thread = std::thread([this] { run(); });
}

Relay::~Relay() {
    m_ends = true;
    m_thread.join();
    for (Link& link : m_links)
        cut(link);
    close(m_listener);
}

void Relay::cutAfter(const QByteArray& words) {
    const std::lock_guard lock(m_mutex);
    m_cutAfter = words;
}

void Relay::cutBefore(const QByteArray& words) {
    const std::lock_guard lock(m_mutex);
    m_cutBefore = words;
}

void Relay::cutInAnswer(const QByteArray& words) {
    const std::lock_guard lock(m_mutex);
    m_cutInAnswer = words;
}

int Relay::links() {
    const std::lock_guard lock(m_linksMutex);
    return static_cast<int>(m_links.size());
}

void Relay::replaceInAnswers(const QByteArray& words, const QByteArray& others) {
    const std::lock_guard lock(m_mutex);
    m_replacements.emplace_back(words, others);
}

std::vector<QByteArray> Relay::takeQuestions() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_questions, {});
}

void Relay::cutAll() {
    // The relay's own thread finds the ends and closes them; it may be in the middle of sending on one.
    const std::lock_guard lock(m_linksMutex);
    for (const Link& link : m_links) {
        shutdown(link.client, SHUT_RDWR);
        shutdown(link.server, SHUT_RDWR);
    }
}

void Relay::cut(Link& link) {
    const std::lock_guard lock(m_linksMutex);
    close(link.client);
    close(link.server);
    link.client = -1;
}

void Relay::accept() {
    Link link;
    link.client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    link.server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = addressOf(m_server);
    if (connect(link.server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        cut(link);
        return;
    }
    const std::lock_guard lock(m_linksMutex);
    m_links.push_back(link);
}

bool Relay::admits(Link& link, const QByteArray& question) {
    const std::lock_guard lock(m_mutex);
    m_questions.push_back(question);
    if (!m_cutBefore.isEmpty() && question.contains(m_cutBefore)) {
        m_cutBefore.clear();
        return false;
    }
    if (!m_cutAfter.isEmpty() && question.contains(m_cutAfter)) {
        link.doomed = true;
        m_cutAfter.clear();
    }
    return true;
}

bool Relay::admitsAnswer(const QByteArray& answer) {
    const std::lock_guard lock(m_mutex);
    if (m_cutInAnswer.isEmpty() || !answer.contains(m_cutInAnswer))
        return true;
    m_cutInAnswer.clear();
    return false;
}

QByteArray Relay::changed(QByteArray answer) {
    const std::lock_guard lock(m_mutex);
    for (const auto& [words, others] : m_replacements)
        answer.replace(words, others);
    return answer;
}

bool Relay::passQuestion(Link& link) {
    const QByteArray data = receive(link.client);
    if (data.isEmpty())
        return false;
    if (link.answered) {
        ++m_roundTrips;
        usleep(m_delay * 1000);
    }
    link.answered = false;
    return admits(link, data) && sendAll(link.server, data);
}

bool Relay::passAnswer(Link& link) {
    const QByteArray data = receive(link.server);
    link.answered = true;
    if (data.isEmpty() || link.doomed || !admitsAnswer(data))
        return false;
    link.waiting = changed(data);
    return sendWaiting(link);
}

bool Relay::sendWaiting(Link& link) {
    const ssize_t sent =
        send(link.client, link.waiting.constData(), link.waiting.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0)
        return errno == EAGAIN;
    link.waiting.remove(0, sent);
    return true;
}

void Relay::run() {
    while (!m_ends) {
        std::vector<pollfd> waiting{{m_listener, POLLIN, 0}};
        for (const Link& link : m_links) {
            const bool isFull = !link.waiting.isEmpty();
            waiting.push_back({link.client, static_cast<short>(isFull ? POLLIN | POLLOUT : POLLIN), 0});
            waiting.push_back({link.server, static_cast<short>(isFull ? 0 : POLLIN), 0});
        }
        if (poll(waiting.data(), waiting.size(), look) <= 0)
            continue;
        for (std::size_t i = 0; i < m_links.size(); ++i) {
            Link& link = m_links[i];
            const short client = waiting[2 * i + 1].revents;
            const bool lives = ((client & POLLOUT) == 0 || sendWaiting(link)) &&
                               ((client & ~POLLOUT) == 0 || passQuestion(link)) &&
                               (waiting[2 * i + 2].revents == 0 || passAnswer(link));
            if (!lives)
                cut(link);
        }
        {
            const std::lock_guard lock(m_linksMutex);
            std::erase_if(m_links, [](const Link& link) { return link.client < 0; });
        }
        if (waiting[0].revents != 0)
            accept();
    }
}

} // namespace dalvora::test
