#include "tests/support/TestDatabase.h"

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "sql/Schema.h"
#include "tests/tds/TdsServer.h"
#include "tests/tds/TransactSql.h"
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

/// Makes a database in a file; its tables are those of an engine.
void createFile(const QString& path, const QByteArray& tables) {
    const auto database = quorvane::sqlite::open(path, quorvane::sqlite::Access::Create, 1000);
    quorvane::sqlite::run(database.get(), "PRAGMA journal_mode = WAL");
    quorvane::sqlite::run(database.get(), tables);
}

QByteArray serverTables() {
    const QByteArray script = erpTables(SchemaEngine::SqlServer) + sessionTables(SchemaEngine::SqlServer);
    return tds::toEmbedded(QString::fromUtf8(script), {}).toUtf8();
}

struct PreparedTestServer {
    PreparedTestServer() { server.addLogin(u"prueba"_s, u"prueba"_s); }
    tds::TdsServer server;
};

} // namespace

tds::TdsServer& TestDatabase::testServer() {
    QCoreApplication::addLibraryPath(QStringLiteral(QUORVANE_MODULES));
    static PreparedTestServer prepared;
    return prepared.server;
}

PostgresCluster& TestDatabase::cluster() {
    QCoreApplication::addLibraryPath(QStringLiteral(QUORVANE_MODULES));
    static PreparedCluster prepared;
    return prepared.cluster;
}

TestDatabase::TestDatabase(TestEngine engine, Tables tables) : m_engine(engine) {
    const bool all = tables == Tables::All;
    const QString path = m_folder.filePath(u"erp.db"_s);
    switch (engine) {
    case TestEngine::Sqlite:
        m_name = path;
        createFile(path, all ? erpTables() + sessionTables() : QByteArray());
        break;
    case TestEngine::PostgreSql:
    case TestEngine::OdbcPostgreSql:
        m_name = cluster().freshName();
        runScript(cluster().connectString(u"postgres"_s),
                  u"CREATE DATABASE %1 TEMPLATE %2"_s.arg(m_name, all ? u"tablas"_s : u"template1"_s));
        break;
    case TestEngine::TestSqlServer:
        m_name = m_folder.path().section(u'/', -1);
        createFile(path, all ? serverTables() : QByteArray());
        testServer().addDatabase(m_name, path);
        break;
    }
}

TestDatabase::~TestDatabase() {
    if (m_engine == TestEngine::PostgreSql || m_engine == TestEngine::OdbcPostgreSql)
        runScript(cluster().connectString(u"postgres"_s), u"DROP DATABASE %1 WITH (FORCE)"_s.arg(m_name));
    else if (m_engine == TestEngine::TestSqlServer)
        testServer().removeDatabase(m_name);
}

QString TestDatabase::address() const {
    switch (m_engine) {
    case TestEngine::PostgreSql:
        return cluster().connectString(m_name);
    case TestEngine::OdbcPostgreSql:
        return cluster().connectString(m_name).replace(u"Driver=postgresql"_s, u"Driver=odbc-postgresql"_s);
    case TestEngine::TestSqlServer:
        return u"Driver=sqlserver;OdbcDriver=%1;Host=127.0.0.1;Port=%2;User=prueba;Password=prueba;Encrypt=N;"
               "Database=%3"_s.arg(QStringLiteral(FREETDS_DRIVER))
                   .arg(testServer().port())
                   .arg(m_name);
    default:
        return u"Driver=sqlite;Database="_s + m_name;
    }
}

QString TestDatabase::connectString(int timeout) const {
    return address() + u";Synchronous=normal;Timeout=%1"_s.arg(timeout);
}

void TestDatabase::run(const QString& script) const {
    runScript(connectString(), script);
}

} // namespace dalvora::test
