// The test server against clients that do not speak its language, and against many that do.
#include "tests/tds/FreeTdsFixture.h"
#include "tests/tds/Packets.h"
#include <QDeadlineTimer>
#include <QTcpSocket>
#include <random>
#include <thread>

using namespace dalvora::test::tds;

namespace {

class TestServer : public FreeTdsFixture {
protected:
    void expectItServes() {
        Client client(options());
        ASSERT_TRUE(client.open());
        EXPECT_EQ(client.one(u"SELECT 1"_s).toInt(), 1);
    }
    /// Sends bytes and waits until the server has had enough of them, or has answered.
    void send(const QByteArray& bytes) {
        QTcpSocket socket;
        socket.connectToHost(u"127.0.0.1"_s, server.port());
        ASSERT_TRUE(socket.waitForConnected());
        socket.write(bytes);
        socket.waitForBytesWritten();
        socket.waitForReadyRead(20);
    }
};

} // namespace

TEST_F(TestServer, BytesOfAnyKindHarmNobodyElse) {
    std::mt19937 random(1753);
    const QByteArray greeting = QByteArray::fromHex("1201001a00000000" // one packet
                                                    "00000b0006"
                                                    "0100110001ff"
                                                    "0f00000000000200");
    for (int round = 0; round < 60; ++round) {
        QByteArray bytes = round % 2 == 0 ? greeting : QByteArray();
        for (unsigned length = random() % 600; length > 0; --length)
            bytes += static_cast<char>(random() % 3 == 0 ? random() % 32 : random());
        send(bytes);
    }
    expectItServes();
}

TEST_F(TestServer, ASessionsBytesTurnedHarmNobodyElse) {
    const QByteArray batch = packet(MessageType::Batch, QByteArray::fromHex("16000000ffffff7f"), true, 1);
    send(packet(MessageType::PreLogin, QByteArray::fromHex("ff"), true, 1) + batch);
    send(packet(MessageType::PreLogin, QByteArray::fromHex("ff"), true, 1) +
         packet(MessageType::Login, QByteArray(94, '\xff'), true, 1));
    send(batch);
    expectItServes();
}

TEST_F(TestServer, ServesManyAtOnce) {
    constexpr int clients = 8;
    constexpr int rounds = 20;
    std::atomic<int> errors = 0;
    std::vector<std::thread> threads;
    threads.reserve(clients);
    for (int i = 0; i < clients; ++i)
        threads.emplace_back([&, i] {
            Client client(options());
            if (!client.open())
                ++errors;
            for (int round = 0; round < rounds; ++round) {
                errors += client.errorOf(u"BEGIN TRANSACTION"_s) != 0;
                errors += client.errorOf(u"INSERT INTO t (Codigo) VALUES ('%1-%2')"_s.arg(i).arg(round)) != 0;
                errors += client.errorOf(u"COMMIT TRANSACTION"_s) != 0;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(errors, 0);
    Client client(options());
    ASSERT_TRUE(client.open());
    EXPECT_EQ(client.one(u"SELECT count(*) FROM t"_s).toInt(), clients * rounds);
}

TEST_F(TestServer, ForgetsClientsThatGo) {
    for (int i = 0; i < 3; ++i)
        expectItServes();
    QDeadlineTimer time(5000);
    while (server.clients() > 0 && !time.hasExpired())
        std::this_thread::yield();
    EXPECT_EQ(server.clients(), 0);
}

TEST_F(TestServer, RefusesProceduresAndGoesOn) {
    Client client(options());
    ASSERT_TRUE(client.open());
    QSqlQuery prepared(client.database());
    prepared.prepare(u"SELECT Codigo FROM t WHERE Codigo = ?"_s);
    prepared.addBindValue(u"a"_s);
    EXPECT_FALSE(prepared.exec());
    EXPECT_TRUE(prepared.lastError().text().contains(u"no procedures"_s))
        << prepared.lastError().text().toStdString();
    prepared.finish();
    EXPECT_EQ(client.one(u"SELECT 1"_s).toInt(), 1);
}

TEST_F(TestServer, EndsWithItsClientsAtWork) {
    Client client(options());
    {
        TdsServer brief;
        brief.addLogin(u"ana"_s, u"clave ñ€"_s);
        brief.addDatabase(u"empresa"_s, folder.filePath(u"empresa.db"_s));
        client.database().setDatabaseName(
            options().replace(u"PORT=%1"_s.arg(server.port()), u"PORT=%1"_s.arg(brief.port())));
        ASSERT_TRUE(client.open());
        client.run(u"BEGIN TRANSACTION"_s);
        client.run(u"INSERT INTO t (Codigo) VALUES ('a')"_s);
    }
    EXPECT_NE(client.run(u"SELECT 1"_s).lastError().type(), QSqlError::NoError);
    Client other(options());
    ASSERT_TRUE(other.open());
    EXPECT_EQ(other.one(u"SELECT count(*) FROM t"_s).toInt(), 0);
}
