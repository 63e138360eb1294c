#pragma once

#include <QByteArrayView>
#include <array>
#include <span>
#include <vector>

namespace help {

/// The bits of an LZX frame: words of 16 bits, low byte first, taken from the high bit down. Past the end it
/// gives zeros and turns bad.
class LzxBits {
public:
    explicit LzxBits(QByteArrayView bytes) : m_bytes(bytes) {}

    bool ok() const { return m_ok; }
    quint32 bit();
    quint32 bits(int count);
    /// Moves to the next word, as the raw bytes of an uncompressed block ask; a word already begun is left.
    void alignForRawBytes();
    /// The next `count` raw bytes; empty and bad when they are not there. Only right after an alignment.
    QByteArrayView rawBytes(qsizetype count);
    qsizetype rawBytesLeft() const { return m_bytes.size() - m_next; }

private:
    QByteArrayView m_bytes;
    qsizetype m_next = 0;
    quint32 m_word = 0;
    int m_left = 0;
    bool m_ok = true;
};

/// A canonical Huffman tree of code lengths up to 16.
class LzxTree {
public:
    static constexpr int LongestCode = 16;

    /// Builds the tree; false when the lengths ask for more codes than there are.
    bool build(std::span<const quint8> lengths);
    /// The next symbol, or -1 when the bits are no code of this tree.
    int symbol(LzxBits& bits) const;

private:
    std::array<int, LongestCode + 1> m_counts{};
    std::vector<quint16> m_symbols;
};

/// Reads the code lengths of `lengths`, each told as the difference to the value it has. False on damage.
bool readCodeLengths(LzxBits& bits, std::span<quint8> lengths);

} // namespace help
