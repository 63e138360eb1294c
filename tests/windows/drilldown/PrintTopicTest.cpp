#include "reports/drilldown/PrintTopic.h"
#include "platform/dde/windows/DdeRequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "reports/drilldown/MessageLoop.h"
#include "reports/drilldown/ShellStarter.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/QtPrinters.h"
#include "tests/windows/drilldown/StartedPrograms.h"
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;

namespace {

const QString topic = u"Emisión de Documentos|Lorbadeno"_s;
const QString noContact = u"No se pudo establecer comunicación con la aplicación"_s;
const QString notDone = u"Aplicación no procesó el requerimiento"_s;
const QString nobody = u"282 - Ninguna aplicación externa respondió a una iniciación de DDE"_s;
const QString timeOut = u"286 - Se agotó el tiempo de espera de la respuesta de DDE"_s;
const QString command =
    u"EMPRESA=001;TIPODOCTO=FACTURA;CTACTE=ÑANDÚ;DOCTOINI=10250;DOCTOFIN=10250;EMISION=;ACCION=V;FORMATO="
    u";EMITIDO=S;TIPOCTACTE=$TIPOCTACTE$"_s;

/// A request over the system's DDE to a program that the system's shell starts.
class PrintTopicOverDde : public testing::TestWithParam<const char*> {
protected:
    /// What an earlier case left behind may hold up whoever looks for a program, for a while.
    void SetUp() override {
        ASSERT_TRUE(QTest::qWaitFor(
            [this] {
                link.setLinkTimeout(10);
                link.setLinkTopic(u"Nadie|Nadie"_s);
                return quorvane::test::errorOf([this] { link.setLinkMode(quorvane::LinkManual); }) == 282;
            },
            20000));
    }

    qint32 send(const QString& text = command) {
        ShellStarter starter(programs.folder());
        const TopicSurroundings surroundings{starter, programs.folder(), MessageLoop(),
                                             [this](int shape) { pointer = shape; }};
        QTimer heart;
        QObject::connect(&heart, &QTimer::timeout, &heart, [this] { ++beats; });
        heart.start(10);
        return Print_Topic(surroundings, link, u"Lorbadeno de pruebas.Exe"_s, topic, text, true, 50, newTopic,
                           1);
    }
    void install() { programs.install(u"Lorbadeno de pruebas.Exe"_s); }
    void expectTold(const QString& reason, const QString& error) {
        const QString text =
            u"Error al enviar requerimiento a aplicación externa Emisión de Documentos\r\n"_s + reason +
            u"\r\n\r\n"_s + error;
        EXPECT_EQ(messages.take(), (std::vector<Message>{{text, 16}}));
        EXPECT_EQ(pointer, 0);
    }
    QStringList commands() const {
        QStringList result;
        for (const QString& digits : programs.told(u"command"_s)) {
            const QByteArray bytes = QByteArray::fromHex(digits.toLatin1());
            result << QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()));
        }
        return result;
    }

    StartedPrograms programs{GetParam()};
    quorvane::DdeRequestLink link;
    MessageRecorder messages;
    QString newTopic;
    int pointer = -1;
    int beats = 0;
};

class WillingProgram : public PrintTopicOverDde {};

TEST_P(WillingProgram, IsStartedOnceAndReached) {
    install();
    EXPECT_EQ(send(), 0);
    EXPECT_EQ(newTopic, topic);
    EXPECT_EQ(pointer, 0);
    EXPECT_EQ(messages.take(), std::vector<Message>());
    EXPECT_EQ(programs.told(u"cwd"_s), QStringList{u"C:\\"_s});
    EXPECT_EQ(commands(), QStringList{command});
    EXPECT_EQ(send(u"otro"_s), 0);
    EXPECT_EQ(commands(), (QStringList{command, u"otro"_s}));
    EXPECT_EQ(programs.told(u"process"_s).size(), 1);
    EXPECT_EQ(link.linkMode(), quorvane::LinkNone);
}

INSTANTIATE_TEST_SUITE_P(Modes, WillingProgram, testing::Values("answer", "late"));

class AbsentProgram : public PrintTopicOverDde {};

TEST_P(AbsentProgram, IsToldWithItsFolder) {
    EXPECT_EQ(send(), 282);
    expectTold(u"No se pudo iniciar aplicación "_s + programs.folder() + u"\\Lorbadeno de pruebas.Exe"_s,
               nobody);
}

TEST_P(AbsentProgram, IsNotEnded) {
    EXPECT_EQ(send(u"Action=End"_s), -1);
    EXPECT_EQ(messages.take(), std::vector<Message>());
    EXPECT_EQ(pointer, 11);
}

INSTANTIATE_TEST_SUITE_P(Modes, AbsentProgram, testing::Values("answer"));

class RefusingProgram : public PrintTopicOverDde {};

TEST_P(RefusingProgram, IsTold) {
    install();
    EXPECT_EQ(send(), 285);
    expectTold(notDone, u"285 - La aplicación externa no realizó el método o la operación de DDE"_s);
}

INSTANTIATE_TEST_SUITE_P(Modes, RefusingProgram, testing::Values("refuse", "busy"));

class EndingProgram : public PrintTopicOverDde {};

TEST_P(EndingProgram, IsToldAndStartedAgainNextTime) {
    install();
    EXPECT_EQ(send(), 291);
    expectTold(notDone, u"291 - La aplicación externa terminó"_s);
    EXPECT_EQ(send(), 291);
    EXPECT_EQ(programs.told(u"process"_s).size(), 2);
}

INSTANTIATE_TEST_SUITE_P(Modes, EndingProgram, testing::Values("die-command"));

class MuteProgram : public PrintTopicOverDde {};

TEST_P(MuteProgram, IsGivenUp) {
    install();
    EXPECT_EQ(send(), 282);
    expectTold(noContact, nobody);
    EXPECT_EQ(programs.told(u"process"_s).size(), 1);
    EXPECT_GT(beats, 50);
}

INSTANTIATE_TEST_SUITE_P(Modes, MuteProgram, testing::Values("mute"));

class StuckProgram : public PrintTopicOverDde {};

TEST_P(StuckProgram, CostsTheTimeOutAndEventsGoOn) {
    install();
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(send(), 286);
    expectTold(notDone, timeOut);
    EXPECT_GE(time.elapsed(), 4900);
    EXPECT_LT(time.elapsed(), 15000);
    EXPECT_GT(beats, 200);
}

INSTANTIATE_TEST_SUITE_P(Modes, StuckProgram, testing::Values("stuck"));

class DeafProgram : public PrintTopicOverDde {};

TEST_P(DeafProgram, NeverHangsThisOne) {
    constexpr int longest = 5000 + 11 * 20000; // 20,000 yields on a busy machine
    install();
    QElapsedTimer time;
    time.start();
    const qint32 number = send();
    EXPECT_TRUE(number == 282 || number == 286) << number;
    expectTold(noContact, number == 282 ? nobody : timeOut);
    EXPECT_LT(time.elapsed(), longest);
    EXPECT_GT(beats, 200);
}

INSTANTIATE_TEST_SUITE_P(Modes, DeafProgram, testing::Values("hung", "window"));

} // namespace
