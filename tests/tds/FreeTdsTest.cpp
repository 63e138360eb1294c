// The test server as Qt's ODBC plug-in meets it through FreeTDS' driver.
#include "tests/tds/FreeTdsFixture.h"
#include <QDateTime>

using namespace dalvora::test::tds;

namespace {

class FreeTds : public FreeTdsFixture {
protected:
    FreeTds() { opened = client.open(); }
    void SetUp() override {
        ASSERT_TRUE(opened) << client.database().lastError().text().toStdString();
        server.takeStatements();
        client.run(u"SET DATEFORMAT dmy"_s);
    }

    Client client{options()};
    bool opened = false;
};

class FreeTdsLogin : public FreeTdsFixture {
protected:
    /// The error numbers that a refused client is told; empty when it got in.
    QString refusal(const QString& options) {
        Client client(options);
        return client.open() ? QString() : client.database().lastError().nativeErrorCode();
    }
};

} // namespace

TEST_F(FreeTds, SignsInAndAsks) {
    EXPECT_EQ(client.one(u"SELECT 1 + 1"_s).toInt(), 2);
    EXPECT_EQ(client.one(u"SELECT DB_NAME()"_s).toString(), u"empresa"_s);
    EXPECT_EQ(client.one(u"SELECT SERVERPROPERTY('ProductMajorVersion')"_s).toString(), u"15"_s);
    EXPECT_TRUE(client.one(u"SELECT @@VERSION"_s).toString().contains(u"15.0"_s));
    EXPECT_EQ(server.clients(), 1);
    EXPECT_EQ(server.takeStatements().size(), 5);
}

TEST_F(FreeTds, ColumnsComeInTheirTypes) {
    EXPECT_EQ(
        client
            .run(u"INSERT INTO t VALUES ('año €', -1234567.891, 0.1, '05/03/1753', '1899-12-31 18:30:15', "
                 "-7, 9000000000, 1, N'Ωλ', N'ñ€Ω')"_s)
            .numRowsAffected(),
        1);
    QSqlQuery row = client.run(u"SELECT * FROM t"_s);
    ASSERT_TRUE(row.next());
    EXPECT_EQ(row.value(u"Codigo"_s).toString(), u"año €"_s);
    EXPECT_EQ(row.value(u"Valor"_s).toString().toDouble(), -1234567.891);
    EXPECT_EQ(row.value(u"Medida"_s).toDouble(), 0.1);
    EXPECT_EQ(row.value(u"Fecha"_s).toDate(), QDate(1753, 3, 5));
    EXPECT_EQ(row.value(u"Momento"_s).toDateTime(), QDateTime(QDate(1899, 12, 31), QTime(18, 30, 15)));
    EXPECT_EQ(row.value(u"Veces"_s).toInt(), -7);
    EXPECT_EQ(row.value(u"Muchas"_s).toLongLong(), 9000000000);
    EXPECT_TRUE(row.value(u"Marca"_s).toBool());
    EXPECT_EQ(row.value(u"Ancho"_s).toString(), u"Ωλ"_s);
    EXPECT_EQ(row.value(u"Largo"_s).toString(), u"ñ€Ω"_s);
    EXPECT_FALSE(row.next());
}

TEST_F(FreeTds, NullsAreNullInEveryType) {
    client.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    client.run(u"INSERT INTO t VALUES ('b', NULL, 1, '01/01/2006', '2006-01-01', NULL, 1, 1, NULL, 'x')"_s);
    QSqlQuery row = client.run(u"SELECT * FROM t ORDER BY Codigo"_s);
    ASSERT_TRUE(row.next());
    for (int i = 1; i < 10; ++i)
        EXPECT_TRUE(row.isNull(i)) << i;
    ASSERT_TRUE(row.next());
    for (const int i : {1, 5, 8})
        EXPECT_TRUE(row.isNull(i)) << i;
    EXPECT_EQ(row.value(9).toString(), u"x"_s);
}

TEST_F(FreeTds, WhatTheCodePageDoesNotHaveIsLostWithoutAnN) {
    client.run(u"INSERT INTO t (Codigo, Ancho) VALUES ('a', 'Ω€')"_s);
    EXPECT_EQ(client.one(u"SELECT Ancho FROM t"_s).toString(), u"?€"_s);
}

TEST_F(FreeTds, TheOrderOfDatesIsTheSessions) {
    client.run(u"INSERT INTO t (Codigo, Fecha) VALUES ('a', '05/03/2006')"_s);
    EXPECT_EQ(client.one(u"SELECT Fecha FROM t"_s).toDate(), QDate(2006, 3, 5));
    Client other(options());
    ASSERT_TRUE(other.open());
    other.run(u"UPDATE t SET Fecha = '05/03/2006'"_s);
    EXPECT_EQ(client.one(u"SELECT Fecha FROM t"_s).toDate(), QDate(2006, 5, 3)) << "month first";
    EXPECT_EQ(other.errorOf(u"UPDATE t SET Fecha = '31/03/2006'"_s), 241);
}

TEST_F(FreeTds, CountsTheRowsOfAChange) {
    client.run(u"INSERT INTO t (Codigo) VALUES ('a'), ('b'), ('c')"_s);
    EXPECT_EQ(client.run(u"UPDATE t SET Veces = 1 WHERE Codigo <> 'b'"_s).numRowsAffected(), 2);
    EXPECT_EQ(client.run(u"UPDATE t SET Veces = 1 WHERE Codigo = 'z'"_s).numRowsAffected(), 0);
    EXPECT_EQ(client.run(u"DELETE FROM t"_s).numRowsAffected(), 3);
}

TEST_F(FreeTds, ErrorsCarryTheServersNumbers) {
    client.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    EXPECT_EQ(client.errorsOf(u"INSERT INTO t (Codigo) VALUES ('A')"_s), (QList<int>{2627, 3621}));
    EXPECT_EQ(client.errorOf(u"SELECT * FROM nada"_s), 208);
    EXPECT_EQ(client.errorOf(u"SELECT nada FROM t"_s), 207);
    EXPECT_EQ(client.errorOf(u"SELEC 1"_s), 102);
    EXPECT_EQ(client.errorOf(u"SET NADA ON"_s), 195);
    EXPECT_EQ(client.errorOf(u"EXEC nada"_s), 2812);
    EXPECT_EQ(client.errorOf(u"SELECT 1"_s), 0) << "the next one works";
    for (const int number : {2601, 1205, 1222, 229}) {
        server.faults().failAt(u"Veces = 9"_s, number, u"t"_s);
        EXPECT_EQ(client.errorOf(u"UPDATE t SET Veces = 9"_s), number);
    }
}

TEST_F(FreeTds, TransactionsHoldWhateverWayTheyAreAskedFor) {
    QSqlDatabase& database = client.database();
    Client other(options());
    ASSERT_TRUE(other.open());
    ASSERT_TRUE(database.transaction());
    client.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    EXPECT_EQ(other.one(u"SELECT count(*) FROM t"_s).toInt(), 0);
    ASSERT_TRUE(database.rollback());
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), 0);
    ASSERT_TRUE(database.transaction());
    client.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    ASSERT_TRUE(database.commit()) << database.lastError().text().toStdString();
    EXPECT_EQ(other.one(u"SELECT count(*) FROM t"_s).toInt(), 1);

    client.run(u"BEGIN TRANSACTION"_s);
    EXPECT_EQ(client.one(u"SELECT @@TRANCOUNT"_s).toInt(), 1);
    client.run(u"DELETE FROM t"_s);
    client.run(u"ROLLBACK TRANSACTION"_s);
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), 1);
    client.run(u"BEGIN TRAN; DELETE FROM t; COMMIT"_s);
    EXPECT_EQ(other.one(u"SELECT count(*) FROM t"_s).toInt(), 0);
    EXPECT_EQ(client.errorOf(u"COMMIT"_s), 3902);
}

TEST_F(FreeTds, ASnapshotSeesOneState) {
    Client other(options());
    ASSERT_TRUE(other.open());
    client.run(u"SET TRANSACTION ISOLATION LEVEL SNAPSHOT; BEGIN TRANSACTION"_s);
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), 0);
    other.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), 0);
    client.run(u"COMMIT"_s);
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), 1);
    server.allowSnapshots(false);
    Client third(options());
    ASSERT_TRUE(third.open());
    EXPECT_EQ(third.one(u"SELECT snapshot_isolation_state FROM sys.databases"_s).toInt(), 0);
    third.run(u"SET TRANSACTION ISOLATION LEVEL SNAPSHOT; BEGIN TRANSACTION"_s);
    EXPECT_EQ(third.errorOf(u"SELECT count(*) FROM t"_s), 3952);
}

TEST_F(FreeTds, ALockIsWaitedForAsLongAsTheSessionSays) {
    Client other(options());
    ASSERT_TRUE(other.open());
    client.run(u"BEGIN TRANSACTION"_s);
    client.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    other.run(u"SET LOCK_TIMEOUT 100"_s);
    EXPECT_EQ(other.errorOf(u"INSERT INTO t (Codigo) VALUES ('b')"_s), 1222);
    client.run(u"COMMIT"_s);
    EXPECT_EQ(other.errorOf(u"INSERT INTO t (Codigo) VALUES ('b')"_s), 0);
}

TEST_F(FreeTds, ADeadlocksVictimIsRolledBack) {
    client.run(u"BEGIN TRANSACTION"_s);
    client.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    server.faults().failAt(u"'b'"_s, 1205);
    EXPECT_EQ(client.errorOf(u"INSERT INTO t (Codigo) VALUES ('b')"_s), 1205);
    EXPECT_EQ(client.one(u"SELECT @@TRANCOUNT"_s).toInt(), 0);
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), 0);
}

TEST_F(FreeTds, AResultOfManyPacketsArrivesWholeOrIsGivenUp) {
    const QString text(200, u'ñ');
    QString rows;
    for (int i = 0; i < 3000; ++i)
        rows += u"%1('%2', '%3')"_s.arg(i > 0 ? u","_s : QString()).arg(i).arg(text);
    EXPECT_EQ(client.run(u"INSERT INTO t (Codigo, Largo) VALUES "_s + rows).numRowsAffected(), 3000);
    int count = 0;
    QSqlQuery row = client.run(u"SELECT Codigo, Largo FROM t"_s);
    while (row.next())
        count += textOf(row, 1) == text ? 1 : 0;
    EXPECT_EQ(count, 3000);

    QSqlQuery left = client.run(u"SELECT a.Codigo, b.Largo FROM t a, t b"_s);
    ASSERT_TRUE(left.next());
    left.finish();
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), 3000)
        << "nine million rows were not waited for";
}

TEST_F(FreeTds, TextsOfAnyLengthArriveWhole) {
    for (const int length : {20, 300, 1023, 1024, 9000}) {
        const QString text = QString(length - 1, u'ñ') + u"Ω"_s;
        client.run(u"DELETE FROM t"_s);
        client.run(u"INSERT INTO t (Codigo, Largo) VALUES (N'%1', N'%2')"_s.arg(QString(20, u'€'), text));
        QSqlQuery row = client.run(u"SELECT Codigo, Largo, Largo || '' FROM t"_s);
        ASSERT_TRUE(row.next());
        EXPECT_EQ(textOf(row, 0), QString(20, u'€'));
        EXPECT_EQ(textOf(row, 1), text);
        EXPECT_EQ(textOf(row, 2), text);
    }
}

TEST_F(FreeTds, ACutLinkIsAnErrorAtEveryMoment) {
    using Moment = Faults::Moment;
    client.run(u"INSERT INTO t (Codigo) VALUES ('a'), ('b'), ('c')"_s);
    for (const Moment moment : {Moment::BeforeItRuns, Moment::AfterItHasRun}) {
        Client doomed(options());
        ASSERT_TRUE(doomed.open());
        server.faults().cutAt(u"Veces = "_s, moment);
        EXPECT_TRUE(
            doomed.run(u"UPDATE t SET Veces = %1"_s.arg(static_cast<int>(moment))).lastError().isValid());
        EXPECT_TRUE(doomed.run(u"SELECT 1"_s).lastError().isValid());
    }
    EXPECT_EQ(client.one(u"SELECT Veces FROM t"_s).toInt(), static_cast<int>(Moment::AfterItHasRun));
    Client reader(options());
    ASSERT_TRUE(reader.open());
    server.faults().cutAt(u"ORDER BY"_s, Moment::InItsRows);
    QSqlQuery row = reader.run(u"SELECT * FROM t ORDER BY Codigo"_s);
    int rows = 0;
    while (row.next())
        ++rows;
    EXPECT_LT(rows, 3);
    EXPECT_TRUE(row.lastError().isValid());
}

TEST_F(FreeTds, ACommitWhoseAnswerIsLostHasTakenPlace) {
    Client doomed(options());
    ASSERT_TRUE(doomed.open());
    ASSERT_TRUE(doomed.database().transaction());
    doomed.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    server.faults().cutAt(u"COMMIT TRANSACTION"_s, Faults::Moment::AfterItHasRun);
    EXPECT_FALSE(doomed.database().commit());
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), 1);
}

TEST_F(FreeTds, WhatAGoneClientHasNotCommittedIsUndone) {
    {
        Client doomed(options());
        ASSERT_TRUE(doomed.open());
        doomed.run(u"BEGIN TRANSACTION"_s);
        doomed.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
        server.cutAll();
    }
    Client next(options());
    ASSERT_TRUE(next.open());
    EXPECT_EQ(next.errorOf(u"INSERT INTO t (Codigo) VALUES ('a')"_s), 0) << "no lock is left";
}

TEST_F(FreeTdsLogin, IsRefusedWithTheServersReason) {
    EXPECT_EQ(refusal(options()), QString());
    EXPECT_TRUE(refusal(options(u"ana"_s, u"falsa"_s)).contains(u"18456"_s));
    EXPECT_TRUE(refusal(options(u"otra"_s)).contains(u"18456"_s));
    const QString missing = refusal(options(u"ana"_s, u"clave ñ€"_s, u"otra"_s));
    EXPECT_TRUE(missing.contains(u"4060"_s)) << missing.toStdString();
    server.faults().refuseConnections(true);
    EXPECT_NE(refusal(options()), QString());
    server.faults().refuseConnections(false);
    EXPECT_EQ(refusal(options()), QString());
}
