#include "platform/reportengine/rows/RowCodec.h"
#include <cmath>

namespace quorvane::report {

namespace {

/// The first byte of a value. Most are the kind; texts, dates and Booleans have two forms.
enum Tag : char {
    EmptyTag,
    NullTag,
    IntegerTag,
    LongTag,
    SingleTag,
    DoubleTag,
    CurrencyTag,
    DateTag, ///< with a time of day
    DayTag,
    WideTextTag,
    NarrowTextTag, ///< Latin-1
    TrueTag,
    FalseTag,
    DecimalTag,
    ByteTag,
};

constexpr qsizetype longestNumber = 10; ///< bytes of a 64-bit number in groups of seven bits

char* putNumber(char* place, quint64 number) {
    for (; number >= 0x80; number >>= 7)
        *place++ = static_cast<char>(number | 0x80);
    *place++ = static_cast<char>(number);
    return place;
}

const char* takeNumber(const char* place, quint64& number) {
    number = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(*place++);
        number |= static_cast<quint64>(byte & 0x7F) << shift;
        if (byte < 0x80)
            return place;
    }
}

// Signed numbers keep their sign in the last bit: small ones stay short either side of zero.
quint64 folded(qint64 number) {
    return (static_cast<quint64>(number) << 1) ^ static_cast<quint64>(number >> 63);
}
qint64 unfolded(quint64 number) {
    return static_cast<qint64>(number >> 1) ^ -static_cast<qint64>(number & 1);
}

void appendTag(ByteBuffer& row, Tag tag) {
    *row.grow(1) = tag;
}

void appendSigned(ByteBuffer& row, Tag tag, qint64 number) {
    char* const start = row.grow(1 + longestNumber);
    *start = tag;
    const char* const end = putNumber(start + 1, folded(number));
    row.shrinkTo(end - row.data());
}

template<class T> void appendRaw(ByteBuffer& row, Tag tag, T value) {
    char* const place = row.grow(1 + sizeof value);
    *place = tag;
    std::memcpy(place + 1, &value, sizeof value);
}

template<class T> T takeRaw(const char* place) {
    T value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

qint64 takeSigned(const char* place) {
    quint64 number = 0;
    takeNumber(place, number);
    return unfolded(number);
}

void appendDate(ByteBuffer& row, Date date) {
    const double day = std::trunc(date.serial());
    if (day == date.serial() && std::abs(day) < 1e9)
        appendSigned(row, DayTag, static_cast<qint64>(day));
    else
        appendRaw(row, DateTag, date.serial());
}

void appendText(ByteBuffer& row, const QString& text) {
    const char16_t* const letters = reinterpret_cast<const char16_t*>(text.utf16());
    const qsizetype length = text.size();
    char16_t bits = 0;
    for (qsizetype i = 0; i < length; ++i)
        bits |= letters[i];
    const bool narrow = bits < 0x100;
    const qsizetype bytes = narrow ? length : length * 2;
    char* const start = row.grow(1 + longestNumber + bytes);
    *start = narrow ? NarrowTextTag : WideTextTag;
    char* const place = putNumber(start + 1, static_cast<quint64>(bytes));
    if (narrow)
        for (qsizetype i = 0; i < length; ++i)
            place[i] = static_cast<char>(letters[i]);
    else
        std::memcpy(place, letters, static_cast<std::size_t>(bytes));
    row.shrinkTo(place + bytes - row.data());
}

void appendDecimal(ByteBuffer& row, const Decimal& number) {
    char* const start = row.grow(1 + 2 * longestNumber);
    *start = DecimalTag;
    char* const place = putNumber(start + 1, folded(number.scale()));
    const char* const end = putNumber(place, folded(number.unscaled()));
    row.shrinkTo(end - row.data());
}

Decimal takeDecimal(const char* place) {
    quint64 scale = 0;
    place = takeNumber(place, scale);
    return {takeSigned(place), static_cast<int>(unfolded(scale))};
}

QString takeText(char tag, const char* place) {
    quint64 bytes = 0;
    place = takeNumber(place, bytes);
    const auto size = static_cast<qsizetype>(bytes);
    if (tag == NarrowTextTag)
        return QString::fromLatin1(place, size);
    QString text(size / 2, Qt::Uninitialized);
    std::memcpy(text.data(), place, bytes);
    return text;
}

/// The end of the value that begins here.
const char* skip(const char* place) {
    quint64 number = 0;
    switch (*place++) {
    case IntegerTag:
    case LongTag:
    case CurrencyTag:
    case DayTag:
        return takeNumber(place, number);
    case DecimalTag:
        return takeNumber(takeNumber(place, number), number);
    case SingleTag:
        return place + sizeof(float);
    case DoubleTag:
    case DateTag:
        return place + sizeof(double);
    case WideTextTag:
    case NarrowTextTag:
        place = takeNumber(place, number);
        return place + number;
    case ByteTag:
        return place + 1;
    default: // Empty, Null and the Booleans are their tags
        return place;
    }
}

} // namespace

std::optional<double> numberOf(const Value& value) {
    switch (value.kind()) {
    case Kind::Empty:
    case Kind::Null:
        return std::nullopt;
    case Kind::String: {
        bool isNumber = false;
        const double number = value.get<QString>()->toDouble(&isNumber);
        return isNumber ? std::optional(number) : std::nullopt;
    }
    default:
        return value.toNumber(RegionalSettings());
    }
}

void appendValue(ByteBuffer& row, const Value& value) {
    switch (value.kind()) {
    case Kind::Empty:
        return appendTag(row, EmptyTag);
    case Kind::Null:
        return appendTag(row, NullTag);
    case Kind::Integer:
        return appendSigned(row, IntegerTag, *value.get<qint16>());
    case Kind::Long:
        return appendSigned(row, LongTag, *value.get<qint32>());
    case Kind::Single:
        return appendRaw(row, SingleTag, *value.get<float>());
    case Kind::Double:
        return appendRaw(row, DoubleTag, *value.get<double>());
    case Kind::Currency:
        return appendSigned(row, CurrencyTag, value.get<Value::Currency>()->tenThousandths);
    case Kind::Date:
        return appendDate(row, *value.get<Date>());
    case Kind::String:
        return appendText(row, *value.get<QString>());
    case Kind::Boolean:
        return appendTag(row, *value.get<bool>() ? TrueTag : FalseTag);
    case Kind::Decimal:
        return appendDecimal(row, *value.get<Decimal>());
    case Kind::Byte:
        return appendRaw(row, ByteTag, *value.get<quint8>());
    }
}

void RowReader::load(QByteArrayView row) {
    m_row = row.data();
    const char* place = m_row;
    for (std::size_t i = 1; i < m_ends.size(); ++i) {
        place = skip(place);
        m_ends[i] = static_cast<int>(place - m_row);
    }
}

Value RowReader::value(int column) const {
    const char* const place = m_row + m_ends[column];
    const char* const payload = place + 1;
    switch (*place) {
    case NullTag:
        return Value::Null{};
    case IntegerTag:
        return static_cast<qint16>(takeSigned(payload));
    case LongTag:
        return static_cast<qint32>(takeSigned(payload));
    case SingleTag:
        return takeRaw<float>(payload);
    case DoubleTag:
        return takeRaw<double>(payload);
    case CurrencyTag:
        return Value::Currency{takeSigned(payload)};
    case DateTag:
        return Date(takeRaw<double>(payload));
    case DayTag:
        return Date(static_cast<double>(takeSigned(payload)));
    case WideTextTag:
    case NarrowTextTag:
        return takeText(*place, payload);
    case TrueTag:
    case FalseTag:
        return *place == TrueTag;
    case DecimalTag:
        return takeDecimal(payload);
    case ByteTag:
        return takeRaw<quint8>(payload);
    default:
        return {};
    }
}

double RowReader::number(int column) const {
    const char* const place = m_row + m_ends[column];
    switch (*place) {
    case DecimalTag: // what nearly every amount is
        return takeDecimal(place + 1).toDouble();
    case LongTag:
        return static_cast<double>(takeSigned(place + 1));
    case DoubleTag:
        return takeRaw<double>(place + 1);
    default:
        return numberOf(value(column)).value_or(0);
    }
}

} // namespace quorvane::report
