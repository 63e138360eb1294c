#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/ErpSession.h"
#include "tests/support/TestDatabase.h"
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace quorvane::test {

using dalvora::test::allEngines;
using dalvora::test::engineName;
using dalvora::test::TestDatabase;
using dalvora::test::TestEngine;

inline constexpr char16_t password[] = u"Clave correcta";

/// A folder with a profile and a database that holds the companies 001 and 002 and the users `ana` (RWXD),
/// `luis` (R---) and `sin` (no rights in VELTRANO), all with the same password. The embedded database is a
/// file in the folder, any other one stands on its server.
class SessionFolder {
public:
    explicit SessionFolder(TestEngine engine = TestEngine::Sqlite);
    ~SessionFolder();
    SessionFolder(const SessionFolder&) = delete;
    SessionFolder& operator=(const SessionFolder&) = delete;

    QString path() const { return m_folder.path(); }
    bool isFile() const { return !m_server; }
    TestEngine engine() const { return m_engine; }
    /// The file of the embedded database.
    QString database() const { return m_folder.filePath(QStringLiteral("quorvane.db")); }
    QString profileFile() const { return m_folder.filePath(QStringLiteral("quorvane.ini")); }
    /// `timeout`: how long a lock is waited for (ms).
    QString connectString(int timeout = 5000) const;
    /// Rewrites the profile so that the user signs in by himself, or with "" that a window asks.
    void setAutomatic(const QString& user);
    void writeProfile(const QByteArray& text) const;
    enum class Files { Read, Write };
    enum class Folder { Read, Write };
    /// What programs of other users may do with the database and with the folder.
    void letOthers(Files files, Folder folder) const;
    /// Runs a statement as another program would; ";" separates several.
    void execute(const QString& sql) const;
    /// The first column of the first row as text, "" for no row.
    QString value(const QString& sql) const { return rows(sql).value(0).section(u'|', 0, 0); }
    /// Rows of a query, values joined by "|".
    QStringList rows(const QString& sql) const;

private:
    void createFile() const;

    TestEngine m_engine;
    QTemporaryDir m_folder;
    std::unique_ptr<TestDatabase> m_server;
};

/// Keeps everybody else from writing users and audit entries, as another program's long save would.
class WriteLock {
public:
    explicit WriteLock(const SessionFolder& folder);
    ~WriteLock();
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;

private:
    Connection m_connection;
};

/// A person who gives prepared answers, one after the other, then gives up.
class PreparedPrompt final : public LoginPrompt {
public:
    bool ask(const LoginQuestion& question, const LoginAttempt& attempt) override;

    std::vector<LoginAnswer> answers;
    std::vector<LoginQuestion> questions;
    QStringList refusals;
};

/// Clocks that stand still until they are moved.
struct StoppedClock {
    QDateTime wall{QDate(2026, 3, 5), QTime(9, 30)};
    std::chrono::steady_clock::time_point steady{};

    ErpSession::Clock clock();
    void pass(int seconds);
};

/// Runs `work` and returns the error that left it; fails when none did.
template<class Work> RunTimeError errorOf(Work&& work) {
    try {
        work();
    } catch (const RunTimeError& error) {
        return error;
    }
    ADD_FAILURE() << "no error";
    return {0, {}};
}

} // namespace quorvane::test
