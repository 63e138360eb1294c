#pragma once

#include <QString>
#include <QVarLengthArray>

namespace quorvane {

/// Lower-case letters, accents kept, trailing blanks dropped: two texts that the ERP's server takes for equal
/// fold to the same text.
QString foldText(QStringView text);

/// As foldText, and without accents (ñ becomes n): what a person's search compares.
QString foldPlain(QStringView text);

/// Orders texts as a Spanish list does: case does not count, trailing blanks do not count, ñ follows n, and
/// accents only decide between words that are equal otherwise. 0 exactly when foldText of both is equal.
int compareSpanish(QStringView a, QStringView b);

/// The same for UTF-8 bytes, fast when both are ASCII.
int compareSpanishUtf8(QByteArrayView a, QByteArrayView b);

/// Bytes whose order (as memcmp has it) is that of compareSpanish.
using SpanishKey = QVarLengthArray<unsigned char, 64>;

/// Appends a text's key. No key of a text is the beginning of another's, so keys may follow each other, and
/// none begins with a byte 0.
void appendSpanishKey(QStringView text, SpanishKey& key);

/// LIKE with % and _ on folded text; `escape` is U+0000 for none.
bool likeSpanish(QStringView pattern, QStringView text, QChar escape);

} // namespace quorvane
