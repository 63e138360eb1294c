#pragma once

#include <QStringView>
#include <QtGlobal>

namespace dalvora::demo {

/// Amounts of money and percentages are kept as whole hundredths, so that sums are exact.
using Hundredths = qint64;

/// "14" is 1400 and "0.05" is 5; error 13 for a text that is no number.
Hundredths hundredthsOf(QStringView text);

/// value * numerator / denominator, halves away from zero; the denominator is positive.
constexpr qint64 roundedShare(qint64 value, qint64 numerator, qint64 denominator) {
    const qint64 product = value * numerator;
    const qint64 half = product < 0 ? -denominator / 2 : denominator / 2;
    return (product + half) / denominator;
}

} // namespace dalvora::demo
