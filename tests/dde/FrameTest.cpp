#include "tests/dde/Channel.h"
#include <random>

using namespace quorvane;
using namespace quorvane::test;

namespace {

std::vector<Frame> framesOf(FrameReader& reader, const QByteArray& bytes, qsizetype portion) {
    std::vector<Frame> frames;
    for (qsizetype i = 0; i < bytes.size(); i += portion) {
        reader.feed(bytes.mid(i, portion));
        while (const auto frame = reader.next())
            frames.push_back(*frame);
    }
    return frames;
}

TEST(Frame, IsLaidOutAsDocumented) {
    EXPECT_EQ(encodeFrame({FrameKind::Initiate, u"ñ"_s}), QByteArray("Q1I\0\0\0\2\xc3\xb1", 9));
    EXPECT_EQ(encodeFrame({FrameKind::Accept, {}}), QByteArray("Q1A\0\0\0\0", 7));
}

TEST(Frame, ATextThatNoMessageHoldsIsNotSent) {
    EXPECT_TRUE(encodeFrame({FrameKind::Execute, QString(frameLongestText, u'x')}));
    EXPECT_FALSE(encodeFrame({FrameKind::Execute, QString(frameLongestText + 1, u'x')}));
    EXPECT_FALSE(encodeFrame({FrameKind::Execute, QString(frameLongestText / 2 + 1, u'ñ')}));
    EXPECT_FALSE(encodeFrame({FrameKind::Execute, QString(3, QChar(u'\0'))}));
}

TEST(FrameReader, ReadsMessagesInPortionsOfAnySize) {
    const std::vector<Frame> sent = {{FrameKind::Initiate, topic},
                                     {FrameKind::Execute, QString(3000, u'ñ')},
                                     {FrameKind::Refuse, u"😀"_s},
                                     {FrameKind::Accept, {}}};
    QByteArray bytes;
    for (const Frame& frame : sent)
        bytes += encodeFrame(frame).value();
    for (const qsizetype portion : {1, 2, 3, 6, 7, 8, 100, 100000}) {
        FrameReader reader;
        EXPECT_EQ(framesOf(reader, bytes, portion), sent) << portion;
        EXPECT_FALSE(reader.damaged());
    }
}

TEST(FrameReader, AnUnfinishedMessageIsAwaited) {
    const QByteArray whole = bytesOf(FrameKind::Execute, u"ACCION=V"_s);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        FrameReader reader;
        reader.feed(whole.left(length));
        EXPECT_FALSE(reader.next()) << length;
        EXPECT_FALSE(reader.damaged()) << length;
    }
}

TEST(FrameReader, OtherBytesDamageItForGood) {
    const std::pair<const char*, QByteArray> cases[] = {
        {"another protocol", "GET / HTTP/1.1\r\n"},
        {"its first byte", "G"},
        {"another version", "Q2"},
        {"an unknown kind", "Q1Z"},
        {"too long a text", QByteArray("Q1X\0\1\0\1", 7)},
        {"as long as can be said", "Q1X\xff\xff\xff\xff"},
        {"no UTF-8", QByteArray("Q1X\0\0\0\1\xff", 8)},
        {"a cut character", QByteArray("Q1X\0\0\0\1\xc3", 8)},
        {"a NUL", QByteArray("Q1X\0\0\0\1\0", 8)},
    };
    for (const auto& [what, bytes] : cases) {
        FrameReader reader;
        reader.feed(bytes);
        EXPECT_FALSE(reader.next()) << what;
        EXPECT_TRUE(reader.damaged()) << what;
        reader.feed(bytesOf(FrameKind::Accept));
        EXPECT_FALSE(reader.next()) << what;
    }
}

TEST(FrameReader, AnyBytesAreReadOrRefusedInBoundedSteps) {
    std::mt19937 random(20260101); // the same bytes in every run
    const QByteArray seeds[] = {bytesOf(FrameKind::Initiate, topic),
                                bytesOf(FrameKind::Execute, u"EMPRESA=001;ACCION=V"_s),
                                bytesOf(FrameKind::Refuse, u"ñandú"_s), bytesOf(FrameKind::Accept)};
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes;
        for (int part = 0; part < 4; ++part)
            bytes += seeds[random() % std::size(seeds)];
        for (unsigned change = random() % 4; change > 0; --change)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        bytes.truncate(static_cast<qsizetype>(random() % (bytes.size() + 1)));
        FrameReader reader;
        const auto frames = framesOf(reader, bytes, 1 + static_cast<qsizetype>(random() % 40));
        ASSERT_LE(frames.size(), 4 * bytes.size() / frameHeader + 1);
        for (const Frame& frame : frames)
            ASSERT_TRUE(encodeFrame(frame)); // what was read is what can be said
    }
}

} // namespace
