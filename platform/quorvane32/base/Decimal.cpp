#include "platform/quorvane32/base/Decimal.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace quorvane {

namespace {

constexpr int mostDigits = 18;
constexpr std::array<double, 23> exactPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                     1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr qint64 largestExactInteger = 1LL << 53;
/// Below this many ten-thousandths two neighbours with four decimals are never the same double, so one that
/// reads back as the double is its shortest text. (From 2^39, some 5.5e11, on they are.)
constexpr double singleTenThousandths = 4e15;

/// Drops trailing zeros behind the decimal point.
Decimal normalized(qint64 unscaled, int scale) {
    if (unscaled == 0)
        return {};
    while (scale > 0 && unscaled % 10 == 0) {
        unscaled /= 10;
        --scale;
    }
    return {unscaled, scale};
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Reads the power behind an "e"; error 13 when there is none.
int readExponent(QStringView text) {
    bool ok = false;
    const int exponent = text.toInt(&ok);
    if (!ok || std::abs(exponent) > 9999)
        raise(ErrorTypeMismatch);
    return exponent;
}

} // namespace

Decimal Decimal::fromDouble(double value) {
    // Nearly every amount has at most four decimals: that case needs no text.
    const double tenThousandths = value * 1e4;
    if (std::abs(tenThousandths) < singleTenThousandths) {
        const qint64 nearest = std::llround(tenThousandths);
        if (static_cast<double>(nearest) / 1e4 == value)
            return normalized(nearest, 4);
    }
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
    return fromText(QString::fromLatin1(text.data(), end - text.data()));
}

Decimal Decimal::fromText(QStringView text) {
    qsizetype i = 0;
    const bool negative = !text.isEmpty() && text[0] == u'-';
    if (negative)
        ++i;
    qint64 unscaled = 0;
    int scale = 0;
    int digits = 0;
    bool point = false;
    bool any = false;
    for (; i < text.size(); ++i) {
        if (text[i] == u'.' && !point) {
            point = true;
        } else if (isDigit(text[i])) {
            any = true;
            if (unscaled != 0 || text[i] != u'0')
                ++digits;
            if (digits > mostDigits)
                raise(ErrorOverflow);
            unscaled = unscaled * 10 + text[i].digitValue();
            scale += point ? 1 : 0;
        } else {
            break;
        }
    }
    if (!any)
        raise(ErrorTypeMismatch);
    if (i < text.size()) {
        if (text[i].toLower() != u'e')
            raise(ErrorTypeMismatch);
        scale -= readExponent(text.mid(i + 1));
    }
    return normalized(negative ? -unscaled : unscaled, scale);
}

double Decimal::toDouble() const {
    if (std::abs(m_unscaled) <= largestExactInteger && std::abs(m_scale) < int(exactPowersOfTen.size())) {
        // Both operands are exact, so the one rounding of the operation is the right one.
        const double power = exactPowersOfTen[std::abs(m_scale)];
        return m_scale >= 0 ? double(m_unscaled) / power : double(m_unscaled) * power;
    }
    // Read by QString: it tells a number too large (infinite) from one too small (0), QByteArray does not.
    const QString text = QString::number(m_unscaled) + u'e' + QString::number(-m_scale);
    const double value = text.toDouble();
    if (std::isinf(value))
        raise(ErrorOverflow);
    return value;
}

QString Decimal::toText(QChar decimalSeparator) const {
    QString digits = QString::number(std::abs(m_unscaled));
    if (m_scale < 0)
        digits += QString(-m_scale, u'0');
    if (m_scale > 0) {
        if (digits.size() <= m_scale)
            digits.prepend(QString(m_scale - digits.size() + 1, u'0'));
        digits.insert(digits.size() - m_scale, decimalSeparator);
        while (digits.endsWith(u'0'))
            digits.chop(1);
        if (digits.endsWith(decimalSeparator))
            digits.chop(1);
    }
    return m_unscaled < 0 ? u'-' + digits : digits;
}

Decimal Decimal::rounded(int decimals) const {
    if (m_scale <= decimals)
        return *this;
    const int drop = m_scale - decimals;
    if (drop > mostDigits)
        return {};
    qint64 power = 1;
    for (int i = 0; i < drop; ++i)
        power *= 10;
    qint64 quotient = m_unscaled / power;
    const qint64 remainder = std::abs(m_unscaled % power);
    const qint64 rest = power - remainder;
    if (remainder > rest || (remainder == rest && quotient % 2 != 0))
        quotient += m_unscaled < 0 ? -1 : 1;
    return normalized(quotient, decimals);
}

} // namespace quorvane
