#include "platform/help/HelpText.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <array>

namespace help {

namespace {

// Code page 1252 where it differs from Latin 1: 0x80 to 0x9F.
constexpr std::array<char16_t, 32> WesternExtras{
    u'€', 0x81, u'‚', u'ƒ', u'„', u'…', u'†', u'‡', u'ˆ', u'‰', u'Š', u'‹', u'Œ', 0x8D, u'Ž', 0x8F,
    0x90, u'‘', u'’', u'“', u'”', u'•', u'–', u'—', u'˜', u'™', u'š', u'›', u'œ', 0x9D, u'ž', u'Ÿ'};

struct Reference {
    QStringView name;
    char16_t character;
};

constexpr std::array<Reference, 26> References{{
    {u"amp", u'&'},    {u"lt", u'<'},     {u"gt", u'>'},     {u"quot", u'"'},   {u"apos", u'\''},
    {u"nbsp", u' '},   {u"aacute", u'á'}, {u"eacute", u'é'}, {u"iacute", u'í'}, {u"oacute", u'ó'},
    {u"uacute", u'ú'}, {u"ntilde", u'ñ'}, {u"uuml", u'ü'},   {u"Aacute", u'Á'}, {u"Eacute", u'É'},
    {u"Iacute", u'Í'}, {u"Oacute", u'Ó'}, {u"Uacute", u'Ú'}, {u"Ntilde", u'Ñ'}, {u"Uuml", u'Ü'},
    {u"iquest", u'¿'}, {u"iexcl", u'¡'},  {u"laquo", u'«'},  {u"raquo", u'»'},  {u"ndash", u'–'},
    {u"hellip", u'…'},
}};

QString decodeWestern(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        text[at] = byte >= 0x80 && byte < 0xA0 ? QChar(WesternExtras.at(byte - 0x80U)) : QChar(byte);
    }
    return text;
}

// The character that a reference (without "&" and ";") stands for, or a null character.
QChar referenced(QStringView name) {
    if (name.startsWith(u'#')) {
        const bool hexadecimal = name.size() > 1 && name[1].toLower() == u'x';
        bool isNumber = false;
        const uint code = name.sliced(hexadecimal ? 2 : 1).toUInt(&isNumber, hexadecimal ? 16 : 10);
        return isNumber && code >= 0x20 && code < 0xD800 ? QChar(static_cast<char16_t>(code)) : QChar();
    }
    for (const Reference& reference : References) {
        if (reference.name == name)
            return reference.character;
    }
    return {};
}

} // namespace

QString decodeText(QByteArrayView bytes) {
    static constexpr qsizetype HeadSize = 1024;
    const QByteArray head = bytes.first(std::min(bytes.size(), HeadSize)).toByteArray().toLower();
    if (head.startsWith("\xEF\xBB\xBF") || head.contains("charset=utf-8") || head.contains("charset=\"utf-8"))
        return QStringDecoder(QStringDecoder::Utf8).decode(bytes);
    return decodeWestern(bytes);
}

QString foldForSearch(QStringView text) {
    QString folded(text.size(), Qt::Uninitialized);
    for (qsizetype at = 0; at < text.size(); ++at) {
        QChar character = text[at];
        const QString parts = character.decomposition();
        if (!parts.isEmpty() && character.decompositionTag() == QChar::Canonical)
            character = parts.front();
        folded[at] = character.toLower();
    }
    return folded;
}

QString resolveReferences(const QString& text) {
    static constexpr qsizetype LongestName = 10;
    QString result;
    result.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const qsizetype end = text[at] == u'&' ? text.indexOf(u';', at) : -1;
        if (end > at && end - at <= LongestName) {
            const QChar character = referenced(QStringView(text).sliced(at + 1, end - at - 1));
            if (!character.isNull()) {
                result += character;
                at = end;
                continue;
            }
        }
        result += text[at];
    }
    return result;
}

QString plainText(const QString& html) {
    static const QRegularExpression silent(QStringLiteral("<(script|style|title)\\b.*?</\\1\\s*>|<!--.*?-->"),
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression tag(QStringLiteral("<[^>]*>"));
    static const QRegularExpression inlineTag(
        QStringLiteral("</?(a|b|i|em|strong|code|kbd|span|tt|u)\\b[^>]*>"),
        QRegularExpression::CaseInsensitiveOption);
    QString text = html;
    text.replace(silent, QStringLiteral(" ")).remove(inlineTag).replace(tag, QStringLiteral(" "));
    return resolveReferences(text).simplified();
}

QString pageTitle(const QString& html) {
    const qsizetype tag = html.indexOf(QStringLiteral("<title"), 0, Qt::CaseInsensitive);
    const qsizetype begin = tag < 0 ? -1 : html.indexOf(u'>', tag);
    const qsizetype end =
        begin < 0 ? -1 : html.indexOf(QStringLiteral("</title"), begin, Qt::CaseInsensitive);
    return end < 0 ? QString() : resolveReferences(html.sliced(begin + 1, end - begin - 1)).simplified();
}

} // namespace help
