#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace help {

/// Bytes of a help file as text: UTF-8 when the bytes say so (byte order mark or a charset in the page), else
/// the Western code page 1252.
QString decodeText(QByteArrayView bytes);

/// `text` without case and accents, character by character: positions in the result are positions in `text`.
QString foldForSearch(QStringView text);

/// Replaces the character references of HTML (&amp;, &ntilde;, &#241; ...); unknown ones stay as they are.
QString resolveReferences(const QString& text);

/// The readable text of an HTML page, without tags, scripts and styles, its white space run together.
QString plainText(const QString& html);

/// What stands between <title> and </title>, or nothing.
QString pageTitle(const QString& html);

} // namespace help
