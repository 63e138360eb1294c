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

TEST(DateLiterals, IsoForms) {
    EXPECT_EQ(isoDate("05/03/2006"), "2006-03-05");
    EXPECT_EQ(isoDate("5-3-2006"), "2006-03-05");
    EXPECT_EQ(isoDate("2006-03-05"), "2006-03-05");
    EXPECT_EQ(isoDate(""), "1900-01-01");
    EXPECT_EQ(isoDate("31/12/9999"), "9999-12-31");
    for (const char* wrong : {"31/02/2006", "x", "05/03/2006'", "2006-02-31"}) {
        try {
            isoDate(wrong);
            ADD_FAILURE() << wrong;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), ErrorDateLiteral);
        }
    }
}
