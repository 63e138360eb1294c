// Messages as bytes: packets split and joined, requests read, and whatever is no message refused.
#include "tests/tds/Packets.h"
#include "tests/tds/CodePage.h"
#include "tests/tds/Requests.h"
#include "tests/tds/TransactSql.h"
#include <gtest/gtest.h>
#include <random>

using namespace dalvora::test::tds;
using namespace Qt::StringLiterals;

namespace {

QByteArray batchPayload(const QString& sql, quint64 transaction = 0) {
    ByteWriter out;
    out.u32(22); // all headers
    out.u32(18); // one of them
    out.u16(2);
    out.u64(transaction);
    out.u32(1);
    out.units(sql);
    return out.data();
}

QByteArray inPackets(MessageType type, const QByteArray& payload, qsizetype room) {
    QByteArray all;
    quint8 number = 0;
    for (qsizetype at = 0; at < payload.size(); at += room)
        all += packet(type, QByteArrayView(payload).sliced(at, std::min(room, payload.size() - at)),
                      at + room >= payload.size(), ++number);
    return all;
}

/// A login with its texts in the order of its table.
QByteArray loginPayload(const QStringList& texts) {
    ByteWriter table;
    ByteWriter values;
    const qsizetype begin = 94;
    for (const QString& text : texts) {
        table.u16(static_cast<quint16>(begin + values.size()));
        table.u16(static_cast<quint16>(text.size()));
        values.units(text);
    }
    ByteWriter out;
    out.u32(static_cast<quint32>(begin + values.size()));
    out.u32(0x74000004);
    out.u32(8192);
    out.bytes(QByteArray(24, '\0'));
    out.bytes(table.data());
    out.bytes(QByteArray(begin - out.size(), '\0'));
    out.bytes(values.data());
    return out.data();
}

/// "ñ€" with nibbles exchanged and the bits of A5 turned.
QString scrambled() {
    return QString(QChar(0xA5BA)) + QChar(0xA76F);
}

} // namespace

TEST(Packets, AreJoinedInWhateverPiecesTheyArrive) {
    const QByteArray payload = batchPayload(u"SELECT 'año €' FROM t"_s);
    for (const qsizetype room : {1, 7, 100, 4096}) {
        const QByteArray bytes = inPackets(MessageType::Batch, payload, room);
        for (const qsizetype piece : {qsizetype(1), qsizetype(3), bytes.size()}) {
            PacketReader reader;
            std::optional<Message> message;
            for (qsizetype at = 0; at < bytes.size(); at += piece) {
                EXPECT_FALSE(message.has_value());
                reader.feed(QByteArrayView(bytes).sliced(at, std::min(piece, bytes.size() - at)));
                message = reader.take();
            }
            ASSERT_TRUE(message.has_value());
            EXPECT_EQ(message->type, MessageType::Batch);
            EXPECT_EQ(readBatch(message->payload).sql, u"SELECT 'año €' FROM t"_s);
        }
    }
}

TEST(Packets, TwoMessagesThatArriveTogetherAreTwo) {
    PacketReader reader;
    reader.feed(packet(MessageType::Batch, "a", true, 1) + packet(MessageType::Attention, "", true, 1));
    EXPECT_EQ(reader.take()->type, MessageType::Batch);
    EXPECT_EQ(reader.take()->type, MessageType::Attention);
    EXPECT_FALSE(reader.take().has_value());
}

TEST(Packets, AMessageThatItsSenderWithdrawsIsLeftOut) {
    QByteArray last = packet(MessageType::Batch, "b", true, 2);
    last[1] = 3; // the last one, and to be ignored
    PacketReader reader;
    reader.feed(packet(MessageType::Batch, "a", false, 1) + last + packet(MessageType::Batch, "c", true, 1));
    EXPECT_EQ(reader.take()->payload, "c");
}

TEST(Packets, WhatCannotBeOneIsRefused) {
    PacketReader tooShort;
    tooShort.feed(QByteArray::fromHex("0101000700000100"));
    EXPECT_THROW(tooShort.take(), ProtocolError);
    PacketReader mixed;
    mixed.feed(packet(MessageType::Batch, "a", false, 1) + packet(MessageType::Login, "b", true, 2));
    EXPECT_THROW(mixed.take(), ProtocolError);
    PacketReader endless;
    const QByteArray part = packet(MessageType::Batch, QByteArray(32000, 'x'), false, 1);
    EXPECT_THROW(
        {
            for (int i = 0; i < 1000; ++i) {
                endless.feed(part);
                endless.take();
            }
        },
        ProtocolError);
}

TEST(Requests, ABatchTellsItsTransaction) {
    const BatchRequest request = readBatch(batchPayload(u"COMMIT"_s, 0x100000007));
    EXPECT_EQ(request.transaction, 0x100000007U);
    EXPECT_EQ(request.sql, u"COMMIT"_s);
    EXPECT_THROW(readBatch(QByteArray::fromHex("ffffff7f")), ProtocolError);
    EXPECT_THROW(readBatch(QByteArray::fromHex("0800000001000000")), ProtocolError);
    EXPECT_THROW(readBatch(batchPayload(u"x"_s) + "y"), ProtocolError) << "half a character";
}

TEST(Requests, ALoginTellsWhoAndWhere) {
    const LoginRequest login = readLogin(loginPayload({u"equipo"_s,
                                                       u"ana"_s,
                                                       scrambled(),
                                                       u"Dalvora"_s,
                                                       u"srv"_s,
                                                       {},
                                                       u"lib"_s,
                                                       u"Español"_s,
                                                       u"empresa"_s}));
    EXPECT_EQ(login.user, u"ana"_s);
    EXPECT_EQ(login.password, u"ñ€"_s);
    EXPECT_EQ(login.database, u"empresa"_s);
    EXPECT_EQ(login.language, u"Español"_s);
    EXPECT_EQ(login.packetSize, 8192U);
}

TEST(Requests, NoBytesWhateverDoMoreThanBeRefused) {
    std::mt19937 random(20060305);
    const QByteArray good[] = {
        batchPayload(u"SELECT * FROM Comisiones"_s),
        loginPayload({u"e"_s, u"ana"_s, scrambled(), u"p"_s, u"s"_s, {}, u"l"_s, u"i"_s, u"empresa"_s}),
        preLoginAnswer(15),
        QByteArray::fromHex("16000000120000000200000000000000000001000000050000"),
    };
    int refused = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes = good[round % std::size(good)];
        for (unsigned change = random() % 4; change > 0; --change)
            bytes[static_cast<qsizetype>(random() % bytes.size())] = static_cast<char>(random());
        if (random() % 3 == 0)
            bytes.truncate(static_cast<qsizetype>(random() % bytes.size()));
        PacketReader reader;
        reader.feed(bytes);
        const auto tried = [&](auto read) {
            try {
                read();
            } catch (const ProtocolError&) {
                ++refused;
            }
        };
        tried([&] { reader.take(); });
        tried([&] { readBatch(bytes); });
        tried([&] { readLogin(bytes); });
        tried([&] { readPreLogin(bytes); });
        tried([&] { readTransaction(bytes); });
    }
    EXPECT_GT(refused, 20000);
}

TEST(CodePage, KeepsItsOwnLettersAndLosesOthers) {
    EXPECT_EQ(toCodePage(u"ñ€Š"_s), QByteArray::fromHex("f1808a"));
    EXPECT_EQ(throughCodePage(u"año €, Ωλ"_s), u"año €, ??"_s);
}

TEST(TransactSql, ReadsDatesInTheOrderOfTheSession) {
    SessionSettings settings;
    EXPECT_EQ(toEmbedded(u"x = '03/05/2006'"_s, settings), u"x = '05/03/2006'"_s);
    EXPECT_ANY_THROW(toEmbedded(u"x = '31/05/2006'"_s, settings));
    settings.dateFormat = u"dmy"_s;
    EXPECT_EQ(toEmbedded(u"x = '31/05/2006'"_s, settings), u"x = '31/05/2006'"_s);
}

TEST(TransactSql, SpellsDefinitionsForTheEmbeddedEngine) {
    EXPECT_EQ(toEmbedded(u"CREATE TABLE t (Id bigint IDENTITY(1, 1) NOT NULL PRIMARY KEY, "
                         u"T varchar(max) COLLATE Modern_Spanish_CI_AS)"_s,
                         {}),
              u"CREATE TABLE t (Id INTEGER NOT NULL PRIMARY KEY, T varchar COLLATE ERP_ES)"_s);
    EXPECT_EQ(toEmbedded(u"SELECT N'Ω', 'Ω', SERVERPROPERTY('ProductMajorVersion')"_s, {}),
              u"SELECT 'Ω', '?', '15'"_s);
}
