#include "platform/quorvane32/core/postgres/PostgresDialect.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <gtest/gtest.h>

using namespace quorvane;
using postgres::PostgresDialect;

namespace {

PostgresDialect dialect() {
    DateColumns columns;
    columns.add("Comisiones", "FechaInicio", true);
    columns.add("Comisiones", "Codigo", false);
    return PostgresDialect(columns);
}

QString query(const QString& sql) {
    return dialect().adaptQuery(sql);
}

QString command(const QString& sql) {
    return dialect().adaptCommand(sql);
}

int errorOf(const QString& sql) {
    try {
        command(sql);
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

} // namespace

TEST(PostgresDialect, WhatBothSpellAlikeIsSentAsItIs) {
    for (const char* sql :
         {"SELECT * FROM Comisiones WHERE Empresa = '01' and codigo = 'O''NEIL' ",
          "select c.codigo  from comisiones c left join comisionesd cd on c.a = cd.a order by 1"})
        EXPECT_EQ(query(sql), sql);
    EXPECT_EQ(command("UPDATE Comisiones SET Descripcion='x ', Porcentaje = 2.5"),
              "UPDATE Comisiones SET Descripcion='x ', Porcentaje = 2.5");
}

TEST(PostgresDialect, TopBecomesLimitAndIsnullCoalesce) {
    EXPECT_EQ(query("select top 5 codigo from Comisiones order by 1"),
              "select  codigo from Comisiones order by 1 LIMIT 5");
    EXPECT_EQ(query("select IsNull(a, '') from (select top (1) a from t) x"),
              "select coalesce(a, '') from (select  a from t LIMIT 1) x");
    EXPECT_EQ(query("select 'isnull(top 1)' from t"), "select 'isnull(top 1)' from t");
}

TEST(PostgresDialect, AliasesAndQuotedNamesFoldLikePlainOnes) {
    EXPECT_EQ(query("select a as  'DescripcionDetalle', [Codigo] from Comisiones"),
              "select a as  \"descripciondetalle\", \"codigo\" from Comisiones");
    EXPECT_EQ(query("select a as 'o''brien', `b``c` from t"), "select a as \"o'brien\", \"b`c\" from t");
}

TEST(PostgresDialect, DatesAreIsoAndTheEmptyOneIsOf1900) {
    EXPECT_EQ(query("select 1 from Comisiones where FechaInicio <= '05/03/2006' and '' <> FechaInicio"),
              "select 1 from Comisiones where FechaInicio <= '2006-03-05' and '1900-01-01' <> FechaInicio");
    EXPECT_EQ(command("INSERT INTO Comisiones (Codigo, FechaInicio)VALUES ('05/03/2006', '05/03/2006')"),
              "INSERT INTO Comisiones (Codigo, FechaInicio)VALUES ('05/03/2006', '2006-03-05')");
    EXPECT_EQ(errorOf("UPDATE Comisiones SET FechaInicio = '31/02/2006'"), ErrorDateLiteral);
}

TEST(PostgresDialect, ComparedTextsLoseTheirBlanksAtTheEnd) {
    EXPECT_EQ(query("select 1 from t where a = 'x  ' and b <> ' ' and c like 'x '"),
              "select 1 from t where a = 'x' and b <> '' and c like 'x '");
    EXPECT_EQ(command("update t set a = 'x ', b = 'y ' where c = 'z '"),
              "update t set a = 'x ', b = 'y ' where c = 'z'");
}

TEST(PostgresDialect, TextsThatTheServerWouldReadOtherwiseAreTakenApart) {
    EXPECT_EQ(query("select E'\\' from t"), "select E '\\' from t");
    EXPECT_EQ(query("select U&'\\' from t"), "select U& '\\' from t");
    EXPECT_EQ(query("select N'x' from t"), "select 'x' from t");
    EXPECT_EQ(query("select 1 /* /* */ from t -- x\n"), "select 1   from t  \n");
    for (const char* sql : {"delete from t where a = $x$ or 1 = 1", "delete from t where a = ?",
                            "delete from t where a = :a", "delete from t where a = @a", "delete from a$b"})
        EXPECT_EQ(errorOf(sql), ErrorRefusedStatement) << sql;
    EXPECT_EQ(errorOf("select a::text from t"), 0);
    EXPECT_EQ(errorOf(u"delete from t where a = 'x"_qs + QChar(u'\0') + u"'"_qs), ErrorInvalidCall);
}

TEST(PostgresDialect, NamesComeBackAsTheStatementSpellsThem) {
    PostgresDialect one = dialect();
    const QString sql = "select t.codigo CodigoDetalle, b as 'Otro Nombre', [Tercero] from t";
    one.adaptQuery(sql);
    EXPECT_EQ(one.spelling(sql, "codigodetalle"), "CodigoDetalle");
    EXPECT_EQ(one.spelling(sql, "otro nombre"), "Otro Nombre");
    EXPECT_EQ(one.spelling(sql, "tercero"), "Tercero");
    EXPECT_EQ(one.spelling(sql, "nada"), "nada");
}
