#include "platform/help/LzxBits.h"

#include <algorithm>

namespace help {

quint32 LzxBits::bit() {
    if (m_left == 0) {
        const auto byteAt = [this](qsizetype at) {
            return at < m_bytes.size() ? static_cast<quint32>(static_cast<unsigned char>(m_bytes[at])) : 0U;
        };
        m_ok = m_ok && m_next < m_bytes.size();
        m_word = byteAt(m_next) | (byteAt(m_next + 1) << 8);
        m_next = std::min(m_next + 2, m_bytes.size());
        m_left = 16;
    }
    --m_left;
    return (m_word >> m_left) & 1U;
}

quint32 LzxBits::bits(int count) {
    quint32 value = 0;
    while (count-- > 0)
        value = (value << 1) | bit();
    return value;
}

void LzxBits::alignForRawBytes() {
    // At least one bit of filling stands before raw bytes: exactly on a word's edge it is a whole word.
    if (m_left == 0)
        bits(16);
    m_left = 0;
}

QByteArrayView LzxBits::rawBytes(qsizetype count) {
    if (count > rawBytesLeft()) {
        m_ok = false;
        return {};
    }
    const QByteArrayView part = m_bytes.sliced(m_next, count);
    m_next += count;
    return part;
}

bool LzxTree::build(std::span<const quint8> lengths) {
    m_counts.fill(0);
    for (const quint8 length : lengths)
        ++m_counts.at(length);
    int free = 1;
    for (int length = 1; length <= LongestCode; ++length) {
        free = free * 2 - m_counts.at(length);
        if (free < 0)
            return false;
    }
    std::array<int, LongestCode + 2> next{};
    for (int length = 1; length <= LongestCode; ++length)
        next.at(length + 1) = next.at(length) + m_counts.at(length);
    m_symbols.assign(lengths.size(), 0);
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        if (lengths[symbol] != 0)
            m_symbols[static_cast<std::size_t>(next.at(lengths[symbol])++)] = static_cast<quint16>(symbol);
    }
    return true;
}

// Walks the codes by length: the codes of one length follow each other, those of the next begin at twice the
// first free one.
int LzxTree::symbol(LzxBits& bits) const {
    int code = 0;
    int first = 0;
    int index = 0;
    for (int length = 1; length <= LongestCode && bits.ok(); ++length) {
        code |= static_cast<int>(bits.bit());
        const int count = m_counts.at(length);
        if (code - first < count)
            return m_symbols[static_cast<std::size_t>(index + code - first)];
        index += count;
        first = (first + count) * 2;
        code *= 2;
    }
    return -1;
}

namespace {

constexpr int ZeroRun = 17;
constexpr int LongZeroRun = 18;
constexpr int SameRun = 19;

quint8 difference(quint8 previous, int symbol) {
    return static_cast<quint8>((previous + 17 - symbol) % 17);
}

} // namespace

bool readCodeLengths(LzxBits& bits, std::span<quint8> lengths) {
    std::array<quint8, 20> treeLengths{};
    for (quint8& length : treeLengths)
        length = static_cast<quint8>(bits.bits(4));
    LzxTree tree;
    if (!tree.build(treeLengths))
        return false;
    for (std::size_t at = 0; at < lengths.size();) {
        int symbol = tree.symbol(bits);
        std::size_t run = 1;
        quint8 value = 0;
        if (symbol == ZeroRun)
            run = 4 + bits.bits(4);
        else if (symbol == LongZeroRun)
            run = 20 + bits.bits(5);
        else if (symbol == SameRun) {
            run = 4 + bits.bits(1);
            symbol = tree.symbol(bits);
        }
        if (symbol < 0 || symbol > LongZeroRun || !bits.ok())
            return false;
        if (symbol < ZeroRun)
            value = difference(lengths[at], symbol);
        for (; run > 0 && at < lengths.size(); --run)
            lengths[at++] = value;
    }
    return bits.ok();
}

} // namespace help
