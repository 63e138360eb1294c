#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/TestDatabase.h"
#include <gtest/gtest.h>

using namespace quorvane;
using namespace dalvora::test;
using quorvane::test::errorOf;

namespace {

/// What every engine does alike.
class EngineTest : public testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override {
        struct Types {
            const char16_t* text;
            const char16_t* number;
        };
        constexpr Types postgres{u"citext", u"double precision"};
        constexpr Types types[] = {{u"TEXT COLLATE ERP_ES", u"REAL"},
                                   postgres,
                                   postgres,
                                   {u"varchar(50) COLLATE Modern_Spanish_CI_AS", u"float"}};
        const Types& own = types[static_cast<int>(GetParam())];
        database.run(QStringLiteral("CREATE TABLE t (Codigo %1 PRIMARY KEY, Valor NUMERIC(18,6), "
                                    "Medida %2, Fecha DATE NOT NULL DEFAULT '1900-01-01', Veces INTEGER)")
                         .arg(QString::fromUtf16(own.text), QString::fromUtf16(own.number)));
        connection.open(database.connectString(100));
    }

    QString one(const QString& sql) {
        const Recordset rows = connection.openRecordset(sql);
        return rows.eof() ? QStringLiteral("(none)") : rows.value(0).toText({});
    }

    TestDatabase database{GetParam()};
    Connection connection;
};

} // namespace

TEST_P(EngineTest, ValuesComeInTheKindsOfTheirColumns) {
    connection.execute("INSERT INTO t VALUES ('a', 2.5, 2.5, '05/03/2006', 7)");
    connection.execute("INSERT INTO t (Codigo) VALUES ('b')");
    Recordset rows = connection.openRecordset("SELECT * FROM t ORDER BY Codigo");
    ASSERT_FALSE(rows.eof());
    EXPECT_EQ(rows.value(u"codigo").kind(), Kind::String);
    EXPECT_EQ(rows.value(u"VALOR").kind(), Kind::Decimal);
    EXPECT_EQ(rows.value(u"VALOR").toText({}), "2,5");
    EXPECT_EQ(rows.value(u"Medida").kind(), Kind::Double);
    EXPECT_EQ(rows.value(u"Fecha").kind(), Kind::Date);
    EXPECT_EQ(rows.value(u"Fecha").toText({}), "05/03/2006");
    EXPECT_EQ(rows.value(u"Veces").kind(), Kind::Long);
    EXPECT_EQ(rows.fieldCount(), 5);
    rows.moveNext();
    EXPECT_EQ(rows.value(u"Valor").kind(), Kind::Null);
    EXPECT_EQ(rows.value(u"Veces").kind(), Kind::Null);
    EXPECT_EQ(rows.value(u"Fecha").toText({}), "01/01/1900");
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
    EXPECT_EQ(errorOf([&] { (void)rows.value(0); }), ErrorNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { (void)rows.ordinal(u"nada"); }), ErrorItemNotFound);
}

TEST_P(EngineTest, ExactNumbersStayExactAndCountsAreWhole) {
    connection.execute("INSERT INTO t (Codigo, Valor, Medida) VALUES ('a', 10, 10), ('b', 0.000001, 0)");
    Recordset rows = connection.openRecordset("SELECT sum(Valor) s, count(*) n FROM t");
    EXPECT_EQ(rows.value(0).kind(), Kind::Decimal);
    EXPECT_EQ(rows.value(0).toText({}), "10,000001");
    EXPECT_EQ(rows.value(1).kind(), Kind::Long);
    EXPECT_EQ(one("SELECT Valor FROM t WHERE Codigo = 'a'"), "10");
    EXPECT_EQ(one("SELECT Codigo FROM t WHERE Valor = 0.000001"), "b");
}

TEST_P(EngineTest, TextsCompareAsOnTheServer) {
    connection.execute(u"INSERT INTO t (Codigo) VALUES ('Año')"_qs);
    EXPECT_EQ(one(u"SELECT Codigo FROM t WHERE Codigo = 'AÑO '"_qs), u"Año"_qs);
    EXPECT_EQ(one(u"SELECT 1 FROM t WHERE Codigo <> 'AÑO  '"_qs), "(none)");
    EXPECT_EQ(one(u"SELECT 1 FROM t WHERE Codigo = 'Ano'"_qs), "(none)");
    EXPECT_EQ(one(u"SELECT 1 FROM t WHERE Codigo LIKE '%Ñ%'"_qs), "1");
    EXPECT_EQ(errorOf([&] { connection.execute(u"INSERT INTO t (Codigo) VALUES ('aÑo')"_qs); }),
              ErrorDuplicateKey);
    ASSERT_EQ(connection.errors().size(), 1U);
    EXPECT_EQ(connection.errors().back().number, ErrorDuplicateKey);
}

TEST_P(EngineTest, WhatIsStoredKeepsItsBlanks) {
    connection.execute("INSERT INTO t (Codigo) VALUES ('a')");
    connection.execute("UPDATE t SET Codigo = ' x ' WHERE Codigo = 'a '");
    EXPECT_EQ(one("SELECT Codigo FROM t"), " x ");
}

TEST_P(EngineTest, DatesAreDayMonthYearAndTheEmptyTextIsTheEmptyDate) {
    connection.execute("INSERT INTO t (Codigo, Fecha) VALUES ('a', '05/03/2006'), ('b', '')");
    EXPECT_EQ(one("SELECT Codigo FROM t WHERE Fecha = '05/03/2006'"), "a");
    EXPECT_EQ(one("SELECT Codigo FROM t WHERE Fecha = ''"), "b");
    EXPECT_EQ(one("SELECT Codigo FROM t WHERE Fecha BETWEEN '28/02/2006' AND '31/12/2006'"), "a");
    EXPECT_EQ(connection.execute("UPDATE t SET Fecha = '06/03/2006' WHERE Fecha = '05/03/2006'"), 1);
    EXPECT_EQ(one("SELECT Fecha FROM t WHERE Codigo = 'a'"), "06/03/2006");
    EXPECT_TRUE(one("SELECT isnull(Fecha, '01/02/2003') FROM t WHERE Codigo = 'a'").contains("2006"));
    EXPECT_EQ(errorOf([&] { connection.execute("UPDATE t SET Fecha = '31/02/2006'"); }), ErrorDateLiteral);
}

TEST_P(EngineTest, TheServersSpellingsAreUnderstood) {
    connection.execute("INSERT INTO t (Codigo, Veces) VALUES ('a', 1), ('b', 2), ('c', 3)");
    EXPECT_EQ(one("SELECT TOP 1 Codigo FROM t ORDER BY Veces DESC"), "c");
    EXPECT_EQ(one("SELECT count(*) n FROM (SELECT DISTINCT TOP (2) Codigo FROM t) x"), "2");
    const Recordset rows = connection.openRecordset("select t.codigo as  'CodigoDetalle', isnull(t.Valor, 0) "
                                                    "Valor, 'O''Neil' Quien from t order by CodigoDetalle");
    EXPECT_EQ(rows.fieldName(0), "CodigoDetalle");
    EXPECT_EQ(rows.fieldName(2), "Quien");
    EXPECT_EQ(rows.value(u"codigodetalle").toText({}), "a");
    EXPECT_EQ(rows.value(u"valor").toText({}), "0");
    EXPECT_EQ(rows.value(u"quien").toText({}), "O'Neil");
}

TEST_P(EngineTest, AffectedRowsAreThoseOfTheLastCommand) {
    connection.execute("INSERT INTO t (Codigo) VALUES ('a'), ('b')");
    EXPECT_EQ(connection.affectedRows(), 2);
    connection.execute("UPDATE t SET Veces = 1 WHERE Codigo = 'c'");
    EXPECT_EQ(connection.affectedRows(), 0);
    EXPECT_EQ(connection.execute("DELETE FROM t"), 2);
    EXPECT_EQ(connection.execute("CREATE TABLE u (a INTEGER)"), 0);
    EXPECT_EQ(connection.execute("DROP TABLE u"), 0);
}

TEST_P(EngineTest, OnlyOneStatementRuns) {
    connection.execute("INSERT INTO t (Codigo) VALUES ('a')");
    EXPECT_EQ(errorOf([&] { connection.openRecordset("DELETE FROM t"); }), ErrorRefusedStatement);
    EXPECT_EQ(errorOf([&] { connection.openRecordset("SELECT 1; DELETE FROM t"); }), ErrorRefusedStatement);
    EXPECT_EQ(errorOf([&] { connection.execute("DELETE FROM t; DELETE FROM t"); }), ErrorRefusedStatement);
    const QString cut = u"DELETE FROM t "_qs + QChar(u'\0') + u" WHERE Codigo = 'b'"_qs;
    EXPECT_EQ(errorOf([&] { connection.execute(cut); }), ErrorRefusedStatement);
    // Texts and comments that a database could read in another way than the one that was checked.
    for (const char* trick :
         {"SELECT 1 FROM t WHERE Codigo = E'\\'' ; DELETE FROM t; --'", "SELECT $$'$$; DELETE FROM t; --'",
          "SELECT $x$'$x$; DELETE FROM t; --'", "SELECT 1 /* /* */ '*/; DELETE FROM t; --'",
          "SELECT E'\\'; DELETE FROM t; --'", "SELECT U&'\\'; DELETE FROM t; --'"})
        errorOf([&] { connection.openRecordset(trick); });
    EXPECT_EQ(one("SELECT count(*) n FROM t"), "1");
}

TEST_P(EngineTest, AnUnfilledValueIsRefused) {
    connection.execute("INSERT INTO t (Codigo, Veces) VALUES ('a', 1)");
    for (const char* command :
         {"UPDATE t SET Codigo = ?, Veces = 2", "UPDATE t SET Codigo = $Codigo$, Veces = 2",
          "INSERT INTO t (Codigo, Valor) VALUES ('b', @Valor)", "DELETE FROM t WHERE Veces = :veces"})
        EXPECT_EQ(errorOf([&] { connection.execute(command); }), ErrorRefusedStatement) << command;
    EXPECT_EQ(errorOf([&] { connection.openRecordset("SELECT 1 FROM t WHERE 1 = $x$ or 1 = 1"); }),
              ErrorRefusedStatement);
    EXPECT_EQ(one("SELECT Codigo FROM t WHERE Veces = 1"), "a");
}

TEST_P(EngineTest, AMissingTableOrColumnIsAnError) {
    EXPECT_NE(errorOf([&] { connection.openRecordset("SELECT \"nada\" FROM t"); }), 0);
    EXPECT_NE(errorOf([&] { connection.openRecordset("SELECT * FROM nada"); }), 0);
    EXPECT_EQ(one("SELECT count(*) n FROM t"), "0") << "the connection goes on";
}

TEST_P(EngineTest, RollbackLeavesNothing) {
    connection.beginTrans();
    connection.execute("INSERT INTO t (Codigo) VALUES ('a')");
    EXPECT_EQ(errorOf([&] { connection.beginTrans(); }), ErrorInvalidCall);
    connection.rollbackTrans();
    EXPECT_EQ(one("SELECT 1 FROM t"), "(none)");
    EXPECT_EQ(errorOf([&] { connection.commitTrans(); }), ErrorInvalidCall);
}

TEST_P(EngineTest, ATransactionThatIsGivenUpFreesItsLocks) {
    connection.execute("INSERT INTO t (Codigo) VALUES ('a')");
    {
        Connection other;
        other.open(database.connectString());
        other.beginTrans();
        other.execute("UPDATE t SET Veces = 9");
        const Recordset rows = other.openRecordset("SELECT * FROM t");
        EXPECT_EQ(errorOf([&] { connection.execute("UPDATE t SET Veces = 1"); }), ErrorLockTimeout);
    }
    EXPECT_EQ(connection.execute("UPDATE t SET Veces = 1"), 1);
}

TEST_P(EngineTest, ReadersDoNotWaitForAWriter) {
    Connection other;
    other.open(database.connectString());
    other.beginTrans();
    other.execute("INSERT INTO t (Codigo) VALUES ('a')");
    EXPECT_EQ(one("SELECT 1 FROM t"), "(none)");
    other.commitTrans();
    EXPECT_EQ(one("SELECT 1 FROM t"), "1");
}

TEST_P(EngineTest, AResultIsReadToItsEndWhileOtherStatementsRun) {
    for (int i = 0; i < 1000; ++i)
        connection.execute(QStringLiteral("INSERT INTO t (Codigo, Veces) VALUES ('%1', %2)")
                               .arg(i, 4, 10, QLatin1Char('0'))
                               .arg(i));
    Recordset rows = connection.openRecordset("SELECT Veces, Codigo FROM t ORDER BY Codigo");
    int seen = 0;
    for (; !rows.eof(); rows.moveNext(), ++seen) {
        ASSERT_EQ(*rows.value(0).get<qint32>(), seen);
        if (seen % 100 == 7) {
            connection.execute(QStringLiteral("UPDATE t SET Valor = 1 WHERE Veces = %1").arg(seen));
            Recordset second = connection.openRecordset("SELECT Codigo FROM t ORDER BY Codigo DESC");
            EXPECT_EQ(second.value(0).toText({}), "0999");
            ASSERT_EQ(*rows.value(0).get<qint32>(), seen) << "the current row stays";
        }
    }
    EXPECT_EQ(seen, 1000);
    EXPECT_EQ(one("SELECT count(*) n FROM t WHERE Valor = 1"), "10");
}

TEST_P(EngineTest, TwoResultsAreReadByTurns) {
    connection.execute("INSERT INTO t (Codigo) VALUES ('a'), ('b'), ('c')");
    Recordset up = connection.openRecordset("SELECT Codigo FROM t ORDER BY Codigo");
    Recordset down = connection.openRecordset("SELECT Codigo FROM t ORDER BY Codigo DESC");
    QString seen;
    for (; !up.eof() && !down.eof(); up.moveNext(), down.moveNext())
        seen += up.value(0).toText({}) + down.value(0).toText({});
    EXPECT_EQ(seen, "acbbca");
    EXPECT_TRUE(up.eof());
    EXPECT_TRUE(down.eof());
}

TEST_P(EngineTest, AResultClosedHalfWayLeavesTheConnectionFree) {
    connection.execute("INSERT INTO t (Codigo) VALUES ('a'), ('b'), ('c')");
    Recordset rows = connection.openRecordset("SELECT Codigo FROM t");
    rows.close();
    EXPECT_EQ(connection.execute("DELETE FROM t"), 3);
}

INSTANTIATE_TEST_SUITE_P(Engines, EngineTest, testing::ValuesIn(allEngines), engineName);
