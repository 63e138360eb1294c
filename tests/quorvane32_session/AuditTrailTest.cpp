#include "platform/quorvane32/session/AuditTrail.h"

#include "tests/quorvane32_session/SessionSupport.h"
#include "tests/support/FailEngine.h"

namespace {

using namespace quorvane;
using namespace quorvane::test;

class AuditTrailTest : public testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override { connection.open(folder.connectString(10)); }
    void add(const QString& text) {
        trail.add({QStringLiteral("2026-03-05 09:30:00.000"), QStringLiteral("ana"), QStringLiteral("001"),
                   QStringLiteral("VELTRANO"), AuditChange, text, QStringLiteral("pc-1")});
    }
    /// The entries in their order.
    QStringList stored(const QString& columns = QStringLiteral("Texto")) {
        return folder.rows(QStringLiteral("SELECT %1 FROM ses_auditoria ORDER BY Id").arg(columns));
    }
    /// The database refuses entries with the text "dos".
    void refuseTheSecond() const {
        if (folder.isFile())
            folder.execute(
                QStringLiteral("CREATE TRIGGER stop BEFORE INSERT ON ses_auditoria WHEN NEW.Texto = 'dos' "
                               "BEGIN SELECT raise(ABORT, 'no'); END"));
        else if (GetParam() == TestEngine::TestSqlServer) // once, on demand
            dalvora::test::TestDatabase::failOnce(QStringLiteral("'dos'"), ErrorForeignKey);
        else
            folder.execute(
                QStringLiteral("ALTER TABLE ses_auditoria ADD CONSTRAINT stop CHECK (Texto <> 'dos')"));
    }
    /// It takes them again.
    void acceptTheSecond() const {
        if (folder.isFile())
            folder.execute(QStringLiteral("DROP TRIGGER stop"));
        else if (GetParam() != TestEngine::TestSqlServer)
            folder.execute(QStringLiteral("ALTER TABLE ses_auditoria DROP CONSTRAINT stop"));
    }
    SessionFolder folder{GetParam()};
    Connection connection;
    AuditTrail trail{connection};
};

TEST_P(AuditTrailTest, StoresEveryPartOfAnEntry) {
    add(QStringLiteral("001:COMISION:O'NEIL; DROP TABLE x --"));
    EXPECT_TRUE(trail.store());
    EXPECT_EQ(stored(QStringLiteral("Momento, Usuario, Empresa, Programa, Codigo, Texto, Equipo")),
              QStringList(QStringLiteral("2026-03-05 09:30:00.000|ana|001|VELTRANO|5|001:COMISION:O'NEIL; "
                                         "DROP TABLE x --|pc-1")));
}

TEST_P(AuditTrailTest, AnEntryThatCannotBeStoredWaitsForTheNextOne) {
    {
        const WriteLock lock(folder);
        add(QStringLiteral("uno"));
        EXPECT_FALSE(trail.store());
        add(QStringLiteral("dos"));
        EXPECT_FALSE(trail.store());
        EXPECT_EQ(trail.waiting(), 2U);
    }
    add(QStringLiteral("tres"));
    EXPECT_TRUE(trail.store());
    EXPECT_EQ(stored().join(u','), QStringLiteral("uno,dos,tres"));
}

TEST_P(AuditTrailTest, ABatchThatFailsHalfWayIsStoredOnceLater) {
    refuseTheSecond();
    add(QStringLiteral("uno"));
    add(QStringLiteral("dos"));
    EXPECT_FALSE(trail.store());
    acceptTheSecond();
    EXPECT_TRUE(trail.store());
    EXPECT_EQ(stored().join(u','), QStringLiteral("uno,dos"));
}

TEST_P(AuditTrailTest, AConnectionLostSinceTheLastEntryCostsNoDelay) {
    using dalvora::test::FailEngine;
    dalvora::test::FailPlan plan;
    Connection failing([&plan](const QString& connectString) {
        return std::make_unique<FailEngine>(openEngine(connectString), plan);
    });
    failing.open(folder.connectString());
    AuditTrail over(failing);
    plan.atStatement = 1;
    plan.error = RunTimeError(ErrorConnectionLost, QStringLiteral("Se perdió la conexión"));
    over.add({QStringLiteral("m"), QStringLiteral("ana"), QStringLiteral("001"), QStringLiteral("VELTRANO"),
              AuditChange, QStringLiteral("uno"), QString()});
    EXPECT_TRUE(over.store());
    EXPECT_EQ(stored(), QStringList(QStringLiteral("uno")));
}

TEST_P(AuditTrailTest, NoMoreThanAThousandWaitAndTheLossIsTold) {
    {
        const WriteLock lock(folder);
        for (int i = 1; i <= 1003; ++i)
            add(QString::number(i));
        EXPECT_FALSE(trail.store());
        EXPECT_EQ(trail.waiting(), AuditTrail::mostWaiting);
    }
    EXPECT_TRUE(trail.store());
    const QStringList entries = stored();
    ASSERT_EQ(entries.size(), 1001);
    EXPECT_EQ(entries[0], QStringLiteral("Se perdieron 3 entradas anteriores"));
    EXPECT_EQ(entries[1], QStringLiteral("4"));
}

INSTANTIATE_TEST_SUITE_P(Engines, AuditTrailTest, testing::ValuesIn(allEngines), engineName);

} // namespace
