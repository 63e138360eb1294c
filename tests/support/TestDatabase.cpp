#include "tests/support/TestDatabase.h"

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "sql/Schema.h"
#include <QCoreApplication>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

void runScript(const QString& connectString, const QString& script) {
    quorvane::Connection connection;
    connection.open(connectString);
    for (const QString& statement : quorvane::statementsOf(script))
        connection.execute(statement);
}

/// A cluster with the database "tablas", which every other one with tables is a copy of.
struct PreparedCluster {
    PreparedCluster() {
        runScript(cluster.connectString(u"postgres"_s), u"CREATE DATABASE tablas"_s);
        runScript(
            cluster.connectString(u"tablas"_s),
            QString::fromUtf8(erpTables(SchemaEngine::PostgreSql) + sessionTables(SchemaEngine::PostgreSql)));
    }
    PostgresCluster cluster;
};

} // namespace

PostgresCluster& TestDatabase::cluster() {
    QCoreApplication::addLibraryPath(QStringLiteral(QUORVANE_MODULES));
    static PreparedCluster prepared;
    return prepared.cluster;
}

TestDatabase::TestDatabase(TestEngine engine, Tables tables) : m_engine(engine) {
    if (engine == TestEngine::Sqlite) {
        m_name = m_folder.filePath(u"erp.db"_s);
        const auto database = quorvane::sqlite::open(m_name, quorvane::sqlite::Access::Create, 1000);
        quorvane::sqlite::run(database.get(), "PRAGMA journal_mode = WAL");
        if (tables == Tables::All)
            quorvane::sqlite::run(database.get(), erpTables() + sessionTables());
        return;
    }
    m_name = cluster().freshName();
    runScript(cluster().connectString(u"postgres"_s),
              u"CREATE DATABASE %1 TEMPLATE %2"_s.arg(m_name,
                                                      tables == Tables::All ? u"tablas"_s : u"template1"_s));
}

TestDatabase::~TestDatabase() {
    if (m_engine != TestEngine::Sqlite)
        runScript(cluster().connectString(u"postgres"_s), u"DROP DATABASE %1 WITH (FORCE)"_s.arg(m_name));
}

QString TestDatabase::connectString(int timeout) const {
    QString base = u"Driver=sqlite;Database="_s + m_name;
    if (m_engine != TestEngine::Sqlite)
        base = cluster().connectString(m_name);
    if (m_engine == TestEngine::OdbcPostgreSql)
        base.replace(u"Driver=postgresql"_s, u"Driver=odbc-postgresql"_s);
    return base + u";Synchronous=normal;Timeout=%1"_s.arg(timeout);
}

void TestDatabase::run(const QString& script) const {
    runScript(connectString(), script);
}

} // namespace dalvora::test
