#include "platform/quorvane32/base/NumberText.h"
#include "platform/quorvane32/base/Decimal.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <array>
#include <charconv>
#include <cmath>

namespace quorvane {

namespace {

// The longest fixed form of a finite double: a sign, "0." and about 1,075 digits is never reached, since the
// shortest form has 17 significant digits and at most 324 zeros before them.
using FixedText = std::array<char, 400>;

QString fixedText(double value, QChar decimalSeparator) {
    FixedText buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): written before it is read
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed).ptr;
    QString text = QString::fromLatin1(buffer.data(), end - buffer.data());
    if (decimalSeparator != u'.')
        text.replace(u'.', decimalSeparator);
    return text;
}

/// The end of the number that starts the text: sign, digits, point, digits, exponent.
qsizetype numberEnd(QStringView text) {
    qsizetype i = 0;
    const auto digits = [&] {
        const qsizetype start = i;
        while (i < text.size() && text[i] >= u'0' && text[i] <= u'9')
            ++i;
        return i - start;
    };
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
        ++i;
    qsizetype count = digits();
    if (i < text.size() && text[i] == u'.') {
        ++i;
        count += digits();
    }
    if (count == 0)
        return 0;
    if (i < text.size() && text[i].toLower() == u'e') {
        const qsizetype mark = i++;
        if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
            ++i;
        if (digits() == 0)
            i = mark;
    }
    return i;
}

} // namespace

QString generalNumber(double value, QChar decimalSeparator) {
    if (value == 0)
        return QStringLiteral("0"); // never "-0"
    return fixedText(value, decimalSeparator);
}

QString groupedNumber(double value, int decimals, QChar decimalSeparator, QChar groupSeparator) {
    QString text = fixedText(std::abs(roundHalfEven(value, decimals)), u'.');
    const bool negative = roundHalfEven(value, decimals) < 0;
    qsizetype point = text.indexOf(u'.');
    if (point < 0) {
        point = text.size();
        if (decimals > 0)
            text += u'.';
    }
    if (decimals > 0) {
        text += QString(decimals - (text.size() - point - 1), u'0');
        text[point] = decimalSeparator;
    }
    for (qsizetype i = point - 3; i > 0; i -= 3)
        text.insert(i, groupSeparator);
    return negative ? u'-' + text : text;
}

double roundHalfEven(double value, int decimals) {
    if (decimals < 0 || !std::isfinite(value))
        return value;
    return Decimal::fromDouble(value).rounded(decimals).toDouble();
}

double leadingNumber(QStringView text) {
    while (!text.isEmpty() && text[0].isSpace())
        text = text.mid(1);
    QStringView number = text.left(numberEnd(text));
    if (number.startsWith(u'+'))
        number = number.mid(1);
    if (number.isEmpty())
        return 0;
    // A number too small for a double is 0 here, one too large infinite.
    const double value = number.toDouble();
    if (std::isinf(value))
        raise(ErrorOverflow);
    return value;
}

} // namespace quorvane
