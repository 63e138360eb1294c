#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/base/NumberText.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <array>

namespace quorvane {

namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Longer entries are no number or date that a person types; the limit keeps a pasted book from being
/// scanned.
constexpr qsizetype longestNumber = 400;
constexpr qsizetype longestDate = 32;

/// True when the digits before the decimal separator are not grouped at all, or in threes behind a first
/// group of one to three that begins with no zero. A point typed on the keypad for a decimal separator
/// ("1.5", "0.125") would otherwise be dropped and the number stored many times too large.
bool isGroupedWell(QStringView text, const RegionalSettings& regional) {
    qsizetype sinceSeparator = 0;
    bool grouped = false;
    bool leadingZero = false;
    for (const QChar c : text) {
        if (isDigit(c)) {
            leadingZero = leadingZero || (!grouped && sinceSeparator == 0 && c == u'0');
            ++sinceSeparator;
        } else if (c == regional.groupSeparator) {
            if (grouped ? sinceSeparator != 3 : (sinceSeparator == 0 || sinceSeparator > 3 || leadingZero))
                return false;
            grouped = true;
            sinceSeparator = 0;
        } else if (c == regional.decimalSeparator || c.toLower() == u'e') {
            break;
        }
    }
    return !grouped || sinceSeparator == 3;
}

/// The number in plain form ("." as decimal point, no grouping); error 13 when the text is no number.
QString plainNumber(QStringView text, const RegionalSettings& regional) {
    if (!isGroupedWell(text, regional))
        raise(ErrorTypeMismatch);
    QString plain;
    bool decimals = false;
    bool exponent = false;
    bool digit = false;
    for (const QChar c : text) {
        const bool signPlace = plain.isEmpty() || plain.endsWith(u'e');
        if (isDigit(c)) {
            digit = true;
            plain += c;
        } else if ((c == u'-' || c == u'+') && signPlace) {
            plain += c;
        } else if (c == regional.decimalSeparator && !decimals && !exponent) {
            decimals = true;
            plain += u'.';
        } else if (c == regional.groupSeparator && digit && !decimals && !exponent) {
            continue;
        } else if (c.toLower() == u'e' && digit && !exponent) {
            exponent = true;
            digit = false;
            plain += u'e';
        } else {
            raise(ErrorTypeMismatch);
        }
    }
    if (!digit)
        raise(ErrorTypeMismatch);
    return plain;
}

int fullYear(int year, qsizetype digits) {
    if (digits > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

} // namespace

QString RegionalSettings::numberText(double value) const {
    return generalNumber(value, decimalSeparator);
}

QString RegionalSettings::groupedText(double value, int decimals) const {
    return groupedNumber(value, decimals, decimalSeparator, groupSeparator);
}

QString RegionalSettings::dateText(const Date& date) const {
    return date.toDayMonthYear(dateSeparator);
}

QString RegionalSettings::monthText(const Date& date) const {
    static constexpr std::array<const char16_t*, 12> months = {
        u"enero", u"febrero", u"marzo",      u"abril",   u"mayo",      u"junio",
        u"julio", u"agosto",  u"septiembre", u"octubre", u"noviembre", u"diciembre"};
    const QDate day = date.toQDate();
    return day.isValid() ? QString::fromUtf16(months[day.month() - 1]) + u' ' + QString::number(day.year())
                         : QString();
}

double RegionalSettings::parseNumber(QStringView text) const {
    text = text.trimmed();
    if (text.isEmpty() || text.size() > longestNumber)
        raise(ErrorTypeMismatch);
    return leadingNumber(plainNumber(text, *this));
}

Date RegionalSettings::parseDate(QStringView text) const {
    text = text.trimmed();
    if (text.size() > longestDate)
        raise(ErrorTypeMismatch);
    std::array<int, 3> parts{};
    std::array<qsizetype, 3> digits{};
    size_t part = 0;
    for (const QChar c : text) {
        if (isDigit(c)) {
            if (++digits[part] > 4)
                raise(ErrorTypeMismatch);
            parts[part] = parts[part] * 10 + c.digitValue();
        } else if ((c == u'/' || c == u'-' || c == u'.') && part < 2 && digits[part] > 0) {
            ++part;
        } else {
            raise(ErrorTypeMismatch);
        }
    }
    // A year of one or three digits is a slip of the finger, not a date of long ago.
    const bool yearIsWhole = digits[2] == 2 || digits[2] == 4;
    if (part != 2 || !yearIsWhole || digits[0] > 2 || digits[1] > 2)
        raise(ErrorTypeMismatch);
    const QDate date(fullYear(parts[2], digits[2]), parts[1], parts[0]);
    if (!date.isValid() || date.year() < 100)
        raise(ErrorTypeMismatch);
    return Date::fromQDate(date);
}

} // namespace quorvane
