#pragma once

#include <QString>
#include <atomic>
#include <list>
#include <mutex>
#include <optional>

namespace dalvora::test::tds {

/// What goes wrong, on a test's demand: it asks from its own thread, the clients' threads find it out.
class Faults {
public:
    enum class Moment {
        BeforeItRuns,  ///< the statement never takes place
        InItsRows,     ///< the client has some of the rows, not all
        AfterItHasRun, ///< what it did is done, and the client is not told
    };

    /// The next statement that holds these words fails with this error of the server, about this name.
    void failAt(const QString& words, int number, const QString& name = {});
    /// The link of the next client that sends a statement with these words is cut. A commit and a rollback
    /// hold COMMIT TRANSACTION and ROLLBACK TRANSACTION, in whatever way they are sent.
    void cutAt(const QString& words, Moment moment);
    /// While set, whoever connects is cut off at once.
    void refuseConnections(bool refuse) { m_refuse = refuse; }
    bool refusesConnections() const { return m_refuse; }

    /// The error of a statement, or where its link is cut; each is told once.
    struct Failure {
        int number = 0;
        QString name;
    };
    std::optional<Failure> takeFailure(const QString& statement);
    std::optional<Moment> takeCut(const QString& statement);

private:
    struct Planned {
        QString words;
        Failure failure;
        std::optional<Moment> cut;
    };
    std::optional<Planned> take(const QString& statement, bool cut);

    std::mutex m_mutex;
    std::list<Planned> m_planned;
    std::atomic<bool> m_refuse = false;
};

} // namespace dalvora::test::tds
