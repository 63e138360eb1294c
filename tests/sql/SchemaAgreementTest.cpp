// The three schemas are one: a column, a key or a default that stands in one script stands in all of them.
#include "demo/Demonstration.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/sql/SchemaScript.h"
#include "tests/support/QtPrinters.h"
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace dalvora::test;

namespace {

/// What an engine's type holds, in words that all engines share.
struct TypeMeaning {
    const char* type;
    const char* meaning;
};
constexpr TypeMeaning meanings[] = {
    {"text", "text"},
    {"citext", "text"},
    {"decimal(18,6)", "exact number"},
    {"numeric(18,6)", "exact number"},
    {"date", "date"},
    {"integer", "whole number"},
    {"int", "whole number"},
    {"bigint", "whole number"},
};

QString meaningOf(const QString& type) {
    for (const TypeMeaning& known : meanings)
        if (type == QLatin1String(known.type))
            return QLatin1String(known.meaning);
    return type.startsWith(u"varchar(") ? QStringLiteral("text") : type;
}

/// A line a column; a test that compares several lines shows which differ.
std::string columnsOf(const SchemaScript& script) {
    QStringList lines;
    for (const SchemaColumn& column : script.columns) {
        QString line = column.table + u'.' + column.name + u' ' + meaningOf(column.type);
        if (column.ignoresCase)
            line += QStringLiteral(" ignores case");
        if (column.nullable)
            line += QStringLiteral(" null");
        if (column.numbered)
            line += QStringLiteral(" numbered");
        if (!column.filler.isEmpty())
            line += QStringLiteral(" = ") + column.filler;
        lines += line;
    }
    return lines.join(u'\n').toStdString();
}

std::string keysOf(const SchemaScript& script) {
    QStringList lines;
    for (const SchemaKey& key : script.keys)
        lines += key.table + u' ' + key.name + u'(' + key.columns.join(QStringLiteral(", ")) + u')';
    return lines.join(u'\n').toStdString();
}

/// Most bytes that a column takes in a key of SQL Server.
int bytesOf(const SchemaColumn& column) {
    if (column.type == u"date")
        return 3;
    if (column.type == u"int")
        return 4;
    if (column.type == u"bigint")
        return 8;
    if (column.type == u"decimal(18,6)")
        return 9;
    return column.type.section(u'(', 1).section(u')', 0, 0).toInt() + 2;
}

std::string serverName(const testing::TestParamInfo<SchemaEngine>& info) {
    return info.param == SchemaEngine::PostgreSql ? "PostgreSql" : "SqlServer";
}

class SchemaAgreement : public testing::TestWithParam<SchemaEngine> {
protected:
    const SchemaScript embedded{SchemaEngine::Sqlite};
    const SchemaScript server{GetParam()};
};

TEST_P(SchemaAgreement, TheScriptsAreReadWhole) {
    EXPECT_EQ(embedded.unread, QStringList());
    EXPECT_EQ(server.unread, QStringList());
    EXPECT_GT(server.columns.size(), 100U);
}

TEST_P(SchemaAgreement, TheColumnsAreTheSameInTheSameOrder) {
    EXPECT_EQ(columnsOf(server), columnsOf(embedded));
}

TEST_P(SchemaAgreement, TheKeysAndIndexesAreTheSame) {
    EXPECT_EQ(keysOf(server), keysOf(embedded));
}

TEST_P(SchemaAgreement, TheLayoutHasTheSameVersion) {
    EXPECT_EQ(server.inserts, embedded.inserts);
    EXPECT_EQ(server.inserts.size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Servers, SchemaAgreement,
                         testing::Values(SchemaEngine::PostgreSql, SchemaEngine::SqlServer), serverName);

TEST(ServerSchemas, WholeNumbersAreEquallyWide) {
    const SchemaScript postgresql(SchemaEngine::PostgreSql);
    const SchemaScript sqlServer(SchemaEngine::SqlServer);
    for (const SchemaColumn& column : sqlServer.columns) {
        const SchemaColumn* same = postgresql.column(column.table, column.name);
        ASSERT_NE(same, nullptr) << column.name.toStdString();
        EXPECT_EQ(column.type == u"bigint", same->type == u"bigint") << column.name.toStdString();
    }
}

TEST(SqlServerSchema, KeysFitIntoTheLimitOfTheOldestServer) {
    constexpr int mostBytes = 900;
    const SchemaScript script(SchemaEngine::SqlServer);
    for (const SchemaKey& key : script.keys) {
        int bytes = 0;
        for (const QString& name : key.columns) {
            const SchemaColumn* column = script.column(key.table, name);
            ASSERT_NE(column, nullptr) << name.toStdString();
            EXPECT_NE(column->type, u"varchar(max)") << name.toStdString();
            bytes += bytesOf(*column);
        }
        EXPECT_LE(bytes, mostBytes) << key.table.toStdString() << ' ' << key.name.toStdString();
    }
}

TEST(SqlServerSchema, TheDemonstrationFitsIntoItsTexts) {
    const QTemporaryDir folder;
    demo::createDemonstration(folder.path());
    quorvane::Connection connection;
    connection.open(QStringLiteral("Driver=sqlite;Database=") +
                    folder.filePath(QStringLiteral("quorvane.db")));
    int texts = 0;
    for (const SchemaColumn& column : SchemaScript(SchemaEngine::SqlServer).columns) {
        if (!column.type.startsWith(u"varchar(") || column.type == u"varchar(max)")
            continue;
        ++texts;
        const quorvane::Recordset row = connection.openRecordset(
            QStringLiteral("select coalesce(max(length(%1)), 0) from %2").arg(column.name, column.table));
        EXPECT_LE(row.value(0).toNumber({}), bytesOf(column) - 2)
            << column.table.toStdString() << '.' << column.name.toStdString();
    }
    EXPECT_GT(texts, 50);
}

TEST(SchemaEngines, AreKnownByTheirDriversInAnyCase) {
    EXPECT_EQ(schemaEngine(u"sqlite"), SchemaEngine::Sqlite);
    EXPECT_EQ(schemaEngine(u"PostgreSQL"), SchemaEngine::PostgreSql);
    EXPECT_EQ(schemaEngine(u"SqlServer"), SchemaEngine::SqlServer);
    EXPECT_EQ(schemaEngine(u"dbase"), std::nullopt);
}

} // namespace
