#pragma once

#include "platform/quorvane32/base/Date.h"
#include <QString>

namespace quorvane {

/// How numbers and dates are written and read where the user lives. Handed to every conversion, so that tests
/// can run any setting; the default is the Spanish one.
struct RegionalSettings {
    QChar decimalSeparator = u',';
    QChar groupSeparator = u'.';
    QChar dateSeparator = u'/';

    /// "1234,5": general number form with the regional decimal separator.
    QString numberText(double value) const;
    /// "1.234,50": grouped thousands with the given number of decimals.
    QString groupedText(double value, int decimals) const;
    /// "05/03/2006", or "" for the empty date.
    QString dateText(const Date& date) const;
    /// "julio 1997", or "" for the empty date.
    QString monthText(const Date& date) const;

    /// Reads a number as entered: blanks around it, a sign, group separators in threes before the decimal
    /// separator ("1.234,5", never "1.5"), an exponent. Error 13 when the text is no number, 6 when it is too
    /// large.
    double parseNumber(QStringView text) const;
    /// Reads day, month and year in this order, separated by "/", "-" or ".", the year with four digits or
    /// two (00-29 is 2000-2029, 30-99 is 1930-1999). Error 13 when the text is no date of 0100 to 9999.
    Date parseDate(QStringView text) const;
};

} // namespace quorvane
