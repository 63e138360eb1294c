#pragma once

#include "tests/support/PostgresCluster.h"
#include <QString>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace dalvora::test {

namespace tds {
class TdsServer;
}

/// The engines that one suite runs on.
enum class TestEngine {
    Sqlite,
    PostgreSql,
    OdbcPostgreSql, ///< the same server through its ODBC driver
    TestSqlServer,  ///< the test server that speaks the protocol of SQL Server (tests/tds), through FreeTDS
};

#ifdef Q_OS_WIN
// The servers of the tests run on the other systems.
inline constexpr TestEngine allEngines[] = {TestEngine::Sqlite};
inline constexpr TestEngine catalogueEngines[] = {TestEngine::Sqlite};
inline constexpr TestEngine windowEngines[] = {TestEngine::Sqlite};
#else
inline constexpr TestEngine allEngines[] = {TestEngine::Sqlite, TestEngine::PostgreSql,
                                            TestEngine::OdbcPostgreSql, TestEngine::TestSqlServer};
/// For what asks the database about its own tables: the test server answers no such question.
inline constexpr TestEngine catalogueEngines[] = {TestEngine::Sqlite, TestEngine::PostgreSql,
                                                  TestEngine::OdbcPostgreSql};
/// For the tests of whole windows, which take their time: what a window does is sent to every engine by the
/// tests of the record below it.
inline constexpr TestEngine windowEngines[] = {TestEngine::Sqlite, TestEngine::PostgreSql};
#endif

/// Whether this system has the engine.
inline constexpr bool isHere(TestEngine engine) {
    return std::ranges::find(allEngines, engine) != std::ranges::end(allEngines);
}

/// For INSTANTIATE_TEST_SUITE_P: names a test by its engine.
inline std::string engineName(const testing::TestParamInfo<TestEngine>& info) {
    constexpr const char* names[] = {"Sqlite", "PostgreSql", "OdbcPostgreSql", "TestSqlServer"};
    return names[static_cast<int>(info.param)];
}

/// A database of the test's own: the ERP's and the session's tables without a row, or nothing at all. The
/// server of a test program starts with its first database and ends with the program.
class TestDatabase {
public:
    enum class Tables { All, None };
    explicit TestDatabase(TestEngine engine, Tables tables = Tables::All);
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    TestEngine engine() const { return m_engine; }
    /// `timeout`: how long a lock is waited for (ms).
    QString connectString(int timeout = 5000) const;
    /// Runs statements separated by ";" on a connection of their own.
    void run(const QString& script) const;
    /// Nobody can open it any more; who has it open goes on. False on a system that keeps a file that is
    /// open.
    bool closeToOthers() const;
    /// The test server answers the next statement that holds these words with an error.
    static void failOnce(const QString& words, int error);

    /// The PostgreSQL server that databases of this program live on.
    static PostgresCluster& cluster();
    /// The test server that other databases of this program live on.
    static tds::TdsServer& testServer();

private:
    TestEngine m_engine;
    QTemporaryDir m_folder;
    QString m_name;
};

} // namespace dalvora::test
