#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <atomic>
#include <mutex>
#include <thread>
#include <utility>
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
    /// The questions since the last call, as the client sent them.
    std::vector<QByteArray> takeQuestions();
    /// The next link that sends these words is cut when the server has answered: the answer is lost.
    void cutAfter(const QByteArray& words);
    /// The next link that sends these words is cut before the server has them: the question is lost.
    void cutBefore(const QByteArray& words);
    /// The next link over which these words come is cut instead of passing them on: the rest is lost.
    void cutInAnswer(const QByteArray& words);
    /// How many links are open.
    int links();
    /// Cuts every link; when the call returns nothing more passes on them.
    void cutAll();
    /// Puts words of the same length into the place of others in every answer from now on.
    void replaceInAnswers(const QByteArray& words, const QByteArray& others);

private:
    struct Link {
        int client = -1;
        int server = -1;
        bool answered = true;
        bool doomed = false;
        QByteArray waiting; ///< what the client has not taken yet: meanwhile the server is not heard
    };
    void run();
    void accept();
    /// False when the link is to be cut.
    bool passQuestion(Link& link);
    bool passAnswer(Link& link);
    static bool sendWaiting(Link& link);
    /// False when the question is not to arrive.
    bool admits(Link& link, const QByteArray& question);
    bool admitsAnswer(const QByteArray& answer);
    QByteArray changed(QByteArray answer);
    void cut(Link& link);

    QTemporaryDir m_folder;
    QByteArray m_server;
    int m_listener = -1;
    std::mutex m_linksMutex; ///< for the list and what is open in it
    std::vector<Link> m_links;
    std::mutex m_mutex;
    QByteArray m_cutAfter;
    QByteArray m_cutBefore;
    QByteArray m_cutInAnswer;
    std::vector<std::pair<QByteArray, QByteArray>> m_replacements;
    std::vector<QByteArray> m_questions;
    std::atomic<int> m_delay = 0;
    std::atomic<int> m_roundTrips = 0;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace dalvora::test
