#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/FailEngine.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <thread>

using namespace quorvane;
using quorvane::test::errorOf;

namespace {

class SqliteEngineTest : public ::testing::Test {
protected:
    void SetUp() override {
        path = folder.filePath("erp.db");
        const auto database = sqlite::open(path, sqlite::Access::Create, 100);
        sqlite::run(
            database.get(),
            "CREATE TABLE t (Codigo TEXT COLLATE ERP_ES PRIMARY KEY, Valor DECIMAL(18,6), Medida REAL,"
            " Fecha DATE NOT NULL DEFAULT '1900-01-01', Veces INTEGER)");
        connection.open(connectString());
    }

    QString connectString(int timeout = 100) const {
        return QStringLiteral("Driver=sqlite;Database=%1;Timeout=%2").arg(path).arg(timeout);
    }

    QTemporaryDir folder;
    QString path;
    Connection connection;
};

} // namespace

TEST_F(SqliteEngineTest, NulAndEmojiSurviveWritingAndSearching) {
    const QString odd = u"a"_qs + QChar(u'\0') + u"b😀'"_qs;
    QString literal = odd;
    literal.replace("'", "''");
    connection.execute(QStringLiteral("INSERT INTO t (Codigo) VALUES ('%1')").arg(literal));
    Recordset rows =
        connection.openRecordset(QStringLiteral("SELECT Codigo FROM t WHERE Codigo = '%1'").arg(literal));
    ASSERT_FALSE(rows.eof());
    EXPECT_EQ(rows.value(0).toText(RegionalSettings()), odd);
}

TEST_F(SqliteEngineTest, AnotherWritersLockIsWaitedForThenReported) {
    Connection other;
    other.open(connectString());
    other.beginTrans();
    EXPECT_EQ(errorOf([&] { connection.beginTrans(); }), ErrorLockTimeout);
    EXPECT_FALSE(connection.inTransaction());
    Connection patient;
    patient.open(connectString(10000));
    std::thread writer([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        other.commitTrans();
    });
    EXPECT_EQ(errorOf([&] { patient.beginTrans(); }), 0);
    writer.join();
    patient.commitTrans();
}

TEST_F(SqliteEngineTest, FilesThatAreNoDatabaseAreTold) {
    Connection other;
    EXPECT_EQ(errorOf([&] { other.open("Driver=sqlite;Database=" + folder.filePath("missing.db")); }),
              ErrorFileNotFound);
    const QString rubbish = folder.filePath("rubbish.db");
    QFile file(rubbish);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    EXPECT_EQ(errorOf([&] { other.open("Driver=sqlite;Database=" + rubbish); }), ErrorDatabaseFormat);
    EXPECT_EQ(errorOf([&] { other.open("Driver=nada"); }), ErrorCannotCreateObject);
    EXPECT_EQ(errorOf([&] { other.execute("DELETE FROM t"); }), ErrorObjectClosed);
}

TEST_F(SqliteEngineTest, CompiledCommandSurvivesAChangeOfTheTable) {
    connection.execute("INSERT INTO t (Codigo) VALUES ('a')");
    connection.execute("ALTER TABLE t ADD COLUMN Nuevo TEXT");
    EXPECT_EQ(connection.execute("INSERT INTO t (Codigo) VALUES ('b')"), 1);
}

TEST_F(SqliteEngineTest, ATransactionThatCannotBeRolledBackFreesItsLockAtOnce) {
    for (const bool lostOnStatement : {true, false}) {
        dalvora::test::FailPlan plan;
        plan.atStatement = lostOnStatement ? 3 : 0;
        plan.onRollback = true;
        plan.error = RunTimeError(ErrorConnectionLost, "perdida");
        Connection failing([&](const QString& text) {
            return std::make_unique<dalvora::test::FailEngine>(openEngine(text), plan);
        });
        failing.open(connectString());
        failing.beginTrans();
        failing.execute("INSERT INTO t (Codigo) VALUES ('a'), ('b')");
        const Recordset rows = failing.openRecordset("SELECT Codigo FROM t"); // keeps the file open
        EXPECT_EQ(errorOf([&] { failing.execute("DELETE FROM t"); }),
                  lostOnStatement ? ErrorConnectionLost : 0);
        failing.rollbackTrans();
        EXPECT_EQ(errorOf([&] { connection.beginTrans(); }), 0);
        EXPECT_TRUE(connection.openRecordset("SELECT 1 FROM t").eof());
        connection.rollbackTrans();
    }
}

TEST_F(SqliteEngineTest, AnUnfilledParameterIsAnErrorNeverWrongData) {
    connection.execute("INSERT INTO t (Codigo, Veces) VALUES ('a', 1)");
    for (const char* command :
         {"UPDATE t SET Codigo = ?, Veces = 2", "UPDATE t SET Codigo = $Codigo$, Veces = 2",
          "INSERT INTO t (Codigo, Valor) VALUES ('b', @Valor)", "DELETE FROM t WHERE Veces = :veces",
          "WITH x AS (SELECT 1) DELETE FROM t WHERE Codigo <> ?"})
        EXPECT_EQ(errorOf([&] { connection.execute(command); }), ErrorRefusedStatement) << command;
    EXPECT_NE(errorOf([&] { connection.execute("UPDATE t SET Codigo = ?1"); }), 0);
    for (const char* query : {"SELECT 1 WHERE 1 = $x$ or 1 = 1", "SELECT ?", "SELECT ?, 'a'"})
        EXPECT_EQ(errorOf([&] { connection.openRecordset(query); }), ErrorRefusedStatement) << query;
    EXPECT_EQ(connection.openRecordset("SELECT Codigo FROM t WHERE Veces = 1").value(0).toText({}), "a");
    EXPECT_EQ(errorOf([&] { connection.execute("UPDATE t SET Codigo = $Codigo$"); }), ErrorRefusedStatement);
    EXPECT_TRUE(connection.errors().back().text.contains("$Codigo$"))
        << connection.errors().back().text.toStdString();
}

TEST_F(SqliteEngineTest, AShapeAlreadyCompiledRefusesAnUnfilledParameterToo) {
    EXPECT_EQ(connection.execute("INSERT INTO t (Codigo, Veces) VALUES ('a', 1)"), 1);
    EXPECT_EQ(errorOf([&] { connection.execute("INSERT INTO t (Codigo, Veces) VALUES (?, 2)"); }),
              ErrorRefusedStatement);
    EXPECT_EQ(connection.execute("INSERT INTO t (Codigo, Veces) VALUES ('b', 2)"), 1);
}

TEST_F(SqliteEngineTest, ATimeOfDayCountsForwardInItsDay) {
    connection.execute("CREATE TABLE h (Momento DATETIME)");
    sqlite::run(
        sqlite::open(path, sqlite::Access::ReadWrite, 100).get(),
        "INSERT INTO h VALUES ('1899-12-29 18:00:00'), ('2006-03-05 06:00:00'), ('2006-03-05 99:00:00')");
    Recordset rows = connection.openRecordset("SELECT Momento FROM h");
    EXPECT_EQ(rows.value(0).toNumber({}), -1.75);
    EXPECT_EQ(rows.value(0).toText({}), "29/12/1899");
    rows.moveNext();
    EXPECT_EQ(rows.value(0).toNumber({}), 38781.25);
    rows.moveNext();
    EXPECT_EQ(rows.value(0).kind(), Kind::String) << "no time of day";
}

TEST_F(SqliteEngineTest, EveryColumnThatReadsAsADateTakesDatesOfTheServer) {
    connection.execute("CREATE TABLE h (Momento TIMESTAMP, Alta SMALLDATETIME)");
    connection.open(connectString()); // the columns' kinds are read when a database is opened
    connection.execute("INSERT INTO h (Momento, Alta) VALUES ('05/03/2006', '06/03/2006')");
    Recordset rows = connection.openRecordset("SELECT Momento, Alta FROM h WHERE Momento = '05/03/2006'");
    ASSERT_FALSE(rows.eof());
    EXPECT_EQ(rows.value(0).kind(), Kind::Date);
    EXPECT_EQ(rows.value(1).kind(), Kind::Date);
}
