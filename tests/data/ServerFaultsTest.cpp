// A save while its server stops, or its link breaks: told, nothing half stored, and the same save works
// later.
#include "platform/quorvane32/core/ConnectString.h"
#include "tests/data/StoredFixture.h"
#include "tests/support/Relay.h"
#include <iostream>

using namespace dalvora;
using namespace dalvora::test;
using quorvane::Connection;

namespace {

class ServerFaults : public StoredTest {
protected:
    ServerFaults() {
        relay.setDelay(0);
        program.begin(u"C1"_s);
        program.addDetail(u"A1"_s);
        program.addDetail(u"A2"_s);
        program.addMonto(u"FAC"_s);
        EXPECT_TRUE(program.table.DBWrite(true));
        EXPECT_TRUE(program.read(u"C1"_s));
        before = stored();
        change();
    }
    /// Header, two lines and a new one: four statements.
    void change() {
        program.table.setTextValue(3, u"cambiada"_s);
        program.table.Details(1).setTextValue(6, u"6"_s);
        program.table.Details(2).setTextValue(6, u"7"_s);
        program.addPrecio(u"MIN"_s);
    }
    /// Does something when the save sends its statement of this number.
    void atStatement(int number, const std::function<void()>& work) {
        program.connection.setStatementObserver([this, number, work, sent = 0](const QString&) mutable {
            if (++sent == number)
                work();
        });
    }
    void expectLost() {
        const auto told = recorder.take();
        ASSERT_EQ(told.size(), 1U);
        EXPECT_TRUE(told[0].text.startsWith(u"Error al grabar registro"_s)) << told[0].text.toStdString();
        EXPECT_TRUE(told[0].text.contains(u"\n3709 - "_s)) << told[0].text.toStdString();
        EXPECT_EQ(told[0].style, 16);
        EXPECT_TRUE(program.table.SysRecordEnabled);
        EXPECT_EQ(program.table.Descripcion(), u"cambiada"_s);
        EXPECT_EQ(program.table.Details(1).TextValue(6), u"6,00"_s);
        program.connection.setStatementObserver({});
    }
    void expectTheSameSaveToWork() {
        EXPECT_TRUE(program.table.DBWrite(true));
        expectSilence();
        EXPECT_EQ(countStored(u"Comisiones"_s, u"descripcion = 'cambiada'"_s), 1);
        EXPECT_EQ(countStored(u"ComisionesD"_s, u"porcentaje in (6, 7)"_s), 2);
        EXPECT_EQ(countStored(u"ComisionesD"_s, u"concepto = 'MIN'"_s), 1);
    }
    /// Ends the sessions of this database on the server, as its administrator would.
    void endSessions() const {
        Connection administrator;
        administrator.open(TestDatabase::cluster().connectString(u"postgres"_s));
        administrator.openRecordset(
            u"select pg_terminate_backend(pid) ended from pg_stat_activity where datname = '%1'"_s.arg(
                databaseName()));
    }
    QString databaseName() const {
        return quorvane::ConnectString::parse(database.connectString()).value(u"database"_s);
    }
    QString throughRelay() const {
        auto options = quorvane::ConnectString::parse(database.connectString());
        options.setValue(u"host"_s, relay.host());
        return options.toString();
    }

    PostgresCluster& cluster = TestDatabase::cluster();
    Relay relay{cluster.host()};
    Program program{throughRelay()};
    QStringList before;
};

} // namespace

TEST_P(ServerFaults, TheServerIsDownBeforeTheSave) {
    cluster.kill();
    EXPECT_FALSE(program.table.DBWrite(true));
    expectLost();
    EXPECT_FALSE(program.table.DBWrite(true)) << "still down";
    expectLost();
    cluster.start();
    EXPECT_EQ(stored(), before);
    expectTheSameSaveToWork();
}

TEST_P(ServerFaults, TheServerDiesAtAnyStatementOfTheSave) {
    for (const int statement : {1, 2, 4}) {
        atStatement(statement, [this] { cluster.kill(); });
        EXPECT_FALSE(program.table.DBWrite(true)) << statement;
        expectLost();
        cluster.start();
        EXPECT_EQ(stored(), before) << statement;
    }
    expectTheSameSaveToWork();
}

TEST_P(ServerFaults, TheSessionIsEndedInTheMiddleOfTheSave) {
    atStatement(3, [this] { endSessions(); });
    EXPECT_FALSE(program.table.DBWrite(true));
    expectLost();
    EXPECT_EQ(stored(), before);
    expectTheSameSaveToWork();
}

TEST_P(ServerFaults, TheNetworkBreaksInTheMiddleOfTheSave) {
    relay.cutAfter("concepto='A2'");
    EXPECT_FALSE(program.table.DBWrite(true));
    expectLost();
    EXPECT_EQ(stored(), before);
    expectTheSameSaveToWork();
}

TEST_P(ServerFaults, TheServerDiesRightAfterTheSave) {
    EXPECT_TRUE(program.table.DBWrite(true));
    cluster.kill();
    cluster.start();
    EXPECT_NE(stored(), before);
    EXPECT_FALSE(program.read(u"C1"_s)) << "the connection is gone";
    EXPECT_EQ(recorder.take().size(), 1U);
    ASSERT_TRUE(program.read(u"C1"_s));
    EXPECT_EQ(program.table.Descripcion(), u"cambiada"_s);
}

TEST_P(ServerFaults, ACommitWhoseAnswerIsLostIsToldAsUnknownAndTheNextReadTellsTheTruth) {
    relay.cutAfter("COMMIT");
    EXPECT_FALSE(program.table.DBWrite(true));
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].text.contains(u"no se sabe si quedaron guardados"_s)) << told[0].text.toStdString();
    EXPECT_TRUE(program.table.SysRecordEnabled);
    ASSERT_TRUE(program.read(u"C1"_s));
    EXPECT_EQ(program.table.Descripcion(), u"cambiada"_s) << "the server had stored it";
    expectSilence();
}

TEST_P(ServerFaults, AReadThatIsCutTellsAndTheNextOneWorks) {
    relay.cutAfter("tipo= 'Monto'");
    EXPECT_FALSE(program.read(u"C1"_s));
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].text.startsWith(u"Error al leer registro\n3709 - "_s)) << told[0].text.toStdString();
    EXPECT_TRUE(program.read(u"C1"_s));
    EXPECT_EQ(program.table.DetailsCount(), 3);
    expectSilence();
}

TEST_P(ServerFaults, ARightThatIsMissingIsTold) {
    Connection owner;
    owner.open(database.connectString());
    owner.execute(u"create role lector login"_s);
    owner.execute(u"grant select on all tables in schema public to lector"_s);
    owner.execute(u"alter database %1 set role lector"_s.arg(databaseName()));
    Program reader(database);
    ASSERT_TRUE(reader.read(u"C1"_s));
    reader.table.setTextValue(3, u"otra"_s);
    EXPECT_FALSE(reader.table.DBWrite(true));
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].text.startsWith(
        u"Error al grabar registro\n70 - No tiene permiso sobre una tabla de la base de datos"_s))
        << told[0].text.toStdString();
    owner.execute(u"drop owned by lector"_s);
    owner.execute(u"alter database %1 reset role"_s.arg(databaseName()));
    owner.execute(u"drop role lector"_s);
}

TEST_P(ServerFaults, ASlowLinkIsAskedNoMoreThanNeeded) {
    relay.setDelay(20);
    const auto tripsOf = [this](const std::function<void()>& work) {
        const int earlier = relay.roundTrips();
        work();
        return relay.roundTrips() - earlier;
    };
    const int few = tripsOf([&] { ASSERT_TRUE(program.read(u"C1"_s)); });
    int statements = 0;
    change();
    program.connection.setStatementObserver([&](const QString&) { ++statements; });
    const int save = tripsOf([&] { EXPECT_TRUE(program.table.DBWrite(true)); });
    program.connection.setStatementObserver({});
    ASSERT_TRUE(program.read(u"C1"_s));
    relay.setDelay(0);
    for (int i = 1; i <= 1000; ++i)
        program.addMonto(u"FAC"_s, i, i + 1);
    ASSERT_TRUE(program.table.DBWrite(true));
    relay.setDelay(20);
    const int many = tripsOf([&] { ASSERT_TRUE(program.read(u"C1"_s)); });
    std::cout << "round trips: read of 4 lines " << few << ", of 1004 lines " << many << ", save of "
              << statements << " statements " << save << '\n';
    EXPECT_EQ(many, few);
    EXPECT_LE(few, 4) << "one for each statement of a read";
    EXPECT_LE(save, statements + 3);
}

INSTANTIATE_TEST_SUITE_P(Engines, ServerFaults,
                         testing::Values(TestEngine::PostgreSql, TestEngine::OdbcPostgreSql), engineName);
