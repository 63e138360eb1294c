#include "platform/dde/RequestServer.h"
#include "tests/dde/Channel.h"
#include <QFile>
#include <QThread>
#include <random>

using namespace quorvane;
using namespace quorvane::test;

namespace {

class Server : public testing::Test {
protected:
    std::unique_ptr<QLocalSocket> connectRaw() {
        auto socket = std::make_unique<QLocalSocket>();
        socket->connectToServer(channelAddress(topic));
        EXPECT_TRUE(socket->waitForConnected(1000));
        return socket;
    }
    /// What the server has answered once it has answered this many bytes or hung up.
    static QByteArray answered(QLocalSocket& socket, qsizetype bytes) {
        until([&] {
            return socket.bytesAvailable() >= bytes || socket.state() != QLocalSocket::ConnectedState;
        });
        return socket.readAll();
    }
    static bool hungUp(QLocalSocket& socket) {
        return until([&] { return socket.state() == QLocalSocket::UnconnectedState; });
    }

    RuntimeFolder folder;
    QStringList commands;
    ChannelAnswer answer{true, {}};
    RequestServer server{topic, [this](const QString& command) {
                             commands << command;
                             return answer;
                         }};
};

const QByteArray accepted = bytesOf(FrameKind::Accept);

TEST_F(Server, TakesNoTextThatIsNoTopic) {
    RequestServer nothing(u"Lorbadeno"_s, [](const QString&) { return ChannelAnswer{}; });
    EXPECT_FALSE(nothing.listen());
}

TEST_F(Server, AStaleSocketFileDoesNotBlockIt) {
    QFile file(channelAddress(topic));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QFile lock(channelAddress(topic) + u".lock"_s);
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly) && lock.write("1\n") > 0);
    lock.close();
    ASSERT_TRUE(server.listen());
    LocalRequestLink link;
    link.setLinkTopic(topic);
    EXPECT_EQ(errorOf([&] { link.setLinkMode(LinkManual); }), 0);
}

TEST_F(Server, ASecondOneDoesNotTakeTheTopicAway) {
    ASSERT_TRUE(server.listen());
    {
        RequestServer second(topic, [](const QString&) { return ChannelAnswer{}; });
        EXPECT_FALSE(second.listen());
    }
    LocalRequestLink link;
    link.setLinkTopic(topic);
    link.setLinkMode(LinkManual);
    link.LinkExecute(u"sigue aquí"_s);
    EXPECT_EQ(commands, QStringList{u"sigue aquí"_s});
    server.close();
    RequestServer next(topic, [](const QString&) { return ChannelAnswer{}; });
    EXPECT_TRUE(next.listen());
}

TEST_F(Server, CommandsWaitForTheirTopic) {
    ASSERT_TRUE(server.listen());
    const auto socket = connectRaw();
    socket->write(bytesOf(FrameKind::Execute, u"x"_s));
    EXPECT_TRUE(hungUp(*socket));
    EXPECT_TRUE(commands.isEmpty());
}

TEST_F(Server, AnotherTopicIsRefusedOnTheSameSocket) {
    ASSERT_TRUE(server.listen());
    const auto socket = connectRaw();
    socket->write(bytesOf(FrameKind::Initiate, u"Otra|Cosa"_s) + bytesOf(FrameKind::Initiate, topic) +
                  bytesOf(FrameKind::Execute, u"x"_s));
    EXPECT_EQ(answered(*socket, 21), bytesOf(FrameKind::Refuse) + accepted + accepted);
    EXPECT_EQ(commands, QStringList{u"x"_s});
}

TEST_F(Server, ManyCommandsAtOnceAreAnsweredInTurn) {
    ASSERT_TRUE(server.listen());
    const auto socket = connectRaw();
    QByteArray bytes = bytesOf(FrameKind::Initiate, topic);
    for (int i = 0; i < 1000; ++i)
        bytes += bytesOf(FrameKind::Execute, QString::number(i));
    socket->write(bytes);
    EXPECT_EQ(answered(*socket, 7007), accepted.repeated(1001));
    EXPECT_EQ(commands.size(), 1000);
    EXPECT_EQ(commands.last(), u"999"_s);
}

TEST_F(Server, ACommandThatLetsEventsRunIsNotInterrupted) {
    int depth = 0;
    int deepest = 0;
    RequestServer busy(u"A|B"_s, [&](const QString&) {
        deepest = std::max(deepest, ++depth);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        --depth;
        return ChannelAnswer{true, {}};
    });
    ASSERT_TRUE(busy.listen());
    std::vector<std::unique_ptr<QLocalSocket>> sockets;
    for (int i = 0; i < 3; ++i) {
        sockets.push_back(std::make_unique<QLocalSocket>());
        sockets.back()->connectToServer(channelAddress(u"A|B"_s));
        sockets.back()->write(bytesOf(FrameKind::Initiate, u"A|B"_s) + bytesOf(FrameKind::Execute, u"x"_s) +
                              bytesOf(FrameKind::Execute, u"y"_s));
    }
    for (const auto& socket : sockets)
        EXPECT_EQ(answered(*socket, 21), accepted.repeated(3));
    EXPECT_EQ(deepest, 1);
}

TEST_F(Server, AClientThatFetchesNoAnswerIsHungUpOn) {
    answer = {false, QString(30000, u'x')};
    ASSERT_TRUE(server.listen());
    const auto socket = connectRaw();
    socket->setReadBufferSize(1);
    QByteArray bytes = bytesOf(FrameKind::Initiate, topic);
    bytes += bytesOf(FrameKind::Execute, u"x"_s).repeated(1000);
    socket->write(bytes);
    EXPECT_TRUE(until([&] { return server.clients() == 0; }));
    EXPECT_LT(commands.size(), 1000);
}

TEST_F(Server, AClientThatSaysNothingIsHungUpOn) {
    server.setLongestSilence(std::chrono::milliseconds(300));
    ASSERT_TRUE(server.listen());
    const auto silent = connectRaw();
    const auto busy = connectRaw();
    silent->write("Q1");
    busy->write(bytesOf(FrameKind::Initiate, topic));
    QElapsedTimer time;
    time.start();
    for (int i = 0; time.elapsed() < 600; ++i) {
        busy->write(bytesOf(FrameKind::Execute, QString::number(i)));
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(20);
    }
    EXPECT_TRUE(hungUp(*silent));
    EXPECT_EQ(busy->state(), QLocalSocket::ConnectedState);
}

TEST_F(Server, ClientsBeyondItsNumberAreTurnedAway) {
    ASSERT_TRUE(server.listen());
    std::vector<std::unique_ptr<QLocalSocket>> sockets;
    for (int i = 0; i < 40; ++i) {
        sockets.push_back(connectRaw());
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(until([&] { return server.clients() == 32; }));
    EXPECT_TRUE(hungUp(*sockets.back()));
    sockets.clear();
    EXPECT_TRUE(until([&] { return server.clients() == 0; }));
    const auto socket = connectRaw();
    socket->write(bytesOf(FrameKind::Initiate, topic));
    EXPECT_EQ(answered(*socket, 7), accepted);
}

TEST_F(Server, NoiseIsHungUpOnAndTheNextClientIsServed) {
    ASSERT_TRUE(server.listen());
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        const auto socket = connectRaw();
        QByteArray bytes = bytesOf(FrameKind::Initiate, topic) + bytesOf(FrameKind::Execute, u"ACCION=V"_s);
        for (unsigned change = random() % 5; change > 0; --change)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        bytes.truncate(static_cast<qsizetype>(random() % (bytes.size() + 1)));
        socket->write(bytes);
        QCoreApplication::processEvents();
    }
    const auto flood = connectRaw();
    flood->write(QByteArray(20'000'000, 'Q'));
    EXPECT_TRUE(hungUp(*flood));
    const auto socket = connectRaw();
    socket->write(bytesOf(FrameKind::Initiate, topic));
    EXPECT_EQ(answered(*socket, 7), accepted);
}

} // namespace
