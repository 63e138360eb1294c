#include "reports/drilldown/PrintTopic.h"
#include "tests/drilldown/FakeSurroundings.h"
#include "tests/support/MessageRecorder.h"
#include <gtest/gtest.h>

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;

namespace {

const QString begin = u"Error al enviar requerimiento a aplicación externa Emisión de Documentos\r\n"_s;

class PrintTopic : public testing::Test {
protected:
    qint32 send(const QString& command = u"ACCION=V"_s, const QString& program = u"Lorbadeno.Exe"_s,
                const QString& topic = u"Emisión de Documentos|Lorbadeno"_s) {
        const TopicSurroundings surroundings = fake.surroundings();
        return Print_Topic(surroundings, fake, program, topic, command, true, 50, newTopic, 1);
    }
    void expectTold(const QString& text) { EXPECT_EQ(messages.take(), (std::vector<Message>{{text, 16}})); }
    void expectSilence() { EXPECT_EQ(messages.take(), std::vector<Message>()); }
    static auto always(int number) {
        return [number](int) { return number; };
    }

    const QStringList prepared{u"pointer 11"_s, u"LinkTimeout=50"_s, u"LinkMode=0"_s,
                               u"LinkTopic=Emisión de Documentos|Lorbadeno"_s};
    FakeSurroundings fake;
    MessageRecorder messages;
    QString newTopic = u"antes"_s;
};

TEST_F(PrintTopic, OneConversationIsOpenedUsedAndClosed) {
    EXPECT_EQ(send(), 0);
    EXPECT_EQ(fake.take(),
              prepared + QStringList({u"LinkMode=0"_s, u"LinkMode=2"_s, u"LinkExecute=ACCION=V"_s,
                                      u"LinkMode=0"_s, u"pointer 0"_s}));
    EXPECT_EQ(newTopic, u"Emisión de Documentos|Lorbadeno"_s);
    expectSilence();
}

TEST_F(PrintTopic, ATopicWithoutABarIsDoubledAroundOne) {
    EXPECT_EQ(send(u"ACCION=V"_s, u"Lorbadeno.Exe"_s, u"Lorbadeno"_s), 0);
    EXPECT_EQ(newTopic, u"Lorbadeno|Lorbadeno"_s);
    EXPECT_TRUE(fake.take().contains(u"LinkTopic=Lorbadeno|Lorbadeno"_s));
}

TEST_F(PrintTopic, AProgramThatDoesNotRunIsStartedOnceAndReached) {
    fake.onConnect = [](int attempt) { return attempt < 3 ? 282 : 0; };
    EXPECT_EQ(send(), 0);
    EXPECT_EQ(fake.take(),
              prepared + QStringList({u"LinkMode=0"_s, u"LinkMode=2"_s, u"open Lorbadeno.Exe in C:\\ as 1"_s,
                                      u"20000 yields"_s, u"LinkMode=0"_s, u"LinkMode=2"_s, u"20000 yields"_s,
                                      u"LinkMode=0"_s, u"LinkMode=2"_s, u"LinkExecute=ACCION=V"_s,
                                      u"LinkMode=0"_s, u"pointer 0"_s}));
    expectSilence();
}

TEST_F(PrintTopic, TheSecondTryOfAStartIsInOurOwnFolder) {
    fake.onConnect = [](int attempt) { return attempt < 2 ? 282 : 0; };
    fake.onOpen = [](const QString& file) { return file.contains(u'\\') ? 33 : 32; };
    EXPECT_EQ(send(), 0);
    const QStringList told = fake.take();
    EXPECT_EQ(told.mid(6, 3),
              QStringList({u"open Lorbadeno.Exe in C:\\ as 1"_s,
                           u"open D:\\Quorvane\\Lorbadeno.Exe in C:\\ as 1"_s, u"20000 yields"_s}));
    expectSilence();
}

TEST_F(PrintTopic, AProgramThatCannotBeStartedIsToldWithItsLastName) {
    fake.onConnect = always(282);
    fake.onOpen = [](const QString&) { return 32; };
    EXPECT_EQ(send(), 282);
    expectTold(begin + u"No se pudo iniciar aplicación D:\\Quorvane\\Lorbadeno.Exe\r\n\r\n282 - fallo"_s);
    EXPECT_EQ(fake.take().mid(6), QStringList({u"open Lorbadeno.Exe in C:\\ as 1"_s,
                                               u"open D:\\Quorvane\\Lorbadeno.Exe in C:\\ as 1"_s,
                                               u"LinkMode=0"_s, u"pointer 0"_s}));
    EXPECT_EQ(newTopic, u""_s);
}

TEST_F(PrintTopic, AProgramGivenWithItsFolderIsTriedOnce) {
    fake.onConnect = always(282);
    fake.onOpen = [](const QString&) { return 2; };
    EXPECT_EQ(send(u"ACCION=V"_s, u"E:\\x\\Lorbadeno.Exe"_s), 282);
    expectTold(begin + u"No se pudo iniciar aplicación E:\\x\\Lorbadeno.Exe\r\n\r\n282 - fallo"_s);
}

TEST_F(PrintTopic, WithoutAProgramNothingIsStarted) {
    fake.onConnect = always(282);
    EXPECT_EQ(send(u"ACCION=V"_s, u""_s), 282);
    EXPECT_EQ(fake.attempts, 11);
    EXPECT_TRUE(fake.take().filter(u"open"_s).isEmpty());
    expectTold(begin + u"No se pudo establecer comunicación con la aplicación\r\n\r\n282 - fallo"_s);
}

TEST_F(PrintTopic, OneThatNeverAnswersIsAskedElevenTimesWithYieldsBetween) {
    fake.onConnect = always(282);
    EXPECT_EQ(send(), 282);
    const QStringList told = fake.take();
    EXPECT_EQ(fake.attempts, 11);
    EXPECT_EQ(told.count(u"20000 yields"_s), 10);
    EXPECT_EQ(told.filter(u"open"_s).size(), 1);
    EXPECT_EQ(told.mid(told.size() - 4),
              QStringList({u"LinkMode=0"_s, u"LinkMode=2"_s, u"LinkMode=0"_s, u"pointer 0"_s}));
    expectTold(begin + u"No se pudo establecer comunicación con la aplicación\r\n\r\n282 - fallo"_s);
    EXPECT_EQ(newTopic, u""_s);
}

TEST_F(PrintTopic, AnotherErrorThanNobodyThereStartsNothing) {
    fake.onConnect = always(286);
    EXPECT_EQ(send(), 286);
    EXPECT_EQ(fake.attempts, 11);
    EXPECT_TRUE(fake.take().filter(u"open"_s).isEmpty());
    expectTold(begin + u"No se pudo establecer comunicación con la aplicación\r\n\r\n286 - fallo"_s);
}

TEST_F(PrintTopic, NobodyThereOnALaterAttemptStartsNothing) {
    fake.onConnect = [](int attempt) { return attempt == 1 ? 286 : 282; };
    EXPECT_EQ(send(), 282);
    EXPECT_TRUE(fake.take().filter(u"open"_s).isEmpty());
}

TEST_F(PrintTopic, ARefusedCommandIsToldAndTheConversationClosed) {
    fake.onExecute = 285;
    EXPECT_EQ(send(), 285);
    expectTold(begin + u"Aplicación no procesó el requerimiento\r\n\r\n285 - fallo"_s);
    const QStringList told = fake.take();
    EXPECT_EQ(told.mid(told.size() - 3),
              QStringList({u"LinkExecute=ACCION=V"_s, u"LinkMode=0"_s, u"pointer 0"_s}));
    EXPECT_EQ(newTopic, u"Emisión de Documentos|Lorbadeno"_s);
}

TEST_F(PrintTopic, NobodyToEndIsNoErrorAndLeavesThePointer) {
    fake.onConnect = always(282);
    EXPECT_EQ(send(u"ACTION=end"_s), -1);
    EXPECT_EQ(fake.take(), prepared + QStringList({u"LinkMode=0"_s, u"LinkMode=2"_s}));
    expectSilence();
}

TEST_F(PrintTopic, OneToEndReceivesTheCommand) {
    EXPECT_EQ(send(u"Action=End"_s), 0);
    EXPECT_TRUE(fake.take().contains(u"LinkExecute=Action=End"_s));
}

} // namespace
