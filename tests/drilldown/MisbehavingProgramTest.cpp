#include "tests/drilldown/ClickFixture.h"
#include <QFile>

using namespace dalvora;
using namespace dalvora::test;

namespace {

const QString noContact = u"No se pudo establecer comunicación con la aplicación"_s;
const QString notDone = u"Aplicación no procesó el requerimiento"_s;
const QString nobody = u"282 - Ninguna aplicación externa respondió a una iniciación de DDE"_s;
const QString timeOut = u"286 - Se agotó el tiempo de espera de la respuesta de DDE"_s;

class MisbehavingProgram : public ClickTest {
protected:
    /// A click with the program of this mode; how long it took, in ms.
    qint64 timedClick(const QByteArray& mode) {
        programs.installDouble(mode);
        QElapsedTimer time;
        time.start();
        click(u"FACTURA"_s, u"10250"_s);
        return time.elapsed();
    }
};

TEST_P(MisbehavingProgram, OneThatCannotBeStartedIsToldWithItsFolder) {
    click(u"FACTURA"_s, u"10250"_s);
    expectTold(u"No se pudo iniciar aplicación "_s + programs.folder() + u"\\Lorbadeno.Exe"_s, nobody);
    expectAlive();
}

TEST_P(MisbehavingProgram, AFileThatIsNoProgramCannotBeStarted) {
    QFile file(programs.folder() + u"/Lorbadeno.Exe"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("nada") > 0);
    file.close();
    click(u"FACTURA"_s, u"10250"_s);
    expectTold(u"No se pudo iniciar aplicación "_s + programs.folder() + u"\\Lorbadeno.Exe"_s, nobody);
}

TEST_P(MisbehavingProgram, OneThatIsSlowToStartIsWaitedFor) {
    timedClick("late");
    expectSilence();
    expectAlive();
}

TEST_P(MisbehavingProgram, OneThatNeverAnswersIsGivenUp) {
    timedClick("mute");
    expectTold(noContact, nobody);
    EXPECT_NE(programs.running(), 0);
    EXPECT_GT(beats, 50);
    expectAlive();
}

TEST_P(MisbehavingProgram, SilenceCostsTheTimeOutOnceAndTheEventsGoOn) {
    constexpr qint64 fiveSeconds = 5000;
    constexpr qint64 attempts = 11;
    constexpr qint64 longestWait = 3000; // 20,000 yields on a busy machine
    const qint64 took = timedClick("silent");
    expectTold(noContact, timeOut);
    EXPECT_GE(took, fiveSeconds - 100);
    EXPECT_LT(took, fiveSeconds + attempts * longestWait);
    EXPECT_GT(beats, 200);
    expectAlive();
}

TEST_P(MisbehavingProgram, SilenceAfterTheCommandCostsTheTimeOut) {
    const qint64 took = timedClick("silent-command");
    expectTold(notDone, timeOut);
    EXPECT_GE(took, 4900);
    EXPECT_GT(beats, 200);
    expectAlive();
}

TEST_P(MisbehavingProgram, OneThatDiesWithTheCommandIsTold) {
    timedClick("die-command");
    expectTold(notDone, u"291 - La aplicación externa terminó"_s);
    EXPECT_EQ(programs.running(), 0);
    expectAlive();
}

TEST_P(MisbehavingProgram, OneThatDiesBeforeItAnswersIsNotStartedForEver) {
    timedClick("die");
    expectTold(noContact, nobody);
    EXPECT_EQ(programs.running(), 0);
    expectAlive();
}

TEST_P(MisbehavingProgram, ARefusalIsToldWithItsReason) {
    timedClick("refuse");
    expectTold(notDone, u"285 - La aplicación externa no realizó el método o la operación de DDE: Hoy no se "
                        u"muestran documentos"_s);
    expectAlive();
}

TEST_P(MisbehavingProgram, EndingOneThatDoesNotRunSaysNothing) {
    QString newTopic = u"x"_s;
    const TopicSurroundings surroundings{starter, programs.folder(), MessageLoop(),
                                         [this](int shape) { pointer = shape; }};
    EXPECT_EQ(Print_Topic(surroundings, link, u"Lorbadeno.Exe"_s, u"Emisión de Documentos|Lorbadeno"_s,
                          u"Action=End"_s, true, 50, newTopic, 1),
              -1);
    expectSilence();
    EXPECT_EQ(newTopic, u""_s);
    EXPECT_EQ(pointer, 11);
}

INSTANTIATE_TEST_SUITE_P(Engines, MisbehavingProgram, testing::Values(TestEngine::Sqlite), engineName);

} // namespace
