#include "platform/dde/RequestServer.h"
#include "tests/dde/Channel.h"
#include <QFile>
#include <QTimer>
#include <random>

using namespace quorvane;
using namespace quorvane::test;

namespace {

class Link : public testing::Test {
protected:
    Link() { link.setLinkTopic(topic); }

    int open() {
        return errorOf([this] { link.setLinkMode(LinkManual); });
    }
    int execute(const QString& command) {
        return errorOf([&] { link.LinkExecute(command); });
    }
    /// Accepts the topic; the rest is up to the test.
    static bool acceptedTopic(QLocalSocket& socket, const QByteArray& bytes) {
        if (!bytes.startsWith("Q1I"))
            return false;
        socket.write(bytesOf(FrameKind::Accept));
        return true;
    }

    RuntimeFolder folder;
    LocalRequestLink link;
};

TEST_F(Link, ASocketFileThatADeadProgramLeftIs282) {
    QFile file(channelAddress(topic));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(open(), 282);
}

TEST_F(Link, ARefusalTellsWhy) {
    RequestServer server(topic, [&](const QString&) { return ChannelAnswer{false, u"No existe"_s}; });
    ASSERT_TRUE(server.listen());
    ASSERT_EQ(open(), 0);
    try {
        link.LinkExecute(u"x"_s);
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.description(),
                  u"La aplicación externa no realizó el método o la operación de DDE: No existe"_s);
    }
}

TEST_F(Link, ASilentApplicationCostsTheTimeOutAndEventsGoOn) {
    const RawPeer silent([](QLocalSocket&, const QByteArray&) {});
    link.setLinkTimeout(5);
    int beats = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, &heart, [&] { ++beats; });
    heart.start(10);
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(open(), 286);
    EXPECT_GE(time.elapsed(), 450);
    EXPECT_LT(time.elapsed(), 1500);
    EXPECT_GT(beats, 5);
    EXPECT_EQ(link.linkMode(), LinkNone);
}

TEST_F(Link, ASilentApplicationCostsTheTimeOutOnceForATopic) {
    const RawPeer silent([](QLocalSocket&, const QByteArray&) {});
    link.setLinkTimeout(10);
    EXPECT_EQ(open(), 286);
    QElapsedTimer time;
    time.start();
    for (int again = 0; again < 3; ++again)
        EXPECT_EQ(open(), 286);
    EXPECT_LT(time.elapsed(), 900);
    link.setLinkTopic(topic);
    time.start();
    EXPECT_EQ(open(), 286);
    EXPECT_GE(time.elapsed(), 900);
}

TEST_F(Link, SilenceAfterACommandEndsTheConversation) {
    const RawPeer peer([](QLocalSocket& socket, const QByteArray& bytes) { acceptedTopic(socket, bytes); });
    link.setLinkTimeout(3);
    ASSERT_EQ(open(), 0);
    EXPECT_EQ(execute(u"x"_s), 286);
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(execute(u"x"_s), 293);
}

TEST_F(Link, OneThatGoesAwayBeforeItAnswersTheTopicIs282) {
    const RawPeer peer([](QLocalSocket& socket, const QByteArray&) { socket.abort(); });
    EXPECT_EQ(open(), 282);
}

TEST_F(Link, OneThatGoesAwayWithACommandIs291) {
    const RawPeer peer([](QLocalSocket& socket, const QByteArray& bytes) {
        if (!acceptedTopic(socket, bytes))
            socket.abort();
    });
    ASSERT_EQ(open(), 0);
    EXPECT_EQ(execute(u"x"_s), 291);
    EXPECT_EQ(link.linkMode(), LinkNone);
}

TEST_F(Link, AnAnswerCountsEvenWhenTheApplicationGoesRightBehindIt) {
    const RawPeer peer([](QLocalSocket& socket, const QByteArray& bytes) {
        if (acceptedTopic(socket, bytes))
            return;
        socket.write(bytesOf(FrameKind::Accept));
        socket.disconnectFromServer();
    });
    for (int round = 0; round < 50; ++round) {
        ASSERT_EQ(open(), 0);
        ASSERT_EQ(execute(u"x"_s), 0);
    }
}

TEST_F(Link, AnAnswerThatIsNoneIs290) {
    for (const QByteArray& bytes : {QByteArray("HTTP/1.1 200 OK\r\n"), bytesOf(FrameKind::Initiate, topic),
                                    QByteArray("Q1A\xff\xff\xff\xff")}) {
        const RawPeer peer([&](QLocalSocket& socket, const QByteArray&) { socket.write(bytes); });
        EXPECT_EQ(open(), 290);
        EXPECT_EQ(link.linkMode(), LinkNone);
    }
}

TEST_F(Link, AHugeAnswerIsNotTakenIn) {
    qint64 unsent = 0;
    const RawPeer peer([&](QLocalSocket& socket, const QByteArray& bytes) {
        if (acceptedTopic(socket, bytes))
            return;
        socket.write(bytesOf(FrameKind::Accept));
        socket.write(QByteArray(50'000'000, 'x'));
        unsent = socket.bytesToWrite();
    });
    ASSERT_EQ(open(), 0);
    EXPECT_EQ(execute(u"x"_s), 0);
    EXPECT_GT(unsent, 40'000'000);
    EXPECT_EQ(execute(u"x"_s), 290);
}

TEST_F(Link, AnAnswerInDropsIsAwaitedNoLongerThanTheTimeOut) {
    QTimer drops;
    const RawPeer peer([&](QLocalSocket& socket, const QByteArray&) {
        socket.write("Q1R");
        socket.write(QByteArray("\0\0\xff\0", 4));
        QObject::connect(&drops, &QTimer::timeout, &socket, [&socket] { socket.write("x"); });
        drops.start(20);
    });
    link.setLinkTimeout(4);
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(open(), 286);
    EXPECT_LT(time.elapsed(), 1500);
}

TEST_F(Link, NoAnswerCrashesOrHangsIt) {
    std::mt19937 random(7);
    const auto noise = [&] {
        QByteArray bytes = bytesOf(random() % 2 == 0 ? FrameKind::Accept : FrameKind::Refuse, u"motivo"_s);
        for (unsigned change = random() % 4; change > 0; --change)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        return bytes;
    };
    const RawPeer peer([&](QLocalSocket& socket, const QByteArray&) {
        socket.write(noise());
        if (random() % 4 == 0)
            socket.disconnectFromServer();
    });
    link.setLinkTimeout(0);
    for (int round = 0; round < 500; ++round) {
        link.setLinkTimeout(round % 10 == 0 ? 1 : 0);
        const int opened = open();
        EXPECT_TRUE(opened == 0 || opened == 282 || opened == 286 || opened == 290) << opened;
        if (opened != 0)
            continue;
        const int done = execute(u"x"_s);
        EXPECT_TRUE(done == 0 || done == 285 || done == 286 || done == 290 || done == 291) << done;
    }
}

} // namespace
