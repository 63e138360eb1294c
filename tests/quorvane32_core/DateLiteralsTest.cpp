#include "platform/quorvane32/core/DateLiterals.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QStringList>
#include <gtest/gtest.h>

using namespace quorvane;

namespace {

QStringList dateLiterals(const QString& sql) {
    DateColumns columns;
    columns.add("Comisiones", "FechaInicio", true);
    columns.add("Comisiones", "FechaFinal", true);
    columns.add("documento", "Marca", true);
    columns.add("producto", "Marca", false);
    std::vector<SqlToken> tokens;
    tokenize(sql, tokens);
    markDateLiterals(sql, tokens, columns);
    QStringList found;
    for (const SqlToken& token : tokens)
        if (token.dateLiteral)
            found << literalText(token.text(sql));
    return found;
}

} // namespace

TEST(DateLiterals, ComparedOnEitherSide) {
    EXPECT_EQ(dateLiterals("SELECT * FROM Comisiones c WHERE c.fechainicio <= 'a' and 'b' = FECHAFINAL and x "
                           "= 'n' and 'm' < c.FechaFinal"),
              (QStringList{"a", "b", "m"}));
}

TEST(DateLiterals, AssignedAndInValues) {
    EXPECT_EQ(dateLiterals("UPDATE Comisiones SET x='n', FechaInicio='a', [FechaFinal] = 'b' where y = 'm'"),
              (QStringList{"a", "b"}));
    EXPECT_EQ(dateLiterals("INSERT INTO Comisiones ( Codigo, FechaInicio, n, FechaFinal )VALUES ('n', 'a', "
                           "f('n',1), 'b' ), ('n','c',2,'d')"),
              (QStringList{"a", "b", "c", "d"}));
}

TEST(DateLiterals, BetweenAndIn) {
    EXPECT_EQ(dateLiterals("SELECT 1 FROM Comisiones WHERE FechaInicio between 'a' and 'b' and 'n' = x and "
                           "FechaFinal not in ('c' , 'd') and y in ('n')"),
              (QStringList{"a", "b", "c", "d"}));
    EXPECT_EQ(dateLiterals("SELECT 1 FROM t WHERE FechaInicio not between 'a' and 'b'"),
              (QStringList{"a", "b"}));
}

TEST(DateLiterals, NameThatIsADateElsewhereOnly) {
    EXPECT_EQ(dateLiterals("SELECT 1 FROM producto WHERE Marca = 'x'"), QStringList());
    EXPECT_EQ(dateLiterals("SELECT 1 FROM Documento WHERE Marca = 'x'"), QStringList{"x"});
}

TEST(DateLiterals, BetweenTwoDateColumns) {
    EXPECT_EQ(
        dateLiterals("SELECT 1 FROM Comisiones c WHERE 'a' BETWEEN FechaInicio AND c.FechaFinal and 'n' "
                     "between x and y and 'b' not between x and FechaFinal"),
        (QStringList{"a", "b"}));
    EXPECT_EQ(dateLiterals("SELECT 1 FROM t WHERE c.FechaInicio between isnull(x, 'n') and 'b' and y = 'm'"),
              (QStringList{"b"}));
}

TEST(DateLiterals, InsideAndAgainstFunctionsOfDates) {
    EXPECT_EQ(dateLiterals("SELECT isnull(FechaFinal,'a'), isnull(x,'n') FROM Comisiones WHERE "
                           "isnull(c.FechaFinal,'b') >= 'c' and 'd' < coalesce(x, FechaInicio, 'e')"),
              (QStringList{"a", "b", "c", "d", "e"}));
    EXPECT_EQ(dateLiterals("SELECT 1 FROM Comisiones WHERE year(FechaFinal) = 'n' and isnull(x, 'm') = 'o'"),
              QStringList());
    EXPECT_EQ(dateLiterals("SELECT max(FechaFinal) FROM Comisiones HAVING max(FechaFinal) > 'a'"),
              QStringList{"a"});
}

TEST(DateLiterals, InParentheses) {
    EXPECT_EQ(
        dateLiterals("SELECT 1 FROM Comisiones WHERE FechaInicio = ('a') and (('b')) <= (FechaFinal) and "
                     "(x = ('n')) and (FechaInicio) between ('c') and ('d') and upper('m') = x"),
        (QStringList{"a", "b", "c", "d"}));
}

TEST(DateLiterals, AmongOtherItemsOfAList) {
    EXPECT_EQ(
        dateLiterals("SELECT 1 FROM Comisiones WHERE FechaInicio IN (NULL,'a', 3, 'b') and x in (1,'n') "
                     "and 'c' in (x, FechaFinal)"),
        (QStringList{"a", "b", "c"}));
}

TEST(DateLiterals, InsertedBySelect) {
    EXPECT_EQ(dateLiterals(
                  "INSERT INTO Comisiones (Codigo, FechaInicio, FechaFinal) SELECT DISTINCT TOP 5 'n', "
                  "'a', isnull(x, 'm') FROM t WHERE y = 'o' UNION ALL SELECT f('p', 'q'), ('b'), 'c' as d"),
              (QStringList{"a", "b", "c"}));
}

TEST(DateLiterals, InsertedWithoutAList) {
    for (const char* sql :
         {"INSERT INTO Comisiones VALUES ('a', 'b', 'n'), ('c', 'd', 'm')",
          "INSERT Comisiones VALUES ('a', 'b', 'n'), ('c', 'd', 'm')",
          "INSERT INTO dbo.Comisiones VALUES ('a', 'b', 'n'), ('c', 'd', 'm')",
          "INSERT OR REPLACE INTO [dbo].[Comisiones] VALUES ('a', 'b', 'n'), ('c', 'd', 'm')",
          "REPLACE INTO \"Comisiones\" VALUES ('a', 'b', 'n'), ('c', 'd', 'm')",
          "WITH x AS (SELECT 'n') INSERT INTO comisiones VALUES ('a', 'b', 'n'), ('c', 'd', 'm')",
          "INSERT INTO Comisiones SELECT 'a', 'b', 'n' UNION SELECT 'c', 'd', 'm'"})
        EXPECT_EQ(dateLiterals(sql), (QStringList{"a", "b", "c", "d"})) << sql;
    EXPECT_EQ(dateLiterals("INSERT INTO nada VALUES ('a', 'b')"), QStringList());
}

TEST(DateLiterals, OfTheRowThatTookThePlace) {
    EXPECT_EQ(dateLiterals(
                  "INSERT INTO Comisiones (FechaInicio, x) VALUES ('a', 'n') ON CONFLICT DO UPDATE SET x = "
                  "'m', FechaFinal = 'b'"),
              (QStringList{"a", "b"}));
}

TEST(DateLiterals, AQualifierTellsTheTable) {
    EXPECT_EQ(dateLiterals("SELECT 1 FROM documento d, producto p WHERE p.Marca = 'n' and d.Marca = 'a'"),
              QStringList{"a"});
    EXPECT_EQ(
        dateLiterals("SELECT 1 FROM [documento] AS d JOIN \"producto\" ON producto.Marca = 'n' and [d].Marca "
                     "in ('a') and 'm' = producto.[Marca] and 'b' = d.\"Marca\""),
        (QStringList{"a", "b"}));
    EXPECT_EQ(dateLiterals("SELECT 1 FROM dbo.documento x WHERE x.Marca = 'a'"), QStringList{"a"});
    EXPECT_EQ(dateLiterals("SELECT 1 FROM dbo.documento WHERE dbo.documento.Marca = 'a'"), QStringList{"a"});
}

TEST(DateLiterals, AQuotedTableIsNamedToo) {
    EXPECT_EQ(dateLiterals("SELECT 1 FROM [Documento] WHERE Marca = 'a'"), QStringList{"a"});
    EXPECT_EQ(dateLiterals("SELECT 1 FROM `documento` WHERE Marca = 'a'"), QStringList{"a"});
}

TEST(DateLiterals, IsoForms) {
    EXPECT_EQ(isoDate("05/03/2006"), "2006-03-05");
    EXPECT_EQ(isoDate("5-3-2006"), "2006-03-05");
    EXPECT_EQ(isoDate("2006-03-05"), "2006-03-05");
    EXPECT_EQ(isoDate(""), "1900-01-01");
    EXPECT_EQ(isoDate("31/12/9999"), "9999-12-31");
    EXPECT_EQ(isoDate("30/12/1899"), "1899-12-30");
    EXPECT_EQ(isoDate(" 2006-03-05 "), "2006-03-05");
    EXPECT_EQ(isoDate("2006-03-05 14:20:30"), "2006-03-05 14:20:30");
    EXPECT_EQ(isoDate("05/03/2006 14:20"), "2006-03-05 14:20:00");
    EXPECT_EQ(isoDate("2006-03-05T00:00:00"), "2006-03-05");
    for (const char* wrong : {"31/02/2006", "x", "05/03/2006'", "2006-02-31", "2006-03-05garbage",
                              "2006-03-05 25:00:00", "2006-03-05 x", "0050-03-05", "0000-01-01", "01/01/206",
                              "2006/03/05", "2006-03-051", "2006-3-05"}) {
        try {
            isoDate(wrong);
            ADD_FAILURE() << wrong;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), ErrorDateLiteral);
        }
    }
}
