#pragma once

#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Engine.h"
#include "platform/quorvane32/core/Session.h"
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

    /// What the main form does when a code is entered and read.
    bool read(const QString& code);

private:
    SessionContext m_context;
};

/// The texts of a scheme that the programs of these tests work on.
inline constexpr int codesOfAKind = 60; ///< products P1.., documents D1.. and price lists L1..

} // namespace dalvora::test
