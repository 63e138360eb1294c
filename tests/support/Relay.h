#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace dalvora::test {

/// A link between a program and its server that can be slow, is counted, and breaks when it is told to: it
/// listens on a socket of its own and passes everything on.
class Relay {
public:
    /// `host` is the folder of the server's socket.
    explicit Relay(const QString& host);
    ~Relay();
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    /// The folder of this socket: what a connect string gives as its host.
    QString host() const { return m_folder.path(); }

    /// How long a question and its answer are under way, together (ms).
    void setDelay(int milliseconds) { m_delay = milliseconds; }
    /// How often the server was asked and answered, over all links.
    int roundTrips() const { return m_roundTrips; }
    /// The next link that sends these words is cut when the server has answered: the answer is lost.
    void cutAfter(const QByteArray& words);
    /// Cuts every link now.
    void cutAll() { m_cutAll = true; }

private:
    struct Link {
        int client = -1;
        int server = -1;
        bool answered = true;
        bool doomed = false;
    };
    void run();
    void accept();
    /// False when the link is to be cut.
    bool passQuestion(Link& link);
    bool passAnswer(Link& link);
    static void cut(Link& link);

    QTemporaryDir m_folder;
    QByteArray m_server;
    int m_listener = -1;
    std::vector<Link> m_links;
    std::mutex m_mutex;
    QByteArray m_cutAfter;
    std::atomic<int> m_delay = 0;
    std::atomic<int> m_roundTrips = 0;
    std::atomic<bool> m_cutAll = false;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace dalvora::test
