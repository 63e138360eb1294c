#pragma once

#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Engine.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/session/ErpSession.h"
#include "tests/support/TestDatabase.h"
#include <QTemporaryDir>
#include <functional>

namespace dalvora::test {

/// A company for many users: everyone has a code of his own (u0, u1, ...), all rights, and a profile in a
/// folder of his own with which he signs in by himself.
class LoadCompany {
public:
    /// `timeout`: how long a program waits for another one's lock (ms).
    LoadCompany(TestEngine engine, int users, int timeout);

    const TestDatabase& database() const { return m_database; }
    QString profileFolder(int user) const { return m_folder.filePath(QStringLiteral("u%1").arg(user)); }
    QString historyFile(int user) const { return profileFolder(user) + QStringLiteral("/history"); }

private:
    void writeProfile(int user, int timeout) const;

    TestDatabase m_database;
    QTemporaryDir m_folder;
};

/// What a program changes of its parts; each may be empty.
struct LoadParts {
    std::function<std::unique_ptr<quorvane::Engine>(std::unique_ptr<quorvane::Engine>)> engine;
    std::function<std::unique_ptr<quorvane::Session>(std::unique_ptr<quorvane::Session>)> session;
};

/// One user's program without its window: connection, session and record as start-up makes them. Errors of
/// signing in leave it.
class LoadProgram {
public:
    explicit LoadProgram(const QString& profileFolder, const LoadParts& parts = {});

    DBTable& table() { return *m_context.Table; }
    quorvane::Connection& connection() { return *m_context.Connection; }
    quorvane::Session& session() { return *m_context.Session; }
    const SessionContext& context() const { return m_context; }
    /// Audit entries that wait for a lock.
    std::size_t waitingAudits() const { return m_erp->WaitingAuditEntries(); }

    /// What the main form does when a code is entered and read.
    bool read(const QString& code);

private:
    quorvane::ErpSession* m_erp = nullptr; ///< the session itself, whatever stands around it
    SessionContext m_context;
};

/// How many products (P1..), documents (D1..), price lists (L1..) and salespeople (V1..) there are.
inline constexpr int codesOfAKind = 60;
inline constexpr int salespeople = 8;
/// Schemes that everyone has lines in (S1..); they are there from the beginning.
inline constexpr int sharedSchemes = 4;

} // namespace dalvora::test
