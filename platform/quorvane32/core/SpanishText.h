#pragma once

#include <QString>

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

/// LIKE with % and _ on folded text; `escape` is U+0000 for none.
bool likeSpanish(QStringView pattern, QStringView text, QChar escape);

} // namespace quorvane
