#pragma once

#include <QString>
#include <QtGlobal>

namespace quorvane {

/// An exact decimal number: unscaled * 10^-scale. Seventeen digits hold every double exactly enough to come
/// back as the same double, so a database's decimal column loses nothing whatever way the engine stores it.
class Decimal {
public:
    Decimal() = default;
    Decimal(qint64 unscaled, int scale) : m_unscaled(unscaled), m_scale(scale) {}

    /// The decimal with the fewest digits that reads back as the given finite double.
    static Decimal fromDouble(double value);
    /// Reads [-]digits[.digits][e[+-]digits]; error 13 when the text is no such number, 6 beyond 18 digits.
    static Decimal fromText(QStringView text);

    /// The nearest double; error 6 for a number beyond all of them.
    double toDouble() const;
    /// Digits with the given decimal separator, no grouping, no exponent, no trailing zeros behind the
    /// separator.
    QString toText(QChar decimalSeparator) const;
    /// Rounded to the given number of decimals, halves to the even neighbour.
    Decimal rounded(int decimals) const;

    qint64 unscaled() const { return m_unscaled; }
    int scale() const { return m_scale; }

private:
    qint64 m_unscaled = 0;
    int m_scale = 0;
};

} // namespace quorvane
