// What an SQL Server is sent, and how its errors are told: no such server is asked here.
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/odbc/OdbcAddress.h"
#include "platform/quorvane32/core/odbc/OdbcServers.h"
#include "platform/quorvane32/core/sqlserver/SqlServerDialect.h"
#include "platform/quorvane32/core/sqlserver/SqlServerProduct.h"
#include "tests/support/ErrorOf.h"
#include <gtest/gtest.h>

using namespace quorvane;
using namespace Qt::StringLiterals;
using odbc::OdbcAddress;
using qtsql::ServerFault;
using quorvane::test::errorOf;
using sqlserver::SqlServerDialect;
using sqlserver::SqlServerProduct;

namespace {

int refusal(const QString& command) {
    return errorOf([&] { SqlServerDialect(false).adaptCommand(command); });
}

RunTimeError told(const qtsql::ServerFaults& faults) {
    return SqlServerProduct({}).statementError(faults);
}

RunTimeError toldAtConnect(const qtsql::ServerFaults& faults) {
    return SqlServerProduct({}).connectError(faults, u"«empresa» en servidor"_s);
}

QString addressOf(const QString& connectString) {
    return odbc::sqlServerAddress(ConnectString::parse(connectString)).text;
}

} // namespace

TEST(SqlServerDialect, StatementsGoUnchanged) {
    SqlServerDialect dialect(false);
    for (const char* sql :
         {"select top 5 a as 'X', isnull(b, '') from t where Fecha <= '05/03/2006' order by 1 ",
          "select a from t union all select b from u",
          "SELECT (SELECT max(a) FROM t) m, [set] FROM t -- nota\r\n",
          "SELECT a FROM t ORDER BY a OFFSET 5 ROWS FETCH NEXT 5 ROWS ONLY"})
        EXPECT_EQ(dialect.adaptQuery(sql), sql);
    for (const char* sql : {"INSERT INTO t (a) VALUES ('update {x} ? ; delete')",
                            "INSERT INTO t SELECT a FROM u UNION SELECT 1",
                            "UPDATE t SET a = (SELECT max(a) FROM u), b = 'x ' WHERE a = 1;",
                            "DELETE FROM t WHERE a IN (SELECT 1)",
                            "CREATE TABLE t (a int, FOREIGN KEY (a) REFERENCES u (a) ON DELETE CASCADE)"})
        EXPECT_EQ(dialect.adaptCommand(sql), sql);
}

TEST(SqlServerDialect, ASecondStatementIsRefusedEvenWithoutASemicolon) {
    SqlServerDialect dialect(false);
    for (const char* sql : {"SELECT 1 DELETE FROM t", "SELECT 1 SELECT 2", "SELECT 1 EXEC p",
                            "SELECT 1 SET NOCOUNT ON", "SELECT 1; DROP TABLE t",
                            "SELECT 1 FROM t WHERE a = 'x' update t set a = 1", "SELECT a INTO u FROM t"})
        EXPECT_EQ(errorOf([&] { dialect.adaptQuery(sql); }), ErrorRefusedStatement) << sql;
    for (const char* sql : {"DELETE FROM t DELETE FROM u", "UPDATE t SET a = 1 SET LOCK_TIMEOUT 0",
                            "DELETE FROM t SELECT 1", "INSERT INTO t SELECT 1 SELECT 2",
                            "INSERT INTO t VALUES (1) COMMIT", "DELETE FROM t WHERE a = 1 DROP TABLE t"})
        EXPECT_EQ(refusal(sql), ErrorRefusedStatement) << sql;
}

TEST(SqlServerDialect, WhatTheServerWouldReadInAnotherWayIsRefused) {
    for (const QString& sql :
         {u"DELETE FROM t /* /* */ WHERE a = '*/'"_s, u"DELETE FROM t --\r WHERE a = 1"_s,
          u"DELETE FROM t\u00a0WHERE a = 1"_s, u"DELETE FROM t --\u2028 WHERE a = 1"_s, u"{call p}"_s,
          u"DELETE FROM t WHERE a = {d '2006-03-05'}"_s, u"DELETE FROM t WHERE a = ?"_s,
          u"DELETE FROM t WHERE a = $a$"_s, u"DELETE FROM t WHERE a = @a"_s})
        EXPECT_EQ(refusal(sql), ErrorRefusedStatement) << sql.toStdString();
}

TEST(SqlServerDialect, AProfileThatOnlyReadsSendsNoCommand) {
    SqlServerDialect dialect(true);
    EXPECT_EQ(dialect.adaptQuery("SELECT 1"), "SELECT 1");
    EXPECT_EQ(errorOf([&] { dialect.adaptCommand("DELETE FROM t"); }), ErrorPermissionDenied);
}

TEST(SqlServerErrors, NumbersAreTheServersOwnWithItsTextInBrackets) {
    const RunTimeError error =
        told({{"23000", 2627, u"[FreeTDS][SQL Server]Violation of PRIMARY KEY"_s},
              {"01000", 3621, u"[FreeTDS][SQL Server]The statement has been terminated."_s}});
    EXPECT_EQ(error.number(), ErrorDuplicateKey);
    EXPECT_EQ(error.description(), "Clave duplicada [Violation of PRIMARY KEY]");
    constexpr std::pair<int, int> numbers[] = {{2601, 2627},  {515, 515},   {547, 547},
                                               {1222, 1222},  {1205, 1205}, {208, 208},
                                               {207, 207},    {102, 102},   {229, 70},
                                               {230, 70},     {241, 241},   {242, 241},
                                               {8152, 8152},  {2628, 8152}, {8115, 8115},
                                               {1105, 61},    {9002, 61},   {3906, 70},
                                               {20004, 3709}, {20003, -2},  {50000, ErrorCommandFailed}};
    for (const auto& [native, number] : numbers)
        EXPECT_EQ(told({{"HY000", native, u"x"_s}}).number(), number) << native;
}

TEST(SqlServerErrors, WhatTheDriverFindsIsKnownByItsState) {
    EXPECT_EQ(told({{"08S01", 0, u"[Microsoft][ODBC Driver 18 for SQL Server]TCP Provider"_s}}).number(),
              ErrorConnectionLost);
    EXPECT_EQ(told({{"HYT00", 0, u"Query timeout expired"_s}}).number(), ErrorStatementTimeout);
    EXPECT_EQ(told({{"HY000", 0, u"rara"_s}}).description(), "Error de la base de datos [HY000: rara]");
}

TEST(SqlServerErrors, ARefusedSignInIsTold) {
    EXPECT_EQ(toldAtConnect({{"28000", 18456, u"Login failed for user 'ana'."_s}}).number(),
              ErrorLoginFailed);
    const ServerFault all{
        {},
        20002,
        u"Login failed for user 'ana'.. Cannot open database \"empresa\" requested by the login"_s};
    EXPECT_EQ(toldAtConnect({all}).number(), ErrorNoSuchDatabase);
    EXPECT_EQ(toldAtConnect({{{}, 20009, u"Unable to connect"_s}}).description(),
              u"No se puede conectar con la base de datos «empresa» en servidor [Unable to connect]"_s);
    EXPECT_EQ(
        toldAtConnect({{{}, 0, u"[unixODBC][Driver Manager]Can't open lib 'X' : file not found"_s}}).number(),
        ErrorCannotCreateObject);
}

TEST(OdbcAddress, TheUsualDriverIsThatOfTheSystem) {
#ifdef Q_OS_WIN
    EXPECT_TRUE(addressOf(u"Driver=sqlserver;Host=s"_s)
                    .startsWith(u"DRIVER=ODBC Driver 18 for SQL Server;Server=s;"));
#else
    EXPECT_TRUE(addressOf(u"Driver=sqlserver;Host=s"_s).startsWith(u"DRIVER=FreeTDS;Server=s;"));
#endif
}

TEST(OdbcAddress, FreeTdsHasItsOwnWords) {
    EXPECT_EQ(
        addressOf(
            u"Driver=sqlserver;OdbcDriver=FreeTDS;Host=servidor;Database=empresa;User=ana;Password=p"_s),
        "DRIVER=FreeTDS;Server=servidor;TDS_Version=7.4;ClientCharset=UTF-8;Encryption=require;Timeout=300;"
        "Database=empresa;APP=quorvane32_core_test;UID=ana;PWD=p;");
    EXPECT_EQ(addressOf(u"Host=s;Port=1500;Encrypt=N;StatementTimeout=0;OdbcDriver=FreeTDS;Dsn=erp;"
                        "OdbcOptions={TDS_Version=7.3;MARS_Connection=no;UID=otra}"_s),
              "DSN=erp;Server=s;Port=1500;TDS_Version=7.3;ClientCharset=UTF-8;Encryption=off;"
              "APP=quorvane32_core_test;mars_connection=no;");
}

TEST(OdbcAddress, TheVendorsDriverHasItsOwnWords) {
    EXPECT_EQ(
        addressOf(u"Host=s;Port=1500;OdbcDriver=ODBC Driver 18 for SQL Server;TrustServerCertificate=S"_s),
        "DRIVER=ODBC Driver 18 for SQL Server;Server={s,1500};Encrypt=yes;TrustServerCertificate=yes;"
        "Trusted_Connection=yes;APP=quorvane32_core_test;");
}

TEST(OdbcAddress, NoValueBecomesAKeyword) {
    OdbcAddress doubled(OdbcAddress::Braces::Doubled);
    doubled.add(u"PWD"_s, u"a};Server=otro;x={"_s);
    EXPECT_EQ(doubled.text(), "PWD={a}};Server=otro;x={};");
    OdbcAddress plain(OdbcAddress::Braces::Plain);
    plain.add(u"PWD"_s, u"a;b}c}"_s);
    EXPECT_EQ(plain.text(), "PWD={a;b}c}};");
    EXPECT_EQ(errorOf([&] { plain.add(u"PWD"_s, u"a};Server=otro"_s); }), ErrorInvalidCall);
    EXPECT_EQ(errorOf([&] { plain.add(u"PWD"_s, u"a\nb"_s); }), ErrorInvalidCall);
    EXPECT_EQ(errorOf([&] { plain.addAll(u"a}b=c"_s); }), ErrorInvalidCall);
}
