#include "tests/host/StartedPrograms.h"
#include <QElapsedTimer>
#include <QScopeGuard>
#include <csignal>

namespace dalvora::test {

using namespace Qt::StringLiterals;

TEST_F(StartedPrograms, AFirstProgramThatHangsDelaysTheNextButDoesNotKeepItFromStarting) {
    const Started first = start(u"EMPRESA=001"_s);
    ASSERT_TRUE(answers(u"001"_s));
    ASSERT_EQ(::kill(static_cast<pid_t>(first->processId()), SIGSTOP), 0);
    QElapsedTimer clock;
    clock.start();
    const Started second = start(u"EMPRESA=001"_s);
    EXPECT_TRUE(haveBegun(2));
    EXPECT_GE(clock.elapsed(), 3000) << "it was given time to answer";
    EXPECT_EQ(second->state(), QProcess::Running);
    // Awake again, it answers the next one.
    ASSERT_EQ(::kill(static_cast<pid_t>(first->processId()), SIGCONT), 0);
    const Started third = start(u"EMPRESA=001"_s);
    EXPECT_EQ(exitCode(*third), 0);
}

TEST_F(StartedPrograms, OneThatWasStartedBesideAHangingFirstTakesItsPlaceWhenThatIsKilled) {
    const Started first = start(u"EMPRESA=001"_s);
    ASSERT_TRUE(answers(u"001"_s));
    ASSERT_EQ(::kill(static_cast<pid_t>(first->processId()), SIGSTOP), 0);
    const Started second = start(u"EMPRESA=001"_s);
    ASSERT_TRUE(haveBegun(2));
    first->kill();
    ASSERT_TRUE(first->waitForFinished());
    EXPECT_TRUE(answers(u"001"_s)) << "the ERP finds it";
    const Started third = start(u"EMPRESA=001"_s);
    EXPECT_EQ(exitCode(*third), 0);
    EXPECT_EQ(second->state(), QProcess::Running);
}

} // namespace dalvora::test
