#include "platform/help/LzxDecoder.h"

#include "platform/help/ByteReader.h"

#include <algorithm>

namespace help {

namespace {

constexpr int ShortestMatch = 2;
constexpr int LongLength = 7;

// Slots beyond the first four double their reach every second slot, up to 17 further bits.
constexpr int extraBits(int slot) {
    return slot < 4 ? 0 : std::min(slot / 2 - 1, 17);
}

constexpr quint32 baseOffset(int slot) {
    quint32 base = 0;
    for (int at = 0; at < slot; ++at)
        base += 1U << extraBits(at);
    return base;
}

constexpr auto BaseOffsets = [] {
    std::array<quint32, 51> table{};
    for (int slot = 0; slot < 51; ++slot)
        table[static_cast<std::size_t>(slot)] = baseOffset(slot);
    return table;
}();

constexpr int slotCount(int windowBits) {
    return windowBits == 20 ? 42 : windowBits == 21 ? 50 : windowBits * 2;
}

} // namespace

LzxDecoder::LzxDecoder(int windowBits)
    : m_windowBits(windowBits), m_mainSymbols(LiteralCount + slotCount(windowBits) * 8) {}

void LzxDecoder::reset(qsizetype start) {
    m_start = start;
    m_headerRead = false;
    m_kind = BlockKind::None;
    m_left = 0;
    m_oddBlock = false;
    m_recent = {1, 1, 1};
    m_mainLengths.fill(0);
    m_lengthLengths.fill(0);
}

qsizetype LzxDecoder::decodeFrame(QByteArrayView packed, QByteArray& output, qsizetype from, qsizetype to) {
    LzxBits bits(packed);
    if (!m_headerRead) {
        // The translation of machine code, which this bit would announce, has no place in a manual.
        if (bits.bit() != 0)
            return 0;
        m_headerRead = true;
    }
    qsizetype at = from;
    while (at < to) {
        if (m_left == 0 && !startBlock(bits))
            break;
        const bool good = m_kind == BlockKind::Uncompressed ? copyUncompressed(bits, output, at, to)
                                                            : decodeSymbols(bits, output, at, to);
        if (!good)
            break;
    }
    return at - from;
}

bool LzxDecoder::startBlock(LzxBits& bits) {
    if (m_kind == BlockKind::Uncompressed && m_oddBlock)
        bits.rawBytes(1);
    const quint32 kind = bits.bits(3);
    m_left = bits.bits(24);
    if (!bits.ok() || kind < 1 || kind > 3 || m_left == 0)
        return false;
    m_kind = static_cast<BlockKind>(kind);
    m_oddBlock = m_left % 2 != 0;
    return m_kind == BlockKind::Uncompressed ? startUncompressed(bits) : readTrees(bits);
}

bool LzxDecoder::readTrees(LzxBits& bits) {
    if (m_kind == BlockKind::Aligned) {
        std::array<quint8, 8> lengths{};
        for (quint8& length : lengths)
            length = static_cast<quint8>(bits.bits(3));
        if (!m_aligned.build(lengths))
            return false;
    }
    const std::span<quint8> main(m_mainLengths.data(), static_cast<std::size_t>(m_mainSymbols));
    return readCodeLengths(bits, main.first(LiteralCount)) &&
           readCodeLengths(bits, main.subspan(LiteralCount)) && readCodeLengths(bits, m_lengthLengths) &&
           m_main.build(main) && m_length.build(m_lengthLengths);
}

bool LzxDecoder::startUncompressed(LzxBits& bits) {
    bits.alignForRawBytes();
    ByteReader offsets(bits.rawBytes(12));
    for (quint32& offset : m_recent)
        offset = offsets.u32();
    return offsets.ok() && bits.ok();
}

bool LzxDecoder::copyUncompressed(LzxBits& bits, QByteArray& output, qsizetype& at, qsizetype to) {
    const qsizetype count = std::min(static_cast<qsizetype>(m_left), to - at);
    const QByteArrayView bytes = bits.rawBytes(count);
    if (bytes.size() != count)
        return false;
    std::copy(bytes.begin(), bytes.end(), output.begin() + at);
    at += count;
    m_left -= static_cast<quint32>(count);
    return true;
}

bool LzxDecoder::decodeSymbols(LzxBits& bits, QByteArray& output, qsizetype& at, qsizetype to) {
    while (at < to && m_left > 0) {
        const int symbol = m_main.symbol(bits);
        if (symbol < 0 || !bits.ok())
            return false;
        if (symbol < LiteralCount) {
            output[at++] = static_cast<char>(symbol);
            --m_left;
        } else if (!copyMatch(bits, symbol - LiteralCount, output, at, to)) {
            return false;
        }
    }
    return true;
}

bool LzxDecoder::copyMatch(LzxBits& bits, int symbol, QByteArray& output, qsizetype& at, qsizetype to) {
    int length = symbol % 8;
    if (length == LongLength) {
        const int more = m_length.symbol(bits);
        if (more < 0)
            return false;
        length += more;
    }
    length += ShortestMatch;
    const quint32 offset = matchOffset(bits, symbol / 8);
    // A match stays inside its frame, its block and what is already unfolded since the reset.
    const qsizetype reach = std::min<qsizetype>(at - m_start, qsizetype{1} << m_windowBits);
    if (!bits.ok() || offset == 0 || static_cast<qsizetype>(offset) > reach || length > to - at ||
        static_cast<quint32>(length) > m_left)
        return false;
    m_left -= static_cast<quint32>(length);
    char* const bytes = output.data();
    for (; length > 0; --length, ++at)
        bytes[at] = bytes[at - static_cast<qsizetype>(offset)];
    return true;
}

quint32 LzxDecoder::matchOffset(LzxBits& bits, int slot) {
    if (slot < 3) {
        std::swap(m_recent[0], m_recent[static_cast<std::size_t>(slot)]);
        return m_recent[0];
    }
    const int extra = extraBits(slot);
    quint32 offset = BaseOffsets.at(static_cast<std::size_t>(slot)) - 2;
    if (m_kind == BlockKind::Aligned && extra >= 3) {
        offset += bits.bits(extra - 3) << 3;
        const int low = m_aligned.symbol(bits);
        offset = low < 0 ? 0 : offset + static_cast<quint32>(low);
    } else {
        offset += bits.bits(extra);
    }
    m_recent = {offset, m_recent[0], m_recent[1]};
    return offset;
}

} // namespace help
