#include "common/SqlText.h"
#include "common/Blanks.h"
#include "platform/quorvane32/base/NumberText.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <cmath>
#include <limits>

namespace dalvora {

using quorvane::Date;
using quorvane::Decimal;
using quorvane::Kind;
using quorvane::RegionalSettings;
using quorvane::Value;

namespace {

constexpr double firstDate = -657434; // 01/01/0100
constexpr double pastLastDate = 2958466;
constexpr Date firstDayOf1900(2);

Kind inferredCode(Kind kind) {
    switch (kind) {
    case Kind::Empty:
        return Kind::String;
    case Kind::Single:
    case Kind::Currency:
    case Kind::Decimal:
        return Kind::Double;
    case Kind::Byte:
        return Kind::Integer;
    default:
        return kind;
    }
}

QString withQuotesDoubled(QString text) {
    if (text.contains(u'\''))
        text.replace(u'\'', QLatin1String("''"));
    return text;
}

/// General number form, but a date keeps its short date form.
QString generalText(const Value& value, const RegionalSettings& regional) {
    if (value.get<Date>() != nullptr)
        return value.toText(regional);
    return regional.numberText(value.toNumber(regional));
}

QString doubleText(const Value& value, const RegionalSettings& regional) {
    if (const double* number = value.get<double>())
        return quorvane::generalNumber(*number, u'.');
    return generalText(value, regional).replace(u',', u'.');
}

QString dateText(const Value& value, const RegionalSettings& regional) {
    Date date;
    if (const QString* text = value.get<QString>())
        date = regional.parseDate(*text);
    else
        date = Date(value.toNumber(regional));
    if (date.isEmpty())
        return {};
    if (!(date.serial() >= firstDate && date.serial() < pastLastDate))
        quorvane::raise(quorvane::ErrorOverflow);
    return date.toDayMonthYear(u'/');
}

/// The Double that a field holds. Only a Decimal's comma is taken as decimal point; any other kind is read
/// from its regional text, so under a decimal comma a Double loses its decimals.
double fieldNumber(const Value& value, const RegionalSettings& regional) {
    // An exact number and its text lead to the same double: no need to write the text.
    if (const Decimal* number = value.get<Decimal>())
        return number->toDouble();
    if (const qint32* number = value.get<qint32>())
        return *number;
    return quorvane::leadingNumber(value.toText(regional));
}

qint32 wholeNumber(double number) {
    const double rounded = quorvane::roundHalfEven(number, 0);
    if (!(rounded >= std::numeric_limits<qint32>::min() && rounded <= std::numeric_limits<qint32>::max()))
        quorvane::raise(quorvane::ErrorOverflow);
    return static_cast<qint32>(rounded);
}

/// The first characters of a text, at most as many as the limit; half a surrogate pair is never left over.
QStringView cut(QStringView text, int limit) {
    if (limit <= 0 || text.size() <= limit)
        return text;
    return text.left(text[limit - 1].isHighSurrogate() ? limit - 1 : limit);
}

Date enteredDate(const QString& text, const RegionalSettings& regional) {
    // An empty entry stands for 0, which is the empty date.
    if (text.isEmpty() || text == u"0")
        return {};
    return regional.parseDate(text);
}

Value entered(const QString& text, Kind code, int limit, const RegionalSettings& regional) {
    switch (code) {
    case Kind::String:
        return Value(cut(withoutOuterBlanks(text), limit).toString());
    case Kind::Double:
        // An empty entry in a Double field means 1, not 0: a bracket or percentage that is cleared becomes 1.
        return Value(quorvane::roundHalfEven(text.isEmpty() ? 1 : regional.parseNumber(text), limit));
    case Kind::Long:
    case Kind::Integer:
        return Value(text.isEmpty() ? qint32(0) : wholeNumber(regional.parseNumber(text)));
    case Kind::Date:
        return Value(enteredDate(text, regional));
    case Kind::Boolean:
        return Value(text == u"S");
    default:
        return Value(text);
    }
}

} // namespace

QString SqlText(const Value& value, Kind code, const RegionalSettings& regional) {
    if (code == Kind::Empty)
        code = inferredCode(value.kind());
    switch (code) {
    case Kind::String:
        return withQuotesDoubled(value.toText(regional));
    case Kind::Double:
        return doubleText(value, regional);
    case Kind::Long:
    case Kind::Integer:
        return generalText(value, regional);
    case Kind::Date:
        return dateText(value, regional);
    case Kind::Boolean:
        return value.toBoolean(regional) ? QStringLiteral("S") : QStringLiteral("N");
    default:
        return value.toText(regional);
    }
}

Value FieldValue(Value value, Kind code, const RegionalSettings& regional) {
    switch (code) {
    case Kind::Double:
        return Value(value.isNull() ? 0.0 : fieldNumber(value, regional));
    case Kind::Long:
    case Kind::Integer:
        return Value(value.isNull() ? qint32(0) : wholeNumber(fieldNumber(value, regional)));
    case Kind::Date: {
        // The databases that cannot hold an empty date hold the first day of 1900 in its place.
        const Date* date = value.get<Date>();
        if (value.isNull() || (date != nullptr && *date == firstDayOf1900))
            return Value(qint16(0));
        return value;
    }
    case Kind::Boolean: {
        const QString* text = value.get<QString>();
        return Value(text != nullptr && *text == u"S");
    }
    default:
        if (value.isNull())
            return Value(QString());
        return value;
    }
}

bool TextToValue(const QString& text, Kind code, Value& output, int limit, const RegionalSettings& regional) {
    try {
        output = entered(text, code, limit, regional);
        return true;
    } catch (const quorvane::RunTimeError&) {
        return false;
    }
}

} // namespace dalvora
