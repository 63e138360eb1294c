// The program itself started while it runs already.
#include "app/FirstInstance.h"
#include "tests/host/StartedPrograms.h"
#include "tests/support/QtPrinters.h"
#include <QTest>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

using SecondStart = StartedPrograms;

} // namespace

TEST_F(SecondStart, WithTheSameCompanyEndsAndLeavesTheFirstAtWork) {
    const Started first = start(u"EMPRESA=001"_s);
    ASSERT_TRUE(answers(u"001"_s));
    const Started second = start(u"EMPRESA=001"_s);
    EXPECT_EQ(exitCode(*second), 0);
    EXPECT_EQ(first->state(), QProcess::Running);
    EXPECT_TRUE(answers(u"001"_s));
    EXPECT_TRUE(haveBegun(1)) << "the second one has not come as far as the database";
}

TEST_F(SecondStart, WithoutACompanyIsMeasuredByTheOneThatWasSignedInTo) {
    const Started first = start(QString());
    ASSERT_TRUE(answers(u"001"_s));
    const Started second = start(QString());
    EXPECT_EQ(exitCode(*second), 0);
    EXPECT_TRUE(haveBegun(1));
}

TEST_F(SecondStart, WithAnotherCompanyOrProfileRunsBeside) {
    const Started first = start(u"EMPRESA=001"_s);
    const Started second = start(u"EMPRESA=002"_s);
    const QTemporaryDir other;
    const Started third = start(u"EMPRESA=001"_s, other.path());
    EXPECT_TRUE(answers(u"001"_s));
    EXPECT_TRUE(answers(u"002"_s));
    EXPECT_TRUE(haveBegun(2));
    EXPECT_FALSE(third->waitForFinished(1000));
    EXPECT_EQ(first->state(), QProcess::Running);
    EXPECT_EQ(second->state(), QProcess::Running);
}

TEST_F(SecondStart, IsNotNeededToOpenAScheme) {
    const Started program = start(u"EMPRESA=001"_s);
    ASSERT_TRUE(answers(u"001"_s));
    const QString topic = hostTopic(home.path(), u"001"_s);
    EXPECT_EQ(errorOfAsking(topic, u"ACCION=ABRIR;CLAVE=MIXTA;HABILITADO=N"_s), 0);
    EXPECT_TRUE(haveRead(1));
    EXPECT_EQ(errorOfAsking(topic, u"ACCION=ABRIR;CLAVE=OTRA;EMPRESA=002"_s), quorvane::ErrorLinkRefused);
}

TEST_F(SecondStart, AfterTheFirstWasKilledStartsAsUsual) {
    const Started first = start(u"EMPRESA=001"_s);
    ASSERT_TRUE(answers(u"001"_s));
    first->kill();
    ASSERT_TRUE(first->waitForFinished());
    const Started second = start(u"EMPRESA=001"_s);
    EXPECT_TRUE(answers(u"001"_s));
    EXPECT_EQ(second->state(), QProcess::Running);
    EXPECT_TRUE(haveBegun(2));
}

TEST_F(SecondStart, AtTheSameInstantLeavesOneOrBothButNeverNone) {
    const Started one = start(u"EMPRESA=001"_s);
    const Started other = start(u"EMPRESA=001"_s);
    ASSERT_TRUE(answers(u"001"_s));
    QTest::qWait(2000);
    const bool oneRuns = one->state() == QProcess::Running;
    const bool otherRuns = other->state() == QProcess::Running;
    EXPECT_TRUE(oneRuns || otherRuns);
    for (QProcess* each : {one.get(), other.get()}) {
        if (each->state() == QProcess::NotRunning) {
            EXPECT_EQ(exitCode(*each), 0);
        }
    }
}

} // namespace dalvora::test
