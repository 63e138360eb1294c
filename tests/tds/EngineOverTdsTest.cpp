// The engine for SQL Server over FreeTDS against the test server.
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/support/TestDatabase.h"
#include "tests/tds/TdsServer.h"
#include <gtest/gtest.h>

using namespace quorvane;
using namespace dalvora::test;
using namespace Qt::StringLiterals;
using tds::Faults;

namespace {

class EngineOverTds : public testing::Test {
protected:
    EngineOverTds() {
        database.run(u"CREATE TABLE t (Codigo varchar(20) COLLATE Modern_Spanish_CI_AS PRIMARY KEY, "
                     "Valor decimal(18, 6), Medida float, Fecha date, Momento datetime, Veces int, "
                     "Muchas bigint, Marca bit, Ancho nvarchar(20), Largo varchar(max))"_s);
        connection.open(database.connectString(100));
    }
    template<class Action> static RunTimeError errorOf(Action action) {
        try {
            action();
        } catch (const RunTimeError& error) {
            return error;
        }
        return {0, {}};
    }
    RunTimeError failure(const QString& sql) {
        return errorOf([&] { connection.execute(sql); });
    }
    Value one(const QString& sql) {
        const Recordset rows = connection.openRecordset(sql);
        return rows.eof() ? Value() : rows.value(0);
    }
    QString text(const QString& sql) { return one(sql).toText({}); }
    /// The error of opening with one part of the connect string changed.
    RunTimeError refusal(const QString& key, const QString& value) {
        auto options = ConnectString::parse(database.connectString());
        options.setValue(key, value);
        Connection other;
        return errorOf([&] { other.open(options.toString()); });
    }

    TestDatabase database{TestEngine::TestSqlServer, TestDatabase::Tables::None};
    tds::TdsServer& server = TestDatabase::testServer();
    Connection connection;
};

} // namespace

TEST_F(EngineOverTds, ValuesComeInTheirKinds) {
    connection.execute(
        u"INSERT INTO t VALUES ('a', -1234567.891, 0.1, '05/03/2006', '1899-12-31 18:00:00', -7, "
        "9000000000, 1, N'Ωλ', 'año €')"_s);
    Recordset row = connection.openRecordset(u"SELECT * FROM t"_s);
    ASSERT_FALSE(row.eof());
    EXPECT_EQ(row.value(u"Valor").kind(), Kind::Decimal);
    ASSERT_EQ(row.value(u"Medida").kind(), Kind::Double);
    ASSERT_EQ(row.value(u"Veces").kind(), Kind::Long);
    ASSERT_EQ(row.value(u"Marca").kind(), Kind::Boolean);
    EXPECT_EQ(row.value(u"VALOR").get<Decimal>()->toText(u'.'), u"-1234567.891"_s);
    EXPECT_EQ(*row.value(u"Medida").get<double>(), 0.1);
    EXPECT_EQ(*row.value(u"Fecha").get<Date>(), Date::fromYmd(2006, 3, 5));
    EXPECT_EQ(row.value(u"Momento").get<Date>()->serial(), 1.75);
    EXPECT_EQ(*row.value(u"Veces").get<qint32>(), -7);
    EXPECT_EQ(row.value(u"Muchas").get<Decimal>()->unscaled(), 9000000000);
    EXPECT_TRUE(*row.value(u"Marca").get<bool>());
    EXPECT_EQ(row.value(u"Ancho").toText({}), u"Ωλ"_s);
    EXPECT_EQ(row.value(u"Largo").toText({}), u"año €"_s);
    row.moveNext();
    EXPECT_TRUE(row.eof());
}

TEST_F(EngineOverTds, NullsOfEveryTypeAreNull) {
    connection.execute(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    const Recordset row = connection.openRecordset(u"SELECT * FROM t"_s);
    for (int i = 1; i < 10; ++i)
        EXPECT_TRUE(row.value(i).isNull()) << i;
}

TEST_F(EngineOverTds, DatesComeBackFromAnyCentury) {
    for (const char* day :
         {"01/01/0100", "28/02/1753", "29/12/1899", "31/12/1899", "01/01/1900", "29/02/2004", "31/12/9999"}) {
        connection.execute(u"DELETE FROM t"_s);
        ASSERT_EQ(
            failure(u"INSERT INTO t (Codigo, Fecha) VALUES ('a', '%1')"_s.arg(QLatin1String(day))).number(),
            0)
            << day;
        const Value value = one(u"SELECT Fecha FROM t"_s);
        ASSERT_EQ(value.kind(), Kind::Date) << day;
        EXPECT_EQ(value.get<Date>()->serial(),
                  Date::fromQDate(QDate::fromString(QLatin1String(day), u"dd/MM/yyyy"_s)).serial())
            << day;
    }
}

TEST_F(EngineOverTds, TextsFillTheirColumnsWithAnyLetter) {
    for (const QChar letter : u"xñ€"_s) {
        const QString full(20, letter);
        for (const int length : {1, 255, 256, 1000, 9000}) {
            const QString text(length, letter);
            connection.execute(u"DELETE FROM t"_s);
            connection.execute(
                u"INSERT INTO t (Codigo, Ancho, Largo) VALUES ('%1', N'%1', '%2')"_s.arg(full, text));
            const Recordset row = connection.openRecordset(u"SELECT Codigo, Ancho, Largo FROM t"_s);
            EXPECT_EQ(row.value(0).toText({}), full);
            EXPECT_EQ(row.value(1).toText({}), full);
            EXPECT_EQ(row.value(2).toText({}), text);
        }
    }
}

TEST_F(EngineOverTds, NumbersKeepTheirDecimals) {
    for (const char* number :
         {"0.000001", "-0.000001", "99999999999.999999", "-99999999999.999999", "10", "0.5", "123456.7"}) {
        connection.execute(u"DELETE FROM t"_s);
        connection.execute(u"INSERT INTO t (Codigo, Valor) VALUES ('a', %1)"_s.arg(QLatin1String(number)));
        const Value value = one(u"SELECT Valor FROM t"_s);
        ASSERT_TRUE(value.get<Decimal>()) << number;
        // The embedded engine behind the test server keeps seventeen digits.
        EXPECT_NEAR(value.get<Decimal>()->toDouble(), QByteArray(number).toDouble(), 1e-3) << number;
        EXPECT_FALSE(value.get<Decimal>()->toText(u'.').endsWith(u".000000"_s)) << number;
    }
    EXPECT_EQ(text(u"SELECT sum(Valor) FROM t"_s), u"123456,7"_s);
}

TEST_F(EngineOverTds, CountsAffectedRows) {
    EXPECT_EQ(connection.execute(u"INSERT INTO t (Codigo) VALUES ('a'), ('b')"_s), 2);
    EXPECT_EQ(connection.execute(u"UPDATE t SET Veces = 1 WHERE Codigo = 'z'"_s), 0);
    EXPECT_EQ(connection.execute(u"DELETE FROM t"_s), 2);
}

TEST_F(EngineOverTds, ErrorsHaveTheirNumbersAndTheServersWords) {
    connection.execute(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    const RunTimeError duplicate = failure(u"INSERT INTO t (Codigo) VALUES ('A')"_s);
    EXPECT_EQ(duplicate.number(), 2627);
    EXPECT_TRUE(duplicate.description().contains(u"[Violation of PRIMARY KEY"_s)) << duplicate.what();
    EXPECT_EQ(connection.errors().back().number, 2627);
    EXPECT_EQ(errorOf([&] { connection.openRecordset(u"SELECT * FROM nada"_s); }).number(), 208);
    EXPECT_EQ(errorOf([&] { connection.openRecordset(u"SELECT nada FROM t"_s); }).number(), 207);
    EXPECT_EQ(failure(u"UPDAT t"_s).number(), 102);
    constexpr int mapped[][2] = {{2601, 2627}, {1205, 1205}, {1222, 1222},
                                 {229, 70},    {242, 241},   {2628, 8152}};
    for (const auto& [native, number] : mapped) {
        server.faults().failAt(u"Veces = 9"_s, native, u"t"_s);
        EXPECT_EQ(failure(u"UPDATE t SET Veces = 9"_s).number(), number) << native;
    }
    EXPECT_EQ(text(u"SELECT Codigo FROM t"_s), u"a"_s);
}

TEST_F(EngineOverTds, SignInIsRefusedWithOneClearSentence) {
    const auto expect = [&](const RunTimeError& error, int number, const QString& words) {
        EXPECT_EQ(error.number(), number) << error.what();
        EXPECT_TRUE(error.description().contains(words)) << error.what();
    };
    expect(refusal(u"password"_s, u"otra"_s), 18456, u"no acepta el usuario o la contraseña"_s);
    expect(refusal(u"user"_s, u"nadie"_s), 18456, u"no acepta el usuario o la contraseña"_s);
    expect(refusal(u"database"_s, u"nada"_s), 4060, u"no tiene la base de datos"_s);
    expect(refusal(u"port"_s, u"1"_s), 3709, u"No se puede conectar"_s);
    server.setMajorVersion(10);
    expect(refusal(u"timeout"_s, u"1"_s), 3343, u"demasiado antiguo"_s);
    server.setMajorVersion(15);
    server.faults().refuseConnections(true);
    expect(refusal(u"timeout"_s, u"1"_s), 3709, u"No se puede conectar"_s);
    server.faults().refuseConnections(false);
    EXPECT_EQ(refusal(u"encrypt"_s, u"S"_s).number(), 3709) << "the test server does not encrypt";
}

TEST_F(EngineOverTds, ALostConnectionIsToldAndTheNextCommandReconnects) {
    connection.execute(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    server.cutAll();
    EXPECT_EQ(errorOf([&] { one(u"SELECT Codigo FROM t"_s); }).number(), 3709);
    EXPECT_EQ(text(u"SELECT Codigo FROM t"_s), u"a"_s);
    for (const auto moment : {Faults::Moment::BeforeItRuns, Faults::Moment::AfterItHasRun}) {
        server.faults().cutAt(u"UPDATE t"_s, moment);
        EXPECT_EQ(failure(u"UPDATE t SET Veces = 1"_s).number(), 3709);
        EXPECT_EQ(failure(u"UPDATE t SET Veces = 1"_s).number(), 0);
    }
}

TEST_F(EngineOverTds, ACutInTheMiddleOfTheRowsIsNoEndOfThem) {
    connection.execute(u"INSERT INTO t (Codigo) VALUES ('a'), ('b'), ('c')"_s);
    server.faults().cutAt(u"ORDER BY Codigo"_s, Faults::Moment::InItsRows);
    EXPECT_EQ(errorOf([&] {
                  Recordset row = connection.openRecordset(u"SELECT * FROM t ORDER BY Codigo"_s);
                  while (!row.eof())
                      row.moveNext();
              }).number(),
              3709);
    EXPECT_EQ(text(u"SELECT count(*) FROM t"_s), u"3"_s);
}

TEST_F(EngineOverTds, ACommitWithoutAnAnswerIsToldAsUnknown) {
    connection.beginTrans();
    connection.execute(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    server.faults().cutAt(u"COMMIT TRANSACTION"_s, Faults::Moment::AfterItHasRun);
    const RunTimeError error = errorOf([&] { connection.commitTrans(); });
    connection.rollbackTrans();
    EXPECT_EQ(error.number(), 3709);
    EXPECT_TRUE(error.description().contains(u"no se sabe si quedaron guardados"_s)) << error.what();
    EXPECT_EQ(text(u"SELECT Codigo FROM t"_s), u"a"_s);
}

TEST_F(EngineOverTds, ALockedRowIsToldAfterTheTimeOfTheProfile) {
    Connection other;
    other.open(database.connectString());
    other.beginTrans();
    other.execute(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    EXPECT_EQ(failure(u"INSERT INTO t (Codigo) VALUES ('b')"_s).number(), 1222);
    other.rollbackTrans();
    EXPECT_EQ(failure(u"INSERT INTO t (Codigo) VALUES ('b')"_s).number(), 0);
}

TEST_F(EngineOverTds, AnErrorUndoesItsTransactionWhole) {
    connection.execute(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    for (const int number : {2627, 1205, 1222}) {
        connection.beginTrans();
        connection.execute(u"INSERT INTO t (Codigo) VALUES ('b')"_s);
        server.faults().failAt(u"Veces = 9"_s, number);
        EXPECT_EQ(failure(u"UPDATE t SET Veces = 9"_s).number(), number);
        EXPECT_NE(failure(u"INSERT INTO t (Codigo) VALUES ('c')"_s).number(), 0) << "nothing outside of it";
        connection.rollbackTrans();
        EXPECT_EQ(text(u"SELECT count(*) FROM t"_s), u"1"_s);
    }
}

TEST_F(EngineOverTds, AnOpenResultLetsOthersThrough) {
    connection.execute(u"INSERT INTO t (Codigo) VALUES ('a'), ('b'), ('c')"_s);
    Recordset open = connection.openRecordset(u"SELECT Codigo FROM t ORDER BY Codigo"_s);
    EXPECT_EQ(text(u"SELECT count(*) FROM t"_s), u"3"_s);
    connection.execute(u"UPDATE t SET Veces = 1"_s);
    QString all;
    for (; !open.eof(); open.moveNext())
        all += open.value(0).toText({});
    EXPECT_EQ(all, u"abc"_s);
}

TEST_F(EngineOverTds, AResultThatIsLeftEarlyIsGivenUp) {
    QString rows;
    for (int i = 0; i < 1000; ++i)
        rows += u"%1('%2')"_s.arg(i > 0 ? u","_s : QString()).arg(i);
    connection.execute(u"INSERT INTO t (Codigo) VALUES "_s + rows);
    {
        const Recordset many = connection.openRecordset(u"SELECT a.Codigo FROM t a, t b, t c"_s);
        EXPECT_FALSE(many.eof());
    }
    EXPECT_EQ(text(u"SELECT count(*) FROM t"_s), u"1000"_s) << "a thousand million rows were not waited for";
}
