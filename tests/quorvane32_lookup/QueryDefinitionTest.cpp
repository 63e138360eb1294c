#include "platform/quorvane32/lookup/QueryDefinition.h"
#include "platform/quorvane32/lookup/LookupErrors.h"
#include "tests/quorvane32_lookup/RowsOf.h"
#include <gtest/gtest.h>

using namespace quorvane;

namespace {

QueryDefinition query(const QString& sql, std::vector<QueryParameter> parameters) {
    QueryDefinition definition;
    definition.name = "Q";
    definition.sql = sql;
    definition.parameters = std::move(parameters);
    return definition;
}

const QueryParameter text{"Empresa", ParameterKind::Text, {}};
const QueryParameter date{"Desde", ParameterKind::Date, {}};

} // namespace

TEST(QueryStatement, PutsParametersInAsLiterals) {
    EXPECT_EQ(query("select * from t where e = $2$ and f = $1$", {text, text}).statement({"a", "b"}, {}),
              "select * from t where e = 'b' and f = 'a'");
}

TEST(QueryStatement, DoublesQuotesAndReadsNoParameterTwice) {
    EXPECT_EQ(query("where a = $1$ and b = $2$", {text, text}).statement({"O'Neil'; drop $2$", "x"}, {}),
              "where a = 'O''Neil''; drop $2$' and b = 'x'");
}

TEST(QueryStatement, KeepsBlanksOfATextParameter) {
    EXPECT_EQ(query("where a <> $1$", {text}).statement({"  "}, {}), "where a <> '  '");
}

TEST(QueryStatement, WritesDatesAsTheServerReadsThem) {
    RegionalSettings regional;
    regional.dateSeparator = u'-';
    const auto definition = query("where d >= $1$", {date});
    EXPECT_EQ(definition.statement({"5-3-2006"}, regional), "where d >= '05/03/2006'");
    EXPECT_EQ(definition.statement({" 31/12/97 "}, {}), "where d >= '31/12/1997'");
    EXPECT_EQ(definition.statement({""}, {}), "where d >= ''");
}

TEST(QueryStatement, AnEmptyParameterTakesItsDeclaredValue) {
    const auto definition = query("where d <= $1$", {{"Hasta", ParameterKind::Date, "31/12/9999"}});
    EXPECT_EQ(definition.statement({"  "}, {}), "where d <= '31/12/9999'");
    EXPECT_EQ(definition.statement({"01/02/2003"}, {}), "where d <= '01/02/2003'");
}

TEST(QueryStatement, WritesNumbersWithAPoint) {
    const auto definition = query("where n > $1$", {{"Monto", ParameterKind::Number, {}}});
    EXPECT_EQ(definition.statement({"1.234,5"}, {}), "where n > 1234.5");
}

TEST(QueryStatement, TellsWhichParameterCannotBeRead) {
    const auto definition = query("where d >= $1$", {date});
    const auto fill = [&] { (void)definition.statement({"31/02/2006"}, {}); };
    EXPECT_EQ(rows::errorOf(fill), ErrorTypeMismatch);
    EXPECT_EQ(rows::descriptionOf(fill),
              "No coinciden los tipos (parámetro 'Desde' de la consulta 'Q', valor '31/02/2006')");
}

TEST(QueryStatement, RefusesTooFewParametersAndIgnoresExtraOnes) {
    const auto definition = query("where a = $1$ and b = $2$", {text, text});
    const auto fill = [&] { (void)definition.statement({"a"}, {}); };
    EXPECT_EQ(rows::errorOf(fill), ErrorTooFewParameters);
    EXPECT_EQ(rows::descriptionOf(fill), "Pocos parámetros: la consulta 'Q' espera 2 y se entregaron 1");
    EXPECT_EQ(definition.statement({"a", "b", "c"}, {}), "where a = 'a' and b = 'b'");
}

TEST(QueryStatement, RefusesANulInAText) {
    const QString nul = QString("a") + QChar(u'\0') + "b";
    EXPECT_EQ(rows::errorOf([&] { (void)query("$1$", {text}).statement({nul}, {}); }), ErrorInvalidCall);
}

TEST(QueryStatement, LeavesQuotedDollarsAndCommentsAlone) {
    EXPECT_EQ(query("select '$1$', \"$1$\", [$1$] -- $1$ it's\n, $1$", {text}).statement({"x"}, {}),
              "select '$1$', \"$1$\", [$1$] -- $1$ it's\n, 'x'");
}

TEST(QueryStatement, LeavesWhatIsNoPlaceholder) {
    EXPECT_EQ(query("$ $$ $a$ $1 $1$", {text}).statement({"x"}, {}), "$ $$ $a$ $1 'x'");
}
