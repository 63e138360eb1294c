#pragma once

#include "platform/help/LzxBits.h"

#include <QByteArray>
#include <QByteArrayView>
#include <array>

namespace help {

/// Unfolds LZX, the compression of help files: Huffman-coded literals and matches in blocks of their own
/// trees, in frames of 32 KiB. It writes into the caller's buffer, which is the match window too, so that no
/// offset can reach outside bytes already unfolded.
class LzxDecoder {
public:
    /// `windowBits`: size of the match window as a power of two, 15 to 21.
    explicit LzxDecoder(int windowBits);

    /// Starts anew: trees empty, no match history; `start` is where the next frame begins in the output.
    void reset(qsizetype start);

    /// Unfolds one frame of `packed` into output[from, to). Gives the number of bytes that are good; fewer
    /// than asked for mean damage, and the decoder is then unusable until the next reset.
    qsizetype decodeFrame(QByteArrayView packed, QByteArray& output, qsizetype from, qsizetype to);

private:
    static constexpr int LiteralCount = 256;
    static constexpr int MostMainSymbols = LiteralCount + 50 * 8;
    static constexpr int LengthSymbols = 249;

    enum class BlockKind { None = 0, Verbatim = 1, Aligned = 2, Uncompressed = 3 };

    bool startBlock(LzxBits& bits);
    bool readTrees(LzxBits& bits);
    bool startUncompressed(LzxBits& bits);
    bool decodeSymbols(LzxBits& bits, QByteArray& output, qsizetype& at, qsizetype to);
    bool copyUncompressed(LzxBits& bits, QByteArray& output, qsizetype& at, qsizetype to);
    bool copyMatch(LzxBits& bits, int symbol, QByteArray& output, qsizetype& at, qsizetype to);
    quint32 matchOffset(LzxBits& bits, int slot);

    int m_windowBits;
    int m_mainSymbols;
    qsizetype m_start = 0;
    bool m_headerRead = false;
    BlockKind m_kind = BlockKind::None;
    quint32 m_left = 0;
    bool m_oddBlock = false;
    std::array<quint32, 3> m_recent{1, 1, 1};
    std::array<quint8, MostMainSymbols> m_mainLengths{};
    std::array<quint8, LengthSymbols> m_lengthLengths{};
    LzxTree m_main;
    LzxTree m_length;
    LzxTree m_aligned;
};

} // namespace help
