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
    std::mt19937 random{std::random_device{}()};
};

/// Kills spread evenly from the signal to go to some time after the save.
class KilledSaves : public KilledSaveTest {
protected:
    void killOnce() {
        std::uniform_int_distribution<microseconds::rep> delays(0, span.count());
        const int before = states.storedState(company);
        const Killed killed = killAfter(u"save"_s, microseconds(delays(random)));
        const int after = states.storedState(company);
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
        if (killed.moment != Moment::InTransaction)
            return;
        const int place = std::min(3, killed.statements * 4 / std::max(1, statementsOfOne));
        ++quarters[place];
    }

    /// At least this many, and as many more as it takes to have hit the inside of the transaction often.
    void killMany(int least, int leastInside) {
        const int most = 3 * least;
        int kills = 0;
        const auto inside = [&] { return moments[static_cast<int>(Moment::InTransaction)]; };
        for (; kills < least || (inside() < leastInside && kills < most); ++kills) {
            if (kills % 50 == 0) {
                const microseconds taken = durationOf(u"save"_s);
                span = taken + taken / 4;
            }
            ASSERT_NO_FATAL_FAILURE(killOnce());
            if (HasFailure())
                return;
        }
        std::printf("%d kills: %d before, %d inside (quarters %d %d %d %d), %d after; last span %lld us\n",
                    kills, moments[0], moments[1], quarters[0], quarters[1], quarters[2], quarters[3],
                    moments[2], static_cast<long long>(span.count()));
        EXPECT_GE(inside(), leastInside);
        EXPECT_GT(moments[2], 0);
    }

    microseconds span{};
    int moments[3] = {};
    int quarters[4] = {};
};

} // namespace

TEST_F(KilledSaves, LeaveTheOldOrTheNewSchemeWhole) {
    killMany(120, 30);
}

// With another program at work nobody recovers the database on opening it: the survivors do, and the log of
// changes grows until a save takes it into the file.
TEST_F(KilledSaves, LeaveItWholeForAProgramThatLivesOn) {
    const auto other = quorvane::sqlite::open(company.database(), quorvane::sqlite::Access::ReadWrite, 1000);
    quorvane::sqlite::run(other.get(), "SELECT count(*) FROM Comisiones");
    killMany(120, 30);
}

TEST_F(KilledSaveTest, AKilledDeleteRemovesTheSchemeWholeOrNotAtAll) {
    const microseconds span = durationOf(u"delete"_s) * 3 / 2;
    std::uniform_int_distribution<microseconds::rep> delays(0, span.count());
    int gone = 0;
    for (int i = 0; i < 30; ++i) {
        if (states.storedState(company) < 0)
            states.store(company, firstState);
        killAfter(u"delete"_s, microseconds(delays(random)));
        const QStringList left = states.storedRows(company);
        EXPECT_TRUE(left.isEmpty() || left == states.rows(firstState)) << left.size() << " rows left";
        EXPECT_EQ(company.integrity(), u"ok"_s);
        gone += left.isEmpty() ? 1 : 0;
    }
    EXPECT_GT(gone, 0);
    EXPECT_LT(gone, 30);
}

} // namespace dalvora::test
