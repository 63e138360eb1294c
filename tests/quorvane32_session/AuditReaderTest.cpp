#include "platform/quorvane32/session/AuditReader.h"

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "tests/support/TestDatabase.h"
#include <sqlite3.h>

namespace {

using namespace quorvane;
using namespace Qt::StringLiterals;
using dalvora::test::TestDatabase;
using dalvora::test::TestEngine;

class AuditReaderTest : public testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override {
        connection.open(database.connectString());
        add(u"2026-03-04 23:59:59.999"_s, u"ana"_s, u"001"_s, 1);
        add(u"2026-03-05 00:00:00.000"_s, u"ANA"_s, u"002"_s, 2);
        add(u"2026-03-05 23:59:59.999"_s, u"luis"_s, u"001"_s, 3);
        // This one waited in a program's memory.
        add(u"2026-03-05 12:00:00.000"_s, u"ana"_s, u"001"_s, 4);
        add(u"2026-03-06 00:00:00.000"_s, u"eva"_s, u""_s, 5, u"QUORVANE-ADMIN"_s);
    }
    void add(const QString& moment, const QString& user, const QString& company, int code,
             const QString& program = u"VELTRANO"_s) {
        AuditTrail trail(connection);
        trail.add({moment, user, company, program, code, QString::number(code), {}});
        ASSERT_TRUE(trail.store());
    }
    /// The codes of the entries that are read.
    QString all(const AuditFilter& filter) {
        QString codes;
        AuditReader(connection).all(filter, [&](const AuditEntry& entry) { codes += entry.text; });
        return codes;
    }
    QString last(const AuditFilter& filter, int count) {
        QString codes;
        AuditReader(connection).last(filter, count, [&](const AuditEntry& entry) { codes += entry.text; });
        return codes;
    }

    TestDatabase database{GetParam()};
    Connection connection;
};

TEST_P(AuditReaderTest, TellsEverythingInTheOrderOfTime) {
    EXPECT_EQ(all({}), u"12435"_s);
}

TEST_P(AuditReaderTest, FindsAUserInAnyCase) {
    AuditFilter filter;
    filter.user = u"Ana"_s;
    EXPECT_EQ(all(filter), u"124"_s);
}

TEST_P(AuditReaderTest, DaysCountFromTheirFirstToTheirLastMoment) {
    AuditFilter filter;
    filter.from = QDate(2026, 3, 5);
    EXPECT_EQ(all(filter), u"2435"_s);
    filter.to = filter.from;
    EXPECT_EQ(all(filter), u"243"_s);
    filter.from = {};
    EXPECT_EQ(all(filter), u"1243"_s);
}

TEST_P(AuditReaderTest, FiltersTogetherLeaveWhatFitsAllOfThem) {
    AuditFilter filter;
    filter.company = u"001"_s;
    EXPECT_EQ(all(filter), u"143"_s);
    filter.user = u"ana"_s;
    filter.from = QDate(2026, 3, 5);
    EXPECT_EQ(all(filter), u"4"_s);
    filter = {};
    filter.program = u"quorvane-admin"_s;
    EXPECT_EQ(all(filter), u"5"_s);
    filter.user = u"x' OR 'a' = 'a"_s;
    EXPECT_EQ(all(filter), QString());
}

TEST_P(AuditReaderTest, TheLastEntriesComeOldestFirst) {
    EXPECT_EQ(last({}, 2), u"35"_s);
    AuditFilter filter;
    filter.user = u"ana"_s;
    EXPECT_EQ(last(filter, 2), u"24"_s);
    EXPECT_EQ(last(filter, 100), u"124"_s);
}

TEST_P(AuditReaderTest, ALayoutWithoutItsIndexesIsReadAllTheSame) {
    for (const auto* index : {u"momento", u"usuario", u"empresa"})
        connection.execute(u"DROP INDEX ses_auditoria_"_s + QString::fromUtf16(index));
    EXPECT_EQ(all({}), u"12435"_s);
}

INSTANTIATE_TEST_SUITE_P(Engines, AuditReaderTest, testing::ValuesIn(dalvora::test::allEngines),
                         dalvora::test::engineName);

/// How the embedded database finds the rows of a query.
QString planOf(const QString& file, const QString& sql) {
    const auto database = sqlite::open(file, sqlite::Access::ReadWrite, 0);
    const sqlite::Statement plan = sqlite::prepare(database.get(), "EXPLAIN QUERY PLAN " + sql.toUtf8());
    QString text;
    while (sqlite3_step(plan.get()) == SQLITE_ROW)
        text += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(plan.get(), 3))) + u'\n';
    return text;
}

TEST(AuditIndexes, TheEmbeddedDatabaseReadsWhatIsAskedForAndSortsNothing) {
    const TestDatabase database(TestEngine::Sqlite);
    Connection connection;
    connection.open(database.connectString());
    QString sql;
    connection.setStatementObserver([&](const QString& statement) { sql = statement; });
    const QString file = database.connectString().section(u"Database="_s, 1).section(u';', 0, 0);
    const auto plan = [&](const AuditFilter& filter) {
        AuditReader(connection).all(filter, [](const AuditEntry&) {});
        return planOf(file, sql);
    };
    const QDate day(2026, 3, 5);
    for (const auto& [filter, index] :
         {std::pair(AuditFilter{{}, {}, {}, day, day}, u"ses_auditoria_momento (Momento>? AND Momento<?)"_s),
          std::pair(AuditFilter{u"ana"_s, {}, {}, day, {}},
                    u"ses_auditoria_usuario (Usuario=? AND Momento>?)"_s),
          std::pair(AuditFilter{{}, u"001"_s, {}, {}, {}}, u"ses_auditoria_empresa (Empresa=?)"_s)}) {
        const QString found = plan(filter);
        EXPECT_TRUE(found.contains(index)) << qPrintable(found);
        EXPECT_FALSE(found.contains(u"TEMP B-TREE"_s)) << qPrintable(found);
    }
}

} // namespace
