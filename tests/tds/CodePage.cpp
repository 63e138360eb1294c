#include "tests/tds/CodePage.h"

#include <algorithm>
#include <iterator>

namespace dalvora::test::tds {

namespace {

/// The letters of the bytes 80 to 9F; 0 where there is none. The other bytes are Latin-1.
constexpr char16_t upperControls[] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

char byteOf(char16_t letter) {
    if (letter < 0x80 || (letter >= 0xA0 && letter <= 0xFF))
        return static_cast<char>(letter);
    const auto* found = std::ranges::find(upperControls, letter);
    return found == std::end(upperControls) ? '?' : static_cast<char>(0x80 + (found - upperControls));
}

} // namespace

QByteArray toCodePage(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar letter : text)
        bytes.append(byteOf(letter.unicode()));
    return bytes;
}

QString throughCodePage(const QString& text) {
    QString left = text;
    for (QChar& letter : left)
        if (byteOf(letter.unicode()) == '?')
            letter = u'?';
    return left;
}

} // namespace dalvora::test::tds
