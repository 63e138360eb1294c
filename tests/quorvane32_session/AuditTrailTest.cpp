#include "platform/quorvane32/session/AuditTrail.h"

#include "tests/quorvane32_session/SessionSupport.h"

namespace {

using namespace quorvane;
using namespace quorvane::test;

class AuditTrailTest : public testing::Test {
protected:
    void SetUp() override {
        connection.open(QStringLiteral("Driver=sqlite;Timeout=10;Database=") + folder.database());
    }
    void add(const QString& text) {
        trail.add({QStringLiteral("2026-03-05 09:30:00.000"), QStringLiteral("ana"), QStringLiteral("001"),
                   QStringLiteral("VELTRANO"), AuditChange, text, QStringLiteral("pc-1")});
    }
    QString stored(const QString& expression) {
        return folder.value(QStringLiteral("SELECT ") + expression + QStringLiteral(" FROM ses_auditoria"));
    }
    SessionFolder folder;
    Connection connection;
    AuditTrail trail{connection};
};

TEST_F(AuditTrailTest, StoresEveryPartOfAnEntry) {
    add(QStringLiteral("001:COMISION:O'NEIL; DROP TABLE x --"));
    EXPECT_TRUE(trail.store());
    EXPECT_EQ(stored(QStringLiteral(
                  "Momento || '|' || Usuario || '|' || Empresa || '|' || Programa || '|' || Codigo "
                  "|| '|' || Texto || '|' || Equipo")),
              QStringLiteral("2026-03-05 09:30:00.000|ana|001|VELTRANO|5|001:COMISION:O'NEIL; DROP TABLE x "
                             "--|pc-1"));
}

TEST_F(AuditTrailTest, AnEntryThatCannotBeStoredWaitsForTheNextOne) {
    {
        const WriteLock lock(folder.database());
        add(QStringLiteral("uno"));
        EXPECT_FALSE(trail.store());
        add(QStringLiteral("dos"));
        EXPECT_FALSE(trail.store());
        EXPECT_EQ(trail.waiting(), 2U);
    }
    add(QStringLiteral("tres"));
    EXPECT_TRUE(trail.store());
    EXPECT_EQ(stored(QStringLiteral("group_concat(Texto)")), QStringLiteral("uno,dos,tres"));
}

TEST_F(AuditTrailTest, ABatchThatFailsHalfWayIsStoredOnceLater) {
    folder.execute(
        QStringLiteral("CREATE TRIGGER stop BEFORE INSERT ON ses_auditoria WHEN NEW.Texto = 'dos' BEGIN "
                       "SELECT raise(ABORT, 'no'); END"));
    add(QStringLiteral("uno"));
    add(QStringLiteral("dos"));
    EXPECT_FALSE(trail.store());
    folder.execute(QStringLiteral("DROP TRIGGER stop"));
    EXPECT_TRUE(trail.store());
    EXPECT_EQ(stored(QStringLiteral("group_concat(Texto)")), QStringLiteral("uno,dos"));
}

TEST_F(AuditTrailTest, NoMoreThanAThousandWaitAndTheLossIsTold) {
    {
        const WriteLock lock(folder.database());
        for (int i = 1; i <= 1003; ++i)
            add(QString::number(i));
        EXPECT_FALSE(trail.store());
        EXPECT_EQ(trail.waiting(), AuditTrail::mostWaiting);
    }
    EXPECT_TRUE(trail.store());
    EXPECT_EQ(stored(QStringLiteral("count(*)")), QStringLiteral("1001"));
    EXPECT_EQ(folder.value(QStringLiteral("SELECT Texto FROM ses_auditoria ORDER BY Id")),
              QStringLiteral("Se perdieron 3 entradas anteriores"));
    EXPECT_EQ(folder.value(QStringLiteral("SELECT Texto FROM ses_auditoria WHERE Id = 2")),
              QStringLiteral("4"));
}

} // namespace
