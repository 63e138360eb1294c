#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QStringList>
#include <gtest/gtest.h>
#include <random>

using namespace quorvane;

namespace {

QStringList words(const QString& sql) {
    std::vector<SqlToken> tokens;
    tokenize(sql, tokens);
    QStringList result;
    for (const SqlToken& token : tokens)
        if (token.significant())
            result << token.text(sql).toString();
    return result;
}

int selectError(const QString& sql) {
    std::vector<SqlToken> tokens;
    tokenize(sql, tokens);
    try {
        requireOneSelect(sql, tokens);
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

} // namespace

TEST(SqlLexer, SplitsAStatement) {
    EXPECT_EQ(words(u"SELECT a.b,'O''NEIL' x FROM [t 1] WHERE n<=1.5e-3 -- end\n and \"q\"<>'' /* c */"_qs),
              (QStringList{"SELECT", "a", ".", "b", ",", "'O''NEIL'", "x", "FROM", "[t 1]", "WHERE", "n",
                           "<=", "1.5e-3", "and", "\"q\"", "<>", "''"}));
}

TEST(SqlLexer, TokensCoverAnyTextWithoutAGap) {
    std::mt19937 random(7);
    const QString letters = u"aZ_09 .'\"[]()-/*;=<>!|,`$eñ\0\n"_qs + QChar(0xD83D);
    for (int round = 0; round < 5000; ++round) {
        QString sql;
        for (int i = static_cast<int>(random() % 40); i > 0; --i)
            sql += letters[static_cast<int>(random() % letters.size())];
        std::vector<SqlToken> tokens;
        tokenize(sql, tokens);
        QString together;
        for (const SqlToken& token : tokens) {
            ASSERT_GT(token.length, 0);
            together += token.text(sql);
        }
        ASSERT_EQ(together, sql);
    }
}

TEST(SqlLexer, LiteralLosesItsQuotes) {
    EXPECT_EQ(literalText(u"'O''NEIL'"), "O'NEIL");
    EXPECT_EQ(literalText(u"''"), "");
    EXPECT_EQ(literalText(u"''''"), "'");
}

TEST(SqlLexer, OnlyOneSelectPasses) {
    EXPECT_EQ(selectError("SELECT 1"), 0);
    EXPECT_EQ(selectError(" select 'a;b' ; -- done"), 0);
    for (const char* refused : {"", ";", "DELETE FROM t", "SELECT 1; DELETE FROM t", "SELECT 1; SELECT 2",
                                "UPDATE t SET a = 1", "PRAGMA user_version", "SELECT a INTO b FROM c",
                                "SELECT 'open", "WITH x AS (SELECT 1) DELETE FROM t", "-- SELECT 1",
                                "SELECT /* 1", "SELECT 1 AS `'` ; DELETE FROM t WHERE '' = '`'", "SELECT `a",
                                "SELECT [a]] FROM t", "SELECT 1 AS [']; DELETE FROM t WHERE a = [']"})
        EXPECT_EQ(selectError(QString::fromLatin1(refused)), ErrorRefusedStatement) << refused;
}

TEST(SqlLexer, WhatOnlyLooksLikeAnotherStatementPasses) {
    for (const char* allowed :
         {"SELECT `a;b` FROM t", "SELECT [a]];b] FROM t",
          "SELECT * FROM (WITH x AS (SELECT 1 a) SELECT a FROM x)",
          "SELECT 'into', \"into\", [into], `into` FROM t", "SELECT a FROM t UNION SELECT b FROM u",
          "SELECT 1 /* ; */ ;", "SELECT 1 -- ;\n;", "SELECT $a$ FROM t"})
        EXPECT_EQ(selectError(QString::fromLatin1(allowed)), 0) << allowed;
}

TEST(SqlLexer, ANulStandsInTextsOnly) {
    const QString nul(1, QChar(u'\0'));
    EXPECT_EQ(selectError(QStringLiteral("SELECT 'a%1b'").arg(nul)), 0);
    for (const char* refused : {"SELECT 1 %1 WHERE a = 1", "SELECT [a%1]", "SELECT 1 -- %1",
                                "SELECT 1 /*%1*/", "SELECT a%1 FROM t", "SELECT 1;%1"})
        EXPECT_EQ(selectError(QString::fromLatin1(refused).arg(nul)), ErrorRefusedStatement) << refused;
}

TEST(SqlLexer, AScriptFallsIntoItsStatements) {
    EXPECT_EQ(
        statementsOf(
            "-- head; tail\nCREATE TABLE a (b TEXT DEFAULT ';');\n; INSERT INTO a VALUES (1) ;\n-- end"),
        (QStringList{"-- head; tail\nCREATE TABLE a (b TEXT DEFAULT ';')", " INSERT INTO a VALUES (1) "}));
    EXPECT_EQ(statementsOf("SELECT 1"), QStringList{"SELECT 1"});
    EXPECT_EQ(statementsOf(" ; -- nothing"), QStringList());
}
