#include "platform/help/LzxSection.h"

#include "platform/help/ByteReader.h"
#include "platform/help/LzxDecoder.h"

#include <bit>

namespace help {

namespace {

constexpr auto BlockSize = static_cast<qsizetype>(LzxBlockSize);

struct Control {
    int windowBits = 0;
    quint64 blocksPerReset = 0;
};

struct ResetTable {
    quint64 unpackedLength = 0;
    quint64 packedLength = 0;
    QList<quint64> blockStarts;
};

// Windows of 32 KiB to 2 MiB; version 2 counts them and the interval in units of 32 KiB.
bool parseControl(QByteArrayView bytes, Control& control) {
    ByteReader reader(bytes);
    reader.skip(4);
    if (reader.take(4) != QByteArrayView("LZXC"))
        return false;
    const quint64 unit = reader.u32() == 2 ? LzxBlockSize : 1;
    const quint64 interval = reader.u32() * unit;
    const quint64 window = reader.u32() * unit;
    if (!reader.ok() || !std::has_single_bit(window) || interval % LzxBlockSize != 0 || interval == 0)
        return false;
    control.windowBits = std::countr_zero(window);
    control.blocksPerReset = interval / LzxBlockSize;
    return control.windowBits >= 15 && control.windowBits <= 21;
}

bool parseTable(QByteArrayView bytes, qint64 limit, ResetTable& table) {
    ByteReader reader(bytes);
    reader.skip(4);
    const quint64 count = reader.u32();
    reader.skip(4);
    const quint32 tableOffset = reader.u32();
    table.unpackedLength = reader.u64();
    table.packedLength = reader.u64();
    const quint64 blockSize = reader.u64();
    reader.seek(tableOffset);
    const quint64 needed = (table.unpackedLength + LzxBlockSize - 1) / LzxBlockSize;
    if (!reader.ok() || blockSize != LzxBlockSize || table.unpackedLength > static_cast<quint64>(limit) ||
        count < needed)
        return false;
    for (quint64 block = 0; block < needed && reader.ok(); ++block)
        table.blockStarts.append(reader.u64());
    return reader.ok();
}

// The part of the content that one block takes; nothing when it lies outside.
QByteArrayView packedBlock(QByteArrayView content, const ResetTable& table, qsizetype block) {
    const bool isLast = block + 1 == table.blockStarts.size();
    const auto size = std::min<quint64>(table.packedLength, static_cast<quint64>(content.size()));
    const quint64 start = table.blockStarts.at(block);
    const quint64 end = isLast ? size : table.blockStarts.at(block + 1);
    if (start > end || end > size)
        return {};
    return content.sliced(static_cast<qsizetype>(start), static_cast<qsizetype>(end - start));
}

} // namespace

LzxSection unpackLzx(QByteArrayView content, QByteArrayView control, QByteArrayView table, qint64 limit) {
    Control settings;
    ResetTable blocks;
    if (!parseControl(control, settings) || !parseTable(table, limit, blocks))
        return {};
    // The packer fills up the last block, so it is unfolded whole and cut afterwards.
    LzxSection section;
    section.bytes = QByteArray(blocks.blockStarts.size() * BlockSize, '\0');
    const auto unpackedLength = static_cast<qsizetype>(blocks.unpackedLength);
    LzxDecoder decoder(settings.windowBits);
    bool good = false;
    for (qsizetype block = 0; block < blocks.blockStarts.size(); ++block) {
        const qsizetype from = block * BlockSize;
        if (static_cast<quint64>(block) % settings.blocksPerReset == 0) {
            decoder.reset(from);
            good = true;
        }
        const QByteArrayView packed = packedBlock(content, blocks, block);
        const qsizetype needed = std::min(BlockSize, unpackedLength - from);
        good = good && decoder.decodeFrame(packed, section.bytes, from, from + BlockSize) >= needed;
        section.goodBlocks.append(good);
    }
    section.bytes.truncate(unpackedLength);
    return section;
}

} // namespace help
