#include "platform/dde/windows/DdeRequestLink.h"
#include "platform/dde/windows/DdeAnswerer.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include "tests/windows/dde/DoubleProcess.h"
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <windows.h>

using namespace quorvane;
using namespace quorvane::test;
using namespace Qt::StringLiterals;

namespace {

const QString topic = u"Emisión de Documentos|Lorbadeno"_s;

QByteArray sent(const QString& text) {
    return {reinterpret_cast<const char*>(text.utf16()), (text.size() + 1) * qsizetype(sizeof(char16_t))};
}

/// Real keys need real windows; set before the application is made.
[[maybe_unused]] const bool onTheDesktop = qputenv("QT_QPA_PLATFORM", "windows");

/// The key A as the system puts it into the window's queue.
void type(HWND window) {
    constexpr LPARAM scanCode = 0x1E << 16;
    PostMessageW(window, WM_KEYDOWN, 'A', scanCode | 1);
    PostMessageW(window, WM_KEYUP, 'A', static_cast<LPARAM>(0xC0000001 | scanCode));
}

class DdeLink : public testing::Test {
protected:
    DdeLink() {
        link.setLinkTopic(topic);
        QObject::connect(&heart, &QTimer::timeout, &heart, [this] { ++beats; });
        heart.start(10);
    }

    ~DdeLink() override { link.setLinkMode(LinkNone); }

    /// What an earlier case left behind may hold up whoever looks for a program, for a while.
    void SetUp() override {
        ASSERT_TRUE(QTest::qWaitFor(
            [] {
                DdeRequestLink passing;
                passing.setLinkTimeout(10);
                passing.setLinkTopic(u"Nadie|Nadie"_s);
                return errorOf([&] { passing.setLinkMode(LinkManual); }) == 282;
            },
            20000));
    }

    int open() {
        return errorOf([this] { link.setLinkMode(LinkManual); });
    }
    int execute(const QString& command) {
        time.start();
        return errorOf([&] { link.LinkExecute(command); });
    }
    /// Opens a conversation with a program of this mode.
    void meet(const QString& mode) {
        program = std::make_unique<DoubleProcess>(mode);
        ASSERT_TRUE(program->isReady());
        ASSERT_EQ(open(), 0);
        EXPECT_EQ(link.linkMode(), LinkManual);
    }

    std::unique_ptr<DoubleProcess> program;
    DdeRequestLink link;
    QElapsedTimer time;
    QTimer heart;
    int beats = 0;
};

TEST_F(DdeLink, NobodyThereIs282) {
    EXPECT_EQ(open(), 282);
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(execute(u"x"_s), 293);
}

TEST_F(DdeLink, CommandsArriveInUnicode) {
    meet(u"answer"_s);
    const QString command = u"EMPRESA=001;TIPODOCTO=FACTURA;CTACTE=ÑANDÚ;TIPOCTACTE=$TIPOCTACTE$"_s;
    EXPECT_EQ(execute(command), 0);
    EXPECT_EQ(execute(QString(60000, u'x')), 0);
    EXPECT_EQ(link.linkMode(), LinkManual);
    EXPECT_EQ(program->commands(), (QList{sent(command), sent(QString(60000, u'x'))}));
    link.setLinkMode(LinkNone);
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(execute(command), 293);
}

TEST_F(DdeLink, TheTopicIsFoundInAnyCase) {
    link.setLinkTopic(u"EMISIÓN DE DOCUMENTOS|lorbadeno"_s);
    meet(u"answer"_s);
}

TEST_F(DdeLink, AnotherServiceIsNotAnswered) {
    meet(u"answer"_s);
    link.setLinkTopic(u"Emision de Documentos|Lorbadeno"_s);
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(open(), 282);
}

TEST_F(DdeLink, ATopicThatIsNoneOrTooLongFindsNobody) {
    meet(u"answer"_s);
    for (const QString& text : {u""_s, u"Lorbadeno"_s, u"Lorbadeno|"_s, u"|Lorbadeno"_s}) {
        link.setLinkTopic(text);
        EXPECT_EQ(open(), 297);
    }
    link.setLinkTopic(QString(300, u'x') + u"|Lorbadeno"_s);
    EXPECT_EQ(open(), 282);
    link.setLinkTopic(u"Emisión de Documentos|"_s + QString(300, u'x'));
    EXPECT_EQ(open(), 282);
}

TEST_F(DdeLink, ARefusalLeavesTheConversationOpen) {
    meet(u"refuse"_s);
    EXPECT_EQ(execute(u"x"_s), 285);
    EXPECT_EQ(link.linkMode(), LinkManual);
    EXPECT_EQ(execute(u"x"_s), 285);
    EXPECT_EQ(program->commands().size(), 2);
}

TEST_F(DdeLink, BusyIsARefusal) {
    meet(u"busy"_s);
    EXPECT_EQ(execute(u"x"_s), 285);
}

TEST_F(DdeLink, ATextThatNoMessageHoldsIsNotSent) {
    meet(u"answer"_s);
    EXPECT_EQ(execute(QString(70000, u'x')), 5);
    EXPECT_EQ(execute(u"a"_s + QChar(u'\0')), 5);
    EXPECT_EQ(execute(u"x"_s), 0);
    EXPECT_EQ(program->commands(), QList{sent(u"x"_s)});
}

TEST_F(DdeLink, OneThatIsStuckInACommandCostsTheTimeOutAndEventsGoOn) {
    link.setLinkTimeout(10);
    meet(u"stuck"_s);
    beats = 0;
    EXPECT_EQ(execute(u"x"_s), 286);
    EXPECT_GE(time.elapsed(), 900);
    EXPECT_LT(time.elapsed(), 3000);
    EXPECT_GT(beats, 20);
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(execute(u"x"_s), 293);
}

TEST_F(DdeLink, KeysWaitWhileItWaits) {
    QLineEdit entry;
    entry.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&entry));
    entry.setFocus();
    link.setLinkTimeout(10);
    meet(u"stuck"_s);
    QString during = u"?"_s;
    const auto window = reinterpret_cast<HWND>(entry.winId());
    QTimer::singleShot(300, &entry, [window] { type(window); });
    QTimer::singleShot(800, &entry, [&] { during = entry.text(); });
    EXPECT_EQ(execute(u"x"_s), 286);
    EXPECT_EQ(during, u""_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return entry.text() == u"a"; }, 3000)) << entry.text().toStdString();
}

TEST_F(DdeLink, OneThatEndsWithTheCommandIs291LongBeforeTheTimeOut) {
    link.setLinkTimeout(100);
    meet(u"die-command"_s);
    EXPECT_EQ(execute(u"x"_s), 291);
    EXPECT_LT(time.elapsed(), 5000);
    EXPECT_EQ(link.linkMode(), LinkNone);
}

TEST_F(DdeLink, OneThatEndedBetweenTwoCommandsIs291) {
    meet(u"answer"_s);
    EXPECT_EQ(execute(u"x"_s), 0);
    program->kill();
    EXPECT_EQ(execute(u"x"_s), 291);
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(open(), 282);
}

TEST_F(DdeLink, OneThatEndedAWhileAgoIs291LongBeforeTheTimeOut) {
    link.setLinkTimeout(100);
    meet(u"answer"_s);
    program->kill();
    QTest::qWait(1000);
    EXPECT_EQ(execute(u"x"_s), 291);
    EXPECT_LT(time.elapsed(), 5000);
}

TEST_F(DdeLink, AnAnswerCountsEvenWhenTheApplicationGoesRightBehindIt) {
    meet(u"done-die"_s);
    EXPECT_EQ(execute(u"x"_s), 0);
}

TEST_F(DdeLink, OneThatEndsWhenItIsAskedForItsTopicIs282) {
    program = std::make_unique<DoubleProcess>(u"die"_s);
    ASSERT_TRUE(program->isReady());
    EXPECT_EQ(open(), 282);
}

/// A program that takes no messages any more, which the library waits for without end.
class DdeLinkOnADeafDesktop : public DdeLink, public testing::WithParamInterface<const char*> {};

TEST_P(DdeLinkOnADeafDesktop, OpeningCostsTheTimeOutOnceAndEventsGoOn) {
    program = std::make_unique<DoubleProcess>(QString::fromLatin1(GetParam()));
    ASSERT_TRUE(program->isReady());
    link.setLinkTimeout(10);
    time.start();
    EXPECT_EQ(open(), 286);
    EXPECT_GE(time.elapsed(), 900);
    EXPECT_LT(time.elapsed(), 3000);
    EXPECT_GT(beats, 20);
    EXPECT_EQ(link.linkMode(), LinkNone);
    time.start();
    for (int again = 0; again < 3; ++again)
        EXPECT_EQ(open(), 286);
    EXPECT_LT(time.elapsed(), 1500);
    program->kill();
    EXPECT_TRUE(QTest::qWaitFor([this] { return open() == 282; }, 5000));
}

TEST_P(DdeLinkOnADeafDesktop, WhenItListensAgainOrEndsOtherProgramsAreFound) {
    program = std::make_unique<DoubleProcess>(QString::fromLatin1(GetParam()));
    ASSERT_TRUE(program->isReady());
    link.setLinkTimeout(2);
    EXPECT_EQ(open(), 286);
    program->kill();
    program = std::make_unique<DoubleProcess>(u"answer"_s);
    ASSERT_TRUE(program->isReady());
    EXPECT_TRUE(QTest::qWaitFor([this] { return open() == 0; }, 3000));
    EXPECT_EQ(execute(u"x"_s), 0);
}

TEST_P(DdeLinkOnADeafDesktop, AnotherProgramIsFoundOnceTheSystemTakesItForHung) {
    program = std::make_unique<DoubleProcess>(QString::fromLatin1(GetParam()));
    ASSERT_TRUE(program->isReady());
    DoubleProcess willing(u"answer"_s);
    ASSERT_TRUE(willing.isReady());
    link.setLinkTimeout(2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return open() == 0; }, 12000));
    EXPECT_EQ(execute(u"x"_s), 0);
    link.setLinkMode(LinkNone);
}

TEST_P(DdeLinkOnADeafDesktop, ThisProgramGoesOnAnswering) {
    QStringList commands;
    DdeAnswerer answerer(u"Comisiones|Dalvora"_s, [&](const QString& command) {
        commands << command;
        return ChannelAnswer{true, {}};
    });
    ASSERT_TRUE(answerer.listen());
    DdeRequestLink own;
    own.setLinkTopic(u"Comisiones|Dalvora"_s);
    own.setLinkMode(LinkManual);
    program = std::make_unique<DoubleProcess>(QString::fromLatin1(GetParam()));
    ASSERT_TRUE(program->isReady());
    link.setLinkTimeout(5);
    EXPECT_EQ(open(), 286);
    EXPECT_EQ(errorOf([&] { own.LinkExecute(u"sigue aquí"_s); }), 0);
    EXPECT_EQ(commands, QStringList{u"sigue aquí"_s});
    DdeAnswerer another(u"Otra|Cosa"_s, [](const QString&) { return ChannelAnswer{}; });
    time.start();
    EXPECT_TRUE(another.listen());
    another.close();
    EXPECT_LT(time.elapsed(), 2000);
}

/// Run by the next test as a program of its own, which ends while the thread of its link still waits.
TEST(ProgramOnADeafDesktop, DISABLED_AsksInVain) {
    DdeRequestLink link;
    link.setLinkTimeout(2);
    link.setLinkTopic(topic);
    EXPECT_EQ(errorOf([&] { link.setLinkMode(LinkManual); }), 286);
}

TEST(ProgramOnADeafDesktop, EndsAtOnceThoughALinkStillWaits) {
    constexpr int longBeforeTheDeafOneEnds = 15000;
    DoubleProcess deaf(u"window"_s);
    ASSERT_TRUE(deaf.isReady());
    QProcess program;
    program.start(QCoreApplication::applicationFilePath(),
                  {u"--gtest_filter=*DISABLED_AsksInVain"_s, u"--gtest_also_run_disabled_tests"_s});
    EXPECT_TRUE(program.waitForFinished(longBeforeTheDeafOneEnds)) << "it hangs";
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    const QByteArray said = program.readAllStandardOutput();
    EXPECT_TRUE(said.contains("[  PASSED  ] 1 test.")) << said.toStdString();
    program.kill();
    program.waitForFinished();
}

INSTANTIATE_TEST_SUITE_P(Programs, DdeLinkOnADeafDesktop, testing::Values("hung", "window"));

} // namespace
