#pragma once

#include <QString>

namespace quorvane {

/// General number form: the fewest digits that read back as the same number, never an exponent, no grouping.
QString generalNumber(double value, QChar decimalSeparator);

/// Grouped thousands and exactly the given number of decimals, halves to the even decimal neighbour.
QString groupedNumber(double value, int decimals, QChar decimalSeparator, QChar groupSeparator);

/// The double rounded on its decimal digits (2.675 to two decimals is 2.68), halves to the even neighbour.
/// A negative count of decimals returns the value unchanged.
double roundHalfEven(double value, int decimals);

/// The number at the start of a text with "." as decimal point: blanks skipped, reading stops at the first
/// character that cannot continue a number; no number gives 0, one too large for a double raises error 6.
double leadingNumber(QStringView text);

} // namespace quorvane
