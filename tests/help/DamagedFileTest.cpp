// Help files that were cut, overwritten or made to do harm: opening and reading them may fail, nothing more.

#include "platform/help/HelpFile.h"
#include "platform/help/LzxSection.h"
#include "platform/help/PageSearch.h"
#include "platform/quorvane32/base/RunTimeError.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>
#include <random>

namespace {

using help::HelpFile;

QByteArray manualBytes() {
    QFile file(QStringLiteral(DALVORA_HELP_FILE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

class DamagedFile : public testing::Test {
protected:
    // Opens the bytes as a help file and reads all of it. True when it opened; every error must be number
    // 321.
    bool useAll(const QByteArray& bytes) {
        QFile file(m_folder.filePath(QStringLiteral("roto.chm")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        try {
            const HelpFile opened(file.fileName());
            EXPECT_TRUE(opened.html(opened.homePage()).has_value());
            opened.pageForContext(138);
            help::PageSearch(opened).find(QStringLiteral("tramo"));
            return true;
        } catch (const quorvane::RunTimeError& error) {
            EXPECT_EQ(error.number(), 321) << error.what();
            return false;
        }
    }

    QTemporaryDir m_folder;
    const QByteArray m_whole = manualBytes();
};

TEST_F(DamagedFile, WholeFileOpens) {
    EXPECT_TRUE(useAll(m_whole));
}

TEST_F(DamagedFile, TruncatedAtAnyLengthNeverCrashes) {
    int opened = 0;
    for (qsizetype length = 0; length < m_whole.size(); length += length < 6000 ? 37 : 1009)
        opened += useAll(m_whole.first(length)) ? 1 : 0;
    EXPECT_FALSE(useAll(m_whole.first(4000)));
    // The end of the file holds only part of the pages: a file cut there still gives the others.
    EXPECT_GT(opened, 0);
}

TEST_F(DamagedFile, RandomBytesNeverCrash) {
    std::mt19937 random(20060305);
    int failed = 0;
    for (int round = 0; round < 400; ++round) {
        QByteArray bytes = m_whole;
        const int changes = 1 << (random() % 7);
        // Half of the rounds hit the header and directory, where offsets and lengths stand.
        const auto reach = round % 2 == 0 ? 6000U : static_cast<unsigned>(bytes.size());
        for (int change = 0; change < changes; ++change) {
            const auto at = static_cast<qsizetype>(random() % reach);
            bytes[at] = static_cast<char>(random() % 3 == 0 ? 0xFF : random() % 256);
        }
        failed += useAll(bytes) ? 0 : 1;
    }
    EXPECT_GT(failed, 0);
    EXPECT_LT(failed, 400);
}

TEST_F(DamagedFile, DamagedPackedPartCostsPagesNotTheFile) {
    QByteArray bytes = m_whole;
    for (qsizetype at = bytes.size() - 2000; at < bytes.size() - 1000; ++at)
        bytes[at] = static_cast<char>(at * 31);
    ASSERT_TRUE(useAll(bytes));
}

TEST_F(DamagedFile, OffsetsAndLengthsBeyondTheFileAreRefused) {
    for (const qsizetype field : {0x48, 0x50, 0x58}) {
        for (const quint64 value :
             {~0ULL, ~0ULL - 7, 1ULL << 63, static_cast<unsigned long long>(m_whole.size())}) {
            QByteArray bytes = m_whole;
            qToLittleEndian(value, bytes.data() + field);
            EXPECT_NO_FATAL_FAILURE(useAll(bytes)) << field << " " << value;
        }
    }
}

TEST_F(DamagedFile, DirectoryPagesOfSizeZeroDoNotHang) {
    QByteArray bytes = m_whole;
    const auto directory = qFromLittleEndian<quint64>(bytes.constData() + 0x48);
    qToLittleEndian<quint32>(0, bytes.data() + directory + 0x10);
    EXPECT_FALSE(useAll(bytes));
}

QByteArray numbers32(std::initializer_list<quint32> values) {
    QByteArray bytes;
    for (const quint32 value : values) {
        std::array<char, 4> raw{};
        qToLittleEndian(value, raw.data());
        bytes.append(raw.data(), 4);
    }
    return bytes;
}

const QByteArray OneBlockControl = numbers32({6}) + "LZXC" + numbers32({2, 2, 2, 1, 0});

QByteArray tableFor(quint32 unpacked, quint32 packed) {
    return numbers32({2, 1, 8, 0x28, unpacked, 0, packed, 0, 0x8000, 0, 0, 0});
}

/// Packs by hand: an uncompressed block of "ab" that sets the recent match offsets, then a block whose every
/// bit 1 is a match of two bytes at the most recent offset.
class PackedByHand {
public:
    explicit PackedByHand(quint32 recentOffset) {
        put(0, 1); // no translation of machine code
        put(3, 3);
        put(2, 24);
        align();
        m_bytes += numbers32({recentOffset, recentOffset, recentOffset}) + "ab";
        put(1, 3);
        put(0x7FFE, 24);
        // Codes of length 1 for the letter "a" (bit 0) and for the match (bit 1); all other lengths are 0.
        lengths(97, true, 158);
        lengths(0, true, 255);
        lengths(0, false, 249);
        for (int match = 0; match < 0x7FFE / 2; ++match)
            put(1, 1);
        align();
    }

    help::LzxSection unpacked() const {
        const auto size = static_cast<quint32>(m_bytes.size());
        return help::unpackLzx(m_bytes, OneBlockControl, tableFor(0x8000, size), 1 << 20);
    }

private:
    void put(quint32 value, int count) {
        while (count-- > 0) {
            m_word = m_word << 1 | (value >> count & 1U);
            if (++m_count % 16 == 0)
                m_bytes.append(static_cast<char>(m_word)).append(static_cast<char>(m_word >> 8));
        }
    }

    void align() {
        while (m_count % 16 != 0)
            put(0, 1);
    }

    // A table of code lengths: zeros, perhaps a one, zeros. Its own tree has four codes of two bits: 0 for
    // "same", 1 for "one more", 2 and 3 for short and long runs of zeros.
    void lengths(int zerosBefore, bool one, int zerosAfter) {
        for (int code = 0; code < 20; ++code)
            put(code == 0 || (code >= 16 && code <= 18) ? 2 : 0, 4);
        zeros(zerosBefore);
        if (one)
            put(1, 2);
        zeros(zerosAfter);
    }

    void zeros(int count) {
        for (; count >= 20; count -= std::min(count, 51)) {
            put(3, 2);
            put(static_cast<quint32>(std::min(count, 51) - 20), 5);
        }
        for (; count > 0; --count)
            put(0, 2);
    }

    QByteArray m_bytes;
    quint32 m_word = 0;
    int m_count = 0;
};

TEST(LzxSection, RepeatedOffsetInsideTheHistoryIsFollowed) {
    const help::LzxSection section = PackedByHand(2).unpacked();
    EXPECT_EQ(section.goodBlocks, QList<bool>{true});
    EXPECT_EQ(section.bytes, QByteArray("ab").repeated(0x4000));
}

// An uncompressed block may set any offset it likes: a decoder that trusts it reads outside its window.
TEST(LzxSection, RepeatedOffsetOutsideTheHistoryIsDamage) {
    for (const quint32 offset : {0U, 3U, 0x10000U, 0x100000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        const help::LzxSection section = PackedByHand(offset).unpacked();
        EXPECT_EQ(section.goodBlocks, QList<bool>{false}) << offset;
        EXPECT_EQ(section.bytes.first(2), "ab");
    }
}

TEST(LzxSection, TablesThatMakeNoSenseGiveNothing) {
    const QByteArray packed(100, 'x');
    const qint64 limit = 1 << 20;
    EXPECT_TRUE(help::unpackLzx(packed, OneBlockControl, tableFor(0xFFFFFFFF, 100), limit).bytes.isEmpty());
    EXPECT_TRUE(help::unpackLzx(packed, OneBlockControl, QByteArray(), limit).bytes.isEmpty());
    EXPECT_TRUE(help::unpackLzx(packed, QByteArray(), tableFor(2, 100), limit).bytes.isEmpty());
    for (const quint32 window : {0U, 3U, 0x8000U, 0xFFFFFFFFU}) {
        const QByteArray control = numbers32({6}) + "LZXC" + numbers32({2, 2, window, 1, 0});
        EXPECT_TRUE(help::unpackLzx(packed, control, tableFor(2, 100), limit).bytes.isEmpty()) << window;
    }
}

TEST(LzxSection, DamagedBlockIsMarked) {
    const help::LzxSection section =
        help::unpackLzx(QByteArray(50, '\xFF'), OneBlockControl, tableFor(10, 50), 1 << 20);
    EXPECT_EQ(section.goodBlocks, QList<bool>{false});
}

} // namespace
