// Queries while the rows of another one are on their way from a server.
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/TestDatabase.h"
#include <QThread>
#include <gtest/gtest.h>

using namespace quorvane;
using namespace dalvora::test;
using namespace Qt::StringLiterals;
using quorvane::test::errorOf;

namespace {

constexpr int manyRows = 20000;

/// More than the sockets between a program and its server hold: the server has to wait for the reader.
QString manyRowsSql(int rows = manyRows) {
    return u"SELECT n, repeat('x', 100) t FROM generate_series(1, %1) n"_s.arg(rows);
}

class SecondLink : public testing::TestWithParam<TestEngine> {
protected:
    SecondLink() {
        database.run(u"CREATE TABLE t (a integer PRIMARY KEY); INSERT INTO t VALUES (1)"_s);
        connection.open(database.connectString(300));
        server.open(TestDatabase::cluster().connectString(u"postgres"_s));
    }

    static QString one(Connection& asked, const QString& sql) {
        const Recordset rows = asked.openRecordset(sql);
        return rows.eof() ? u"(none)"_s : rows.value(0).toText({});
    }
    QString one(const QString& sql) { return one(connection, sql); }
    QString databaseName() const {
        return ConnectString::parse(database.connectString()).value(u"database"_s);
    }
    /// What the server tells of the sessions of this database.
    QString ofSessions(const QString& what, const QString& condition = u"true"_s) {
        return one(server, u"SELECT %1 FROM pg_stat_activity WHERE datname = '%2' AND %3"_s.arg(
                               what, databaseName(), condition));
    }
    /// A session ends a moment after it was told to.
    void waitForSessions(int expected) {
        constexpr int step = 10;
        constexpr int longest = 10000;
        QString seen;
        for (int waited = 0; waited < longest; waited += step) {
            seen = ofSessions(u"count(*)"_s);
            if (seen == QString::number(expected))
                return;
            QThread::msleep(step);
        }
        ADD_FAILURE() << "sessions: " << seen.toStdString();
    }
    static void expectTheRest(Recordset& rows, int from, int last = manyRows) {
        int expected = from;
        for (; !rows.eof(); rows.moveNext(), ++expected)
            ASSERT_EQ(*rows.value(0).get<qint32>(), expected);
        EXPECT_EQ(expected, last + 1);
    }

    TestDatabase database{GetParam(), TestDatabase::Tables::None};
    Connection connection;
    Connection server;
};

} // namespace

TEST_P(SecondLink, AQueryBesideManyRowsGoesOverASecondLinkThatIsKept) {
    Recordset rows = connection.openRecordset(manyRowsSql());
    EXPECT_EQ(ofSessions(u"count(*)"_s), "1");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(one(u"SELECT a FROM t"_s), "1");
        EXPECT_EQ(ofSessions(u"count(*)"_s), "2");
    }
    if (GetParam() == TestEngine::PostgreSql) { // the ODBC driver itself takes all rows at once
        EXPECT_EQ(ofSessions(u"wait_event"_s, u"state = 'active'"_s), "ClientWrite")
            << "the server still holds the rows";
    }
    expectTheRest(rows, 1);
    rows.close();
    connection.close();
    waitForSessions(0);
}

TEST_P(SecondLink, FewRowsComeInInstead) {
    Recordset rows = connection.openRecordset(manyRowsSql(50));
    EXPECT_EQ(one(u"SELECT a FROM t"_s), "1");
    EXPECT_EQ(ofSessions(u"count(*)"_s), "1");
    expectTheRest(rows, 1, 50);
}

TEST_P(SecondLink, SeveralResultsAreReadByTurns) {
    Recordset first = connection.openRecordset(manyRowsSql());
    Recordset second = connection.openRecordset(manyRowsSql());
    Recordset third = connection.openRecordset(manyRowsSql());
    for (int i = 0; i < 1000; ++i) {
        first.moveNext();
        second.moveNext();
        third.moveNext();
    }
    Recordset fourth = connection.openRecordset(manyRowsSql(300));
    expectTheRest(second, 1001);
    expectTheRest(first, 1001);
    expectTheRest(fourth, 1, 300);
    expectTheRest(third, 1001);
    EXPECT_EQ(ofSessions(u"count(*)"_s), "2");
}

TEST_P(SecondLink, AWriteNeverWaitsForResultsOfItsOwnProgram) {
    Recordset first = connection.openRecordset(u"SELECT n FROM generate_series(1, 20000) n, t"_s);
    Recordset second = connection.openRecordset(u"SELECT n FROM generate_series(1, 1000) n, t"_s);
    first.moveNext();
    connection.execute(u"ALTER TABLE t ADD b integer"_s);
    expectTheRest(first, 2);
    expectTheRest(second, 1, 1000);
}

TEST_P(SecondLink, ATransactionSeesItsOwnChangesBesideManyRows) {
    Recordset before = connection.openRecordset(manyRowsSql());
    connection.beginTrans();
    Recordset within = connection.openRecordset(manyRowsSql());
    connection.execute(u"INSERT INTO t VALUES (2)"_s);
    Recordset after = connection.openRecordset(manyRowsSql());
    EXPECT_EQ(one(u"SELECT count(*) n FROM t"_s), "2");
    connection.commitTrans();
    EXPECT_EQ(ofSessions(u"count(*)"_s), "1");
    expectTheRest(before, 1);
    expectTheRest(within, 1);
    expectTheRest(after, 1);
}

TEST_P(SecondLink, AReadingOfOneStateKeepsToItsLink) {
    Connection other;
    other.open(database.connectString());
    connection.beginReading();
    Recordset rows = connection.openRecordset(manyRowsSql());
    other.execute(u"INSERT INTO t VALUES (2)"_s);
    EXPECT_EQ(one(u"SELECT count(*) n FROM t"_s), "1");
    connection.endReading();
    EXPECT_EQ(one(u"SELECT count(*) n FROM t"_s), "2");
    expectTheRest(rows, 1);
}

TEST_P(SecondLink, ItsErrorsAreToldAndTheRowsGoOn) {
    Recordset rows = connection.openRecordset(manyRowsSql());
    EXPECT_EQ(errorOf([&] { connection.openRecordset(u"SELECT nada FROM t"_s); }), ErrorNoSuchColumn);
    EXPECT_EQ(errorOf([&] { connection.openRecordset(u"SELECT * FROM nada"_s); }), ErrorNoSuchTable);
    EXPECT_EQ(one(u"SELECT a FROM t"_s), "1");
    expectTheRest(rows, 1);
}

TEST_P(SecondLink, ATableOfTheFirstLinkIsFound) {
    connection.execute(u"CREATE TEMPORARY TABLE propia (a integer)"_s);
    Recordset rows = connection.openRecordset(manyRowsSql());
    EXPECT_EQ(one(u"SELECT count(*) n FROM propia"_s), "0");
    expectTheRest(rows, 1);
}

TEST_P(SecondLink, OneThatIsLostIsReplaced) {
    Recordset rows = connection.openRecordset(manyRowsSql());
    const QString session = one(u"SELECT pg_backend_pid()"_s);
    EXPECT_EQ(one(server, u"SELECT pg_terminate_backend(%1)::int"_s.arg(session)), "1");
    waitForSessions(1);
    EXPECT_EQ(one(u"SELECT a FROM t"_s), "1");
    EXPECT_EQ(one(u"SELECT a FROM t"_s), "1");
    expectTheRest(rows, 1);
}

TEST_P(SecondLink, AProfileThatOnlyReadsCannotWriteThroughIt) {
    connection.execute(u"CREATE SEQUENCE s"_s);
    Connection reader;
    reader.open(database.connectString() + u";ReadOnly=S"_s);
    Recordset rows = reader.openRecordset(manyRowsSql());
    EXPECT_EQ(errorOf([&] { reader.openRecordset(u"SELECT nextval('s')"_s); }), ErrorPermissionDenied);
    expectTheRest(rows, 1);
}

TEST_P(SecondLink, WithoutOneTheRowsComeIn) {
    const QString role = u"uno_"_s + databaseName();
    const QString password = u"a;b}{c =d}e"_s;
    server.execute(u"CREATE ROLE %1 LOGIN CONNECTION LIMIT 1 PASSWORD '%2'"_s.arg(role, password));
    {
        auto options = ConnectString::parse(database.connectString());
        options.setValue(u"user"_s, role);
        options.setValue(u"password"_s, password);
        Connection single;
        single.open(options.toString());
        Recordset rows = single.openRecordset(manyRowsSql());
        EXPECT_EQ(one(single, u"SELECT 7"_s), "7");
        EXPECT_EQ(one(single, u"SELECT 8"_s), "8");
        expectTheRest(rows, 1);
        options.setValue(u"password"_s, u"otra"_s);
        try {
            Connection().open(options.toString());
            ADD_FAILURE() << "a wrong password";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), ErrorLoginFailed) << error.what();
            EXPECT_FALSE(error.description().contains(u"otra"_s)) << error.what();
        }
    }
    server.execute(u"DROP ROLE "_s + role);
}

TEST_P(SecondLink, ARowThatFailsSpoilsItsTransaction) {
    connection.beginTrans();
    connection.execute(u"INSERT INTO t VALUES (2)"_s);
    EXPECT_NE(errorOf([&] {
                  Recordset rows =
                      connection.openRecordset(u"SELECT 1/(n - 500) FROM generate_series(1, 1000) n"_s);
                  while (!rows.eof())
                      rows.moveNext();
              }),
              0);
    EXPECT_EQ(errorOf([&] { connection.execute(u"INSERT INTO t VALUES (3)"_s); }), ErrorTransactionFailed);
    EXPECT_EQ(errorOf([&] { connection.commitTrans(); }), ErrorTransactionFailed);
    connection.rollbackTrans();
    EXPECT_EQ(one(u"SELECT count(*) n FROM t"_s), "1");
}

INSTANTIATE_TEST_SUITE_P(Engines, SecondLink,
                         testing::Values(TestEngine::PostgreSql, TestEngine::OdbcPostgreSql), engineName);
