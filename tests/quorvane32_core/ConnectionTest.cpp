#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/ErrorOf.h"
#include <QStringList>
#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::errorOf;

namespace {

/// What the engines of a test have been asked, and how they shall fail.
struct Script {
    int opened = 0;
    int alive = 0;
    QStringList calls;
    int failWith = 0;

    void call(const QString& name) {
        calls << name;
        if (failWith)
            throw RunTimeError(failWith, "fallo");
    }
};

struct ScriptedCursor final : Cursor {
    explicit ScriptedCursor(Script& s) : script(s) {}
    bool next() override {
        script.call("next");
        return true;
    }
    int columnCount() const override { return 1; }
    QString columnName(int) const override { return "n"; }
    Value value(int) override { return 1; }
    Script& script;
};

struct ScriptedEngine final : Engine {
    explicit ScriptedEngine(Script& s) : script(s) {
        ++script.opened;
        ++script.alive;
    }
    ScriptedEngine(const ScriptedEngine&) = delete;
    ScriptedEngine& operator=(const ScriptedEngine&) = delete;
    ~ScriptedEngine() override { --script.alive; }
    std::unique_ptr<Cursor> select(const QString& sql) override {
        script.call(sql);
        return std::make_unique<ScriptedCursor>(script);
    }
    qint64 execute(const QString& sql) override {
        script.call(sql);
        return 3;
    }
    void begin() override { script.call("begin"); }
    void commit() override { script.call("commit"); }
    void rollback() override { script.call("rollback"); }
    Script& script;
};

class ConnectionTest : public ::testing::Test {
protected:
    void SetUp() override { connection.open("any"); }

    Script script;
    Connection connection{[this](const QString&) { return std::make_unique<ScriptedEngine>(script); }};
};

} // namespace

TEST_F(ConnectionTest, ObserverSeesStatementsAsGiven) {
    QStringList seen;
    connection.setStatementObserver([&](const QString& sql) { seen << sql; });
    connection.execute("DELETE  FROM t ");
    connection.openRecordset("SELECT 1 ");
    EXPECT_EQ(seen, (QStringList{"DELETE  FROM t ", "SELECT 1 "}));
}

TEST_F(ConnectionTest, ALostConnectionIsReportedAndTheNextCommandReconnects) {
    script.failWith = ErrorConnectionLost;
    EXPECT_EQ(errorOf([&] { connection.execute("a"); }), ErrorConnectionLost);
    EXPECT_EQ(connection.errors().back().number, ErrorConnectionLost);
    script.failWith = 0;
    EXPECT_EQ(connection.execute("b"), 3);
    EXPECT_EQ(script.opened, 2);
    EXPECT_TRUE(connection.errors().empty());
}

TEST_F(ConnectionTest, ALostTransactionDoesNotContinueOnANewConnection) {
    connection.beginTrans();
    script.failWith = ErrorConnectionLost;
    EXPECT_EQ(errorOf([&] { connection.execute("a"); }), ErrorConnectionLost);
    script.failWith = 0;
    EXPECT_EQ(errorOf([&] { connection.execute("b"); }), ErrorConnectionLost);
    EXPECT_EQ(errorOf([&] { connection.commitTrans(); }), ErrorConnectionLost);
    connection.rollbackTrans();
    EXPECT_EQ(connection.execute("c"), 3);
    EXPECT_FALSE(script.calls.contains("b"));
}

TEST_F(ConnectionTest, ALossWhileFetchingIsNoticed) {
    Recordset rows = connection.openRecordset("SELECT 1");
    script.failWith = ErrorConnectionLost;
    EXPECT_EQ(errorOf([&] { rows.moveNext(); }), ErrorConnectionLost);
    EXPECT_TRUE(rows.eof());
    script.failWith = 0;
    connection.execute("a");
    EXPECT_EQ(script.opened, 2);
}

TEST_F(ConnectionTest, AFailedCommitLeavesTheTransactionToBeRolledBack) {
    connection.beginTrans();
    script.failWith = ErrorDiskFull;
    EXPECT_EQ(errorOf([&] { connection.commitTrans(); }), ErrorDiskFull);
    EXPECT_TRUE(connection.inTransaction());
    connection.rollbackTrans();
    EXPECT_FALSE(connection.inTransaction());
    EXPECT_EQ(script.calls.last(), "rollback");
}

TEST_F(ConnectionTest, RollingBackALostTransactionGivesTheEngineUpAtOnce) {
    connection.beginTrans();
    script.failWith = ErrorConnectionLost;
    EXPECT_EQ(errorOf([&] { connection.execute("a"); }), ErrorConnectionLost);
    connection.rollbackTrans();
    EXPECT_EQ(script.alive, 0);
    EXPECT_FALSE(script.calls.contains("rollback"));
    script.failWith = 0;
    connection.beginTrans();
    EXPECT_EQ(script.opened, 2);
}

TEST_F(ConnectionTest, AnEngineThatCannotRollBackIsGivenUpAtOnce) {
    connection.beginTrans();
    script.failWith = ErrorDiskFull;
    connection.rollbackTrans();
    EXPECT_EQ(script.alive, 0);
    script.failWith = 0;
    EXPECT_EQ(connection.execute("a"), 3);
    EXPECT_EQ(script.opened, 2);
}

TEST_F(ConnectionTest, AResultOfAFormerEngineDoesNotGiveUpTheNewOne) {
    Recordset old = connection.openRecordset("SELECT 1");
    script.failWith = ErrorConnectionLost;
    EXPECT_EQ(errorOf([&] { connection.execute("a"); }), ErrorConnectionLost);
    script.failWith = 0;
    connection.beginTrans();
    script.failWith = ErrorConnectionLost;
    EXPECT_EQ(errorOf([&] { old.moveNext(); }), ErrorConnectionLost);
    EXPECT_EQ(connection.errors().back().number, ErrorConnectionLost);
    script.failWith = 0;
    EXPECT_EQ(connection.execute("b"), 3);
    connection.commitTrans();
    EXPECT_EQ(script.opened, 2);
}
