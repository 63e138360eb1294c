#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "tests/faults/SaverMarks.h"
#include "tests/faults/SchemeStates.h"
#include "tests/faults/TestCompany.h"
#include "tests/support/FakeSession.h"
#include "tests/support/QtPrinters.h"
#include <QElapsedTimer>
#include <QProcess>
#include <csignal>
#include <cstdio>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace dalvora::test {

namespace {

using namespace Qt::StringLiterals;
using std::chrono::microseconds;

#ifdef DALVORA_SANITIZED
constexpr int productLines = 60; // a save costs several times as much there
#else
constexpr int productLines = 400;
#endif
constexpr int firstState = 1;
constexpr int processPatience = 30'000; // ms

/// How far a killed program had come.
enum class Moment { BeforeTransaction, InTransaction, AfterReturn };

struct Killed {
    Moment moment = Moment::BeforeTransaction;
    int statements = 0;
};

/// Times from the signal to go until the kill, spread evenly over the operation and some time after it. How
/// long that is changes with what else the machine does, so the span follows what the kills have hit: less
/// than a third of them come too late.
class Delays {
public:
    explicit Delays(microseconds operation) : m_span(static_cast<double>(operation.count()) * 5 / 4) {}

    microseconds next() {
        return microseconds(
            static_cast<microseconds::rep>(std::uniform_real_distribution(0.0, m_span)(m_random)));
    }
    void note(Moment hit) { m_span *= hit == Moment::AfterReturn ? 0.95 : 1.02; }

private:
    double m_span;
    std::mt19937 m_random{std::random_device{}()};
};

class KilledSaveTest : public testing::Test {
protected:
    KilledSaveTest() { states.store(company, firstState); }

    void begin(QProcess& saver, const QString& command) {
        saver.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        saver.start(QStringLiteral(FAULT_SAVER),
                    {company.path(), states.code(), QString::number(productLines), command});
        ASSERT_TRUE(saver.waitForReadyRead(processPatience));
        ASSERT_EQ(saver.read(1), QByteArray(1, MarkReady));
    }

    /// From the signal to go until the program has told its success.
    microseconds durationOf(const QString& command) {
        QProcess saver;
        begin(saver, command);
        QElapsedTimer clock;
        clock.start();
        saver.write("g");
        QByteArray told;
        while (!told.endsWith(MarkDone) && saver.waitForReadyRead(processPatience))
            told += saver.readAll();
        const microseconds taken(clock.nsecsElapsed() / 1000);
        EXPECT_TRUE(told.endsWith(MarkDone)) << told.constData();
        saver.waitForFinished(processPatience);
        statementsOfOne = static_cast<int>(told.count(MarkStatement));
        return taken;
    }

    Killed killAfter(const QString& command, microseconds delay) {
        QProcess saver;
        begin(saver, command);
        saver.write("g");
        saver.waitForBytesWritten(processPatience);
        std::this_thread::sleep_for(delay);
        ::kill(static_cast<pid_t>(saver.processId()), SIGKILL);
        saver.waitForFinished(processPatience);
        const QByteArray told = saver.readAll();
        EXPECT_FALSE(told.contains(MarkFailed));
        Killed killed;
        killed.statements = static_cast<int>(told.count(MarkStatement));
        if (told.contains(MarkDone))
            killed.moment = Moment::AfterReturn;
        else if (killed.statements > 0)
            killed.moment = Moment::InTransaction;
        return killed;
    }

    /// The next program opens the database and reads the scheme, whole.
    void expectReadable(int state) {
        quorvane::Connection connection;
        connection.open(u"Driver=sqlite;Database=%1;Timeout=0"_s.arg(company.database()));
        FakeSession session;
        session.company = u"001"_s;
        const quorvane::RegionalSettings regional;
        DBTable table(connection, session, regional);
        ASSERT_TRUE(table.DBInitialize());
        EXPECT_EQ(states.read(table), state);
        EXPECT_EQ(table.DetailsCount() - 1 + table.MontosCount() - 1 + table.PreciosCount() - 1,
                  states.rows(state).size() - 1);
    }

    TestCompany company;
    SchemeStates states{u"C1"_s, productLines};
    int statementsOfOne = 0;
};

class KilledSaves : public KilledSaveTest {
protected:
    void killOnce(Delays& delays) {
        const int before = states.storedState(company);
        const Killed killed = killAfter(u"save"_s, delays.next());
        const int after = states.storedState(company);
        delays.note(killed.moment);
        count(killed);
        if (killed.moment == Moment::BeforeTransaction)
            EXPECT_EQ(after, before) << "nothing had been asked of the database";
        else if (killed.moment == Moment::AfterReturn)
            EXPECT_EQ(after, before + 1) << "a save that has been told as done stays done";
        else
            EXPECT_TRUE(after == before || after == before + 1) << before << " became " << after;
        EXPECT_EQ(states.storedRows(company), states.rows(after))
            << "killed at statement " << killed.statements;
        EXPECT_EQ(company.integrity(), u"ok"_s);
        expectReadable(after);
    }

    void count(const Killed& killed) {
        ++moments[static_cast<int>(killed.moment)];
        if (killed.moment == Moment::InTransaction)
            ++quarters[std::min(3, killed.statements * 4 / std::max(1, statementsOfOne))];
    }

    void killMany() {
        constexpr int kills = 120;
        constexpr int leastInside = kills / 4;
        Delays delays(durationOf(u"save"_s));
        for (int i = 0; i < kills && !HasFailure(); ++i)
            killOnce(delays);
        std::printf("killed %d before, %d inside (by quarters of its statements %d %d %d %d), %d after\n",
                    moments[0], moments[1], quarters[0], quarters[1], quarters[2], quarters[3], moments[2]);
        EXPECT_GE(moments[static_cast<int>(Moment::InTransaction)], leastInside);
        EXPECT_GT(moments[static_cast<int>(Moment::AfterReturn)], 0);
    }

    int moments[3] = {};
    int quarters[4] = {};
};

} // namespace

TEST_F(KilledSaves, LeaveTheOldOrTheNewSchemeWhole) {
    killMany();
}

// With another program at work nobody recovers the database on opening it: the survivors do, and the log of
// changes grows until a save takes it into the file.
TEST_F(KilledSaves, LeaveItWholeForAProgramThatLivesOn) {
    const auto other = quorvane::sqlite::open(company.database(), quorvane::sqlite::Access::ReadWrite, 1000);
    quorvane::sqlite::run(other.get(), "SELECT count(*) FROM Comisiones");
    killMany();
}

TEST_F(KilledSaveTest, AKilledDeleteRemovesTheSchemeWholeOrNotAtAll) {
    constexpr int kills = 50;
    Delays delays(durationOf(u"delete"_s));
    int gone = 0;
    for (int i = 0; i < kills; ++i) {
        if (states.storedState(company) < 0)
            states.store(company, firstState);
        delays.note(killAfter(u"delete"_s, delays.next()).moment);
        const QStringList left = states.storedRows(company);
        EXPECT_TRUE(left.isEmpty() || left == states.rows(firstState)) << left.size() << " rows left";
        EXPECT_EQ(company.integrity(), u"ok"_s);
        gone += left.isEmpty() ? 1 : 0;
    }
    EXPECT_GT(gone, 0);
    EXPECT_LT(gone, kills);
}

} // namespace dalvora::test
