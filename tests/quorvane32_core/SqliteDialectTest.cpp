#include "platform/quorvane32/core/sqlite/SqliteDialect.h"
#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::sqlite::SqliteDialect;

namespace {

DateColumns columns() {
    DateColumns dates;
    dates.add("Comisiones", "FechaInicio", true);
    return dates;
}

QByteArray query(const char* sql) {
    return SqliteDialect(columns()).adaptQuery(QString::fromUtf8(sql)).sql;
}

} // namespace

TEST(SqliteDialect, LeavesWhatItSharesWithTheServer) {
    EXPECT_EQ(query("select a.texto as 'X' from gen_tabcod a where a.t = 'top 1 isnull(' "),
              "select a.texto as 'X' from gen_tabcod a where a.t = 'top 1 isnull(' ");
}

TEST(SqliteDialect, RewritesIsnullAndTop) {
    EXPECT_EQ(query("SELECT TOP 5 isnull( a, '') FROM t"), "SELECT  ifnull( a, '') FROM t LIMIT 5");
    EXPECT_EQ(query("SELECT a FROM (select top (2) b from t) x where c isnull"),
              "SELECT a FROM (select  b from t LIMIT 2) x where c isnull");
    EXPECT_EQ(query("SELECT top FROM t;"), "SELECT top FROM t;");
}

TEST(SqliteDialect, TopStandsBehindDistinctAndAll) {
    EXPECT_EQ(query("SELECT DISTINCT TOP 5 a FROM t"), "SELECT DISTINCT  a FROM t LIMIT 5");
    EXPECT_EQ(query("SELECT ALL TOP (5) a FROM t"), "SELECT ALL  a FROM t LIMIT 5");
    EXPECT_EQ(query("SELECT a, TOP 5 FROM t"), "SELECT a, TOP 5 FROM t");
}

TEST(SqliteDialect, TheLimitNeverEndsUpInAComment) {
    EXPECT_EQ(query("SELECT TOP 5 a FROM t -- nota"), "SELECT  a FROM t -- nota\nLIMIT 5");
    EXPECT_EQ(query("SELECT TOP 5 a FROM t -- nota\n;"), "SELECT  a FROM t -- nota\n LIMIT 5;");
    EXPECT_EQ(query("SELECT TOP 5 a FROM t /* nota */"), "SELECT  a FROM t /* nota */ LIMIT 5");
}

TEST(SqliteDialect, TheNumberOfATopStaysInTheShape) {
    SqliteDialect dialect(columns());
    const QString sql = "INSERT INTO Comisiones (FechaInicio) SELECT TOP 5 FechaInicio FROM Comisiones "
                        "WHERE FechaInicio > '05/03/2006' and 7 < (SELECT DISTINCT TOP (2) a FROM t)";
    const auto command = dialect.split(sql);
    EXPECT_EQ(command.shape, "INSERT INTO Comisiones (FechaInicio) SELECT TOP 5 FechaInicio FROM Comisiones "
                             "WHERE FechaInicio > ? and ? < (SELECT DISTINCT TOP (2) a FROM t)");
    EXPECT_EQ(command.literals.size(), 2U);
    EXPECT_EQ(dialect.dateLiterals(sql), (std::vector<bool>{true, false}));
    EXPECT_EQ(dialect.adaptShape(command.shape),
              "INSERT INTO Comisiones (FechaInicio) SELECT  FechaInicio FROM Comisiones "
              "WHERE FechaInicio > ? and ? < (SELECT DISTINCT  a FROM t LIMIT 2) LIMIT 5");
}

TEST(SqliteDialect, EveryWritingCommandIsBound) {
    SqliteDialect dialect(columns());
    for (const char* sql : {"WITH x AS (SELECT 1) UPDATE Comisiones SET FechaInicio = '05/03/2006'",
                            "WITH x AS (SELECT 1) DELETE FROM Comisiones WHERE FechaInicio = '05/03/2006'",
                            "REPLACE INTO Comisiones (FechaInicio) VALUES ('05/03/2006')"}) {
        EXPECT_TRUE(dialect.split(sql).bound) << sql;
        EXPECT_TRUE(dialect.dateLiterals(sql).back()) << sql;
    }
    EXPECT_FALSE(dialect.split("CREATE TABLE x (a TEXT DEFAULT 'b')").bound);
}

TEST(SqliteDialect, DatesOfAQueryBecomeIso) {
    EXPECT_EQ(query("SELECT * FROM Comisiones WHERE FechaInicio <= '05/03/2006' and Codigo = '05/03/2006'"),
              "SELECT * FROM Comisiones WHERE FechaInicio <= '2006-03-05' and Codigo = '05/03/2006'");
}

TEST(SqliteDialect, NulInAQueryIsBound) {
    const QString sql = QStringLiteral("SELECT 1 WHERE 'a%1b' = 'x'").arg(QChar(u'\0'));
    const auto adapted = SqliteDialect(columns()).adaptQuery(sql);
    EXPECT_EQ(adapted.sql, "SELECT 1 WHERE ? = 'x'");
    ASSERT_EQ(adapted.parameters.size(), 1U);
    EXPECT_EQ(std::get<QByteArray>(adapted.parameters[0]), QByteArray("a\0b", 3));
}

TEST(SqliteDialect, CommandsShareTheirShape) {
    SqliteDialect dialect(columns());
    const QString first =
        "INSERT INTO Comisiones (Codigo, FechaInicio, n) VALUES ('O''N', '05/03/2006', -1.5)";
    const QString second = "INSERT INTO Comisiones (Codigo, FechaInicio, n) VALUES ('', '', -20)";
    const auto command = dialect.split(first);
    EXPECT_TRUE(command.bound);
    EXPECT_EQ(command.shape, "INSERT INTO Comisiones (Codigo, FechaInicio, n) VALUES (?, ?, -?)");
    EXPECT_EQ(dialect.split(second).shape, command.shape);
    EXPECT_EQ(dialect.dateLiterals(first), (std::vector<bool>{false, true, false}));
    EXPECT_EQ(std::get<QByteArray>(SqliteDialect::parameter(first, command.literals[0], false)), "O'N");
    EXPECT_EQ(std::get<QByteArray>(SqliteDialect::parameter(first, command.literals[1], true)), "2006-03-05");
    EXPECT_EQ(std::get<double>(SqliteDialect::parameter(first, command.literals[2], false)), 1.5);
}
