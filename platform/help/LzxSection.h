#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

namespace help {

/// Bytes that one block of the packed section unfolds to (the last block may be shorter).
inline constexpr quint64 LzxBlockSize = 0x8000;

/// The packed section of a help file, unfolded.
struct LzxSection {
    QByteArray bytes;
    QList<bool> goodBlocks; ///< for each block: could it be unfolded?
};

/// Unfolds the packed `content` with the help file's `control` data (window, reset interval) and reset
/// `table` (where each block begins). A damaged block costs the blocks up to the next reset, not the file.
/// Gives an empty section when the tables make no sense or more than `limit` bytes would result.
LzxSection unpackLzx(QByteArrayView content, QByteArrayView control, QByteArrayView table, qint64 limit);

} // namespace help
