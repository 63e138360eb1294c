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
