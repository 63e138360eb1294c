#include "tests/support/ServerDatabases.h"

#include "platform/quorvane32/core/Connection.h"
#include "sql/Schema.h"
#include "tests/tds/TdsServer.h"
#include "tests/tds/TransactSql.h"
#include <QCoreApplication>
#include <QFileInfo>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

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

QByteArray serverTables() {
    const QByteArray script = erpTables(SchemaEngine::SqlServer) + sessionTables(SchemaEngine::SqlServer);
    return tds::toEmbedded(QString::fromUtf8(script), {}).toUtf8();
}

struct PreparedTestServer {
    PreparedTestServer() { server.addLogin(u"prueba"_s, u"prueba"_s); }
    tds::TdsServer server;
};

void administer(const QString& statement) {
    runScript(TestDatabase::cluster().connectString(u"postgres"_s), statement);
}

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

QString createServerDatabase(TestEngine engine, bool tables, const QString& file) {
    if (engine == TestEngine::TestSqlServer) {
        QString name = QFileInfo(file).path().section(u'/', -1);
        createFile(file, tables ? serverTables() : QByteArray());
        TestDatabase::testServer().addDatabase(name, file);
        return name;
    }
    QString name = TestDatabase::cluster().freshName();
    administer(u"CREATE DATABASE %1 TEMPLATE %2"_s.arg(name, tables ? u"tablas"_s : u"template1"_s));
    return name;
}

void dropServerDatabase(TestEngine engine, const QString& name) {
    if (engine == TestEngine::TestSqlServer)
        TestDatabase::testServer().removeDatabase(name);
    else
        administer(u"DROP DATABASE %1 WITH (FORCE)"_s.arg(name));
}

void closeServerDatabase(TestEngine engine, const QString& name) {
    if (engine == TestEngine::TestSqlServer)
        TestDatabase::testServer().closeDatabase(name);
    else
        administer(u"ALTER DATABASE %1 ALLOW_CONNECTIONS false"_s.arg(name));
}

QString serverAddress(TestEngine engine, const QString& name) {
    if (engine == TestEngine::TestSqlServer)
        return u"Driver=sqlserver;OdbcDriver=%1;Host=127.0.0.1;Port=%2;User=prueba;Password=prueba;Encrypt=N;"
               "Database=%3"_s.arg(QStringLiteral(FREETDS_DRIVER))
                   .arg(TestDatabase::testServer().port())
                   .arg(name);
    const QString address = TestDatabase::cluster().connectString(name);
    return engine == TestEngine::OdbcPostgreSql
               ? QString(address).replace(u"Driver=postgresql"_s, u"Driver=odbc-postgresql"_s)
               : address;
}

void failOnServer(const QString& words, int error) {
    TestDatabase::testServer().faults().failAt(words, error);
}

} // namespace dalvora::test
