#include "tests/support/TestDatabase.h"

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "sql/Schema.h"
#include "tests/support/ServerDatabases.h"
#include <QFile>

namespace dalvora::test {

using namespace Qt::StringLiterals;

void runScript(const QString& connectString, const QString& script) {
    quorvane::Connection connection;
    connection.open(connectString);
    for (const QString& statement : quorvane::statementsOf(script))
        connection.execute(statement);
}

void createFile(const QString& path, const QByteArray& tables) {
    const auto database = quorvane::sqlite::open(path, quorvane::sqlite::Access::Create, 1000);
    quorvane::sqlite::run(database.get(), "PRAGMA journal_mode = WAL");
    quorvane::sqlite::run(database.get(), tables);
}

TestDatabase::TestDatabase(TestEngine engine, Tables tables) : m_engine(engine) {
    const bool all = tables == Tables::All;
    const QString path = m_folder.filePath(u"erp.db"_s);
    if (engine != TestEngine::Sqlite) {
        m_name = createServerDatabase(engine, all, path);
        return;
    }
    m_name = path;
    createFile(path, all ? erpTables() + sessionTables() : QByteArray());
}

TestDatabase::~TestDatabase() {
    if (m_engine != TestEngine::Sqlite)
        dropServerDatabase(m_engine, m_name);
}

QString TestDatabase::connectString(int timeout) const {
    const QString address = m_engine == TestEngine::Sqlite ? u"Driver=sqlite;Database="_s + m_name
                                                           : serverAddress(m_engine, m_name);
    return address + u";Synchronous=normal;Timeout=%1"_s.arg(timeout);
}

void TestDatabase::run(const QString& script) const {
    runScript(connectString(), script);
}

bool TestDatabase::closeToOthers() const {
    if (m_engine == TestEngine::Sqlite)
        return QFile::remove(m_name);
    closeServerDatabase(m_engine, m_name);
    return true;
}

void TestDatabase::failOnce(const QString& words, int error) {
    failOnServer(words, error);
}

} // namespace dalvora::test
