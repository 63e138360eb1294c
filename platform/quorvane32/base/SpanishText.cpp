#include "platform/quorvane32/base/SpanishText.h"
#include <QVarLengthArray>
#include <array>
#include <cstring>

namespace quorvane {

namespace {

using Folded = QVarLengthArray<char16_t, 64>;

/// Base letters of U+00E0 to U+00FF; a blank where the letter stands for itself.
constexpr std::u16string_view latinBases = u"aaaaaa ceeeeiiii nooooo ouuuuy y";
static_assert(latinBases.size() == 32);

char16_t lower(char16_t c) {
    if (c < 0x80)
        return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
    return static_cast<char16_t>(QChar::toLower(static_cast<char32_t>(c)));
}

/// The letter without its accent; takes lower-case letters.
char16_t base(char16_t c) {
    if (c < 0xE0)
        return c;
    if (c <= 0xFF) {
        const char16_t letter = latinBases[c - 0xE0];
        return letter == u' ' ? c : letter;
    }
    const QString parts = QChar(c).decomposition();
    return parts.isEmpty() || parts[0].unicode() < u'a' ? c : parts[0].unicode();
}

constexpr char16_t enye = 0xF1;

/// Place of a lower-case letter in the alphabet, with room for ñ between n and o.
int alphabetWeight(char16_t c) {
    return c == enye ? u'n' * 2 + 1 : base(c) * 2;
}

QStringView withoutTrailingBlanks(QStringView text) {
    while (!text.isEmpty() && text.back() == u' ')
        text.chop(1);
    return text;
}

Folded folded(QStringView text) {
    Folded result;
    for (const QChar c : withoutTrailingBlanks(text))
        result.append(lower(c.unicode()));
    return result;
}

template<class Weight> int compareBy(const Folded& a, const Folded& b, Weight weight) {
    const auto common = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i)
        if (const int difference = weight(a[i]) - weight(b[i]))
            return difference;
    return static_cast<int>(a.size() - b.size());
}

bool isAscii(QByteArrayView bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

QByteArrayView withoutTrailingBlanks(QByteArrayView bytes) {
    while (!bytes.isEmpty() && bytes.back() == ' ')
        bytes.chop(1);
    return bytes;
}

int compareAscii(QByteArrayView a, QByteArrayView b) {
    a = withoutTrailingBlanks(a);
    b = withoutTrailingBlanks(b);
    const auto common = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i)
        if (const int difference =
                lower(static_cast<unsigned char>(a[i])) - lower(static_cast<unsigned char>(b[i])))
            return difference;
    return static_cast<int>(a.size() - b.size());
}

// Bytes of a key. A text's end comes before every letter; letters beyond ASCII other than ñ take three bytes.
constexpr unsigned char keyEnd = 1;
constexpr unsigned char firstLetter = 2;
constexpr unsigned char wideLetter = 0xFF;
/// Marks of the second part, which tells accented letters from plain ones at the same place.
constexpr unsigned char plainMark = 2;
constexpr unsigned char accentMark = 3;

void appendWide(char16_t c, SpanishKey& key) {
    key.append(static_cast<unsigned char>(c >> 8));
    key.append(static_cast<unsigned char>(c & 0xFF));
}

/// Appends the letter's place in the alphabet; takes lower-case letters.
void appendWeight(char16_t c, SpanishKey& key) {
    const char16_t letter = c == enye ? c : base(c);
    if (letter < 0x80) {
        key.append(static_cast<unsigned char>(firstLetter + letter + (letter > u'n' ? 1 : 0)));
    } else if (letter == enye) {
        key.append(static_cast<unsigned char>(firstLetter + u'n' + 1));
    } else {
        key.append(wideLetter);
        appendWide(letter, key);
    }
}

bool isAccented(char16_t c) {
    return c >= 0xE0 && c != enye && base(c) != c;
}

} // namespace

void appendSpanishKey(QStringView text, SpanishKey& key) {
    text = withoutTrailingBlanks(text);
    qsizetype plainFrom = 0; // behind the last accent
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = lower(text[i].unicode());
        appendWeight(c, key);
        if (isAccented(c))
            plainFrom = i + 1;
    }
    key.append(keyEnd);
    for (qsizetype i = 0; i < plainFrom; ++i) {
        const char16_t c = lower(text[i].unicode());
        key.append(isAccented(c) ? accentMark : plainMark);
        if (isAccented(c))
            appendWide(c, key);
    }
    key.append(keyEnd);
}

QString foldText(QStringView text) {
    const Folded letters = folded(text);
    return QString(reinterpret_cast<const QChar*>(letters.data()), letters.size());
}

QString foldPlain(QStringView text) {
    Folded letters = folded(text);
    for (char16_t& letter : letters)
        letter = base(letter);
    return QString(reinterpret_cast<const QChar*>(letters.data()), letters.size());
}

int compareSpanish(QStringView a, QStringView b) {
    const Folded left = folded(a);
    const Folded right = folded(b);
    if (const int order = compareBy(left, right, alphabetWeight))
        return order;
    return compareBy(left, right, [](char16_t c) { return static_cast<int>(c); });
}

int compareSpanishUtf8(QByteArrayView a, QByteArrayView b) {
    // Most comparisons inside a key meet the same company, code and kind again.
    if (a.size() == b.size() && std::memcmp(a.data(), b.data(), static_cast<std::size_t>(a.size())) == 0)
        return 0;
    if (isAscii(a) && isAscii(b))
        return compareAscii(a, b);
    return compareSpanish(QString::fromUtf8(a), QString::fromUtf8(b));
}

bool likeSpanish(QStringView pattern, QStringView text, QChar escape) {
    // Two positions to come back to are enough: a later % makes an earlier one's other choices needless.
    qsizetype p = 0;
    qsizetype t = 0;
    qsizetype starPattern = -1;
    qsizetype starText = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == u'%' && pattern[p] != escape) {
            starPattern = ++p;
            starText = t;
            continue;
        }
        qsizetype letter = p;
        bool wild = p < pattern.size() && pattern[p] == u'_' && pattern[p] != escape;
        if (p + 1 < pattern.size() && !escape.isNull() && pattern[p] == escape)
            ++letter;
        if (letter < pattern.size() &&
            (wild || lower(pattern[letter].unicode()) == lower(text[t].unicode()))) {
            p = letter + 1;
            ++t;
        } else if (starPattern >= 0) {
            p = starPattern;
            t = ++starText;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'%')
        ++p;
    return p == pattern.size();
}

} // namespace quorvane
