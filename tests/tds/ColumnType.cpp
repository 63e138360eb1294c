#include "tests/tds/ColumnType.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/tds/CodePage.h"
#include <QRegularExpression>
#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace dalvora::test::tds {

using quorvane::Decimal;
using quorvane::Kind;
using quorvane::Value;

namespace {

constexpr int exactDigits = 38;
constexpr int exactScale = 6;
constexpr int mostNarrow = 8000;
constexpr int mostWide = 4000;

bool isWhole(const Value& value) {
    const auto* exact = value.get<Decimal>();
    return value.kind() == Kind::Long || (exact && exact->scale() == 0);
}

bool isBeyondInt(const Value& value) {
    const auto* exact = value.get<Decimal>();
    return exact && (exact->unscaled() < std::numeric_limits<qint32>::min() ||
                     exact->unscaled() > std::numeric_limits<qint32>::max());
}

ColumnType typeOfTexts(const std::vector<Value>& values) {
    bool narrow = true;
    qsizetype longest = 0;
    for (const Value& value : values) {
        const QString text = value.isNull() ? QString() : value.toText({});
        narrow = narrow && throughCodePage(text) == text;
        longest = std::max(longest, text.size());
    }
    if (narrow)
        return longest <= mostNarrow ? ColumnType{ColumnType::Narrow, mostNarrow, 0}
                                     : ColumnType{ColumnType::NarrowMax, 0, 0};
    return longest <= mostWide ? ColumnType{ColumnType::Wide, mostWide, 0}
                               : ColumnType{ColumnType::WideMax, 0, 0};
}

/// The number as a multiple of 10^-scale.
qint64 scaled(const Value& value, int scale) {
    const auto* exact = value.get<Decimal>();
    Decimal number = exact ? *exact : Decimal::fromDouble(value.toNumber({}));
    if (number.scale() > scale)
        number = number.rounded(scale);
    qint64 unscaled = number.unscaled();
    for (int i = number.scale(); i < scale; ++i)
        if (__builtin_mul_overflow(unscaled, 10, &unscaled))
            quorvane::raise(quorvane::ErrorNumberTooLarge);
    return unscaled;
}

/// Bytes of an exact number, its sign among them.
quint8 exactBytes(int digits) {
    return digits <= 9 ? 5 : digits <= 19 ? 9 : digits <= 28 ? 13 : 17;
}

void writeExact(ByteWriter& out, const ColumnType& type, const Value& value) {
    const qint64 number = scaled(value, type.scale);
    const quint8 bytes = exactBytes(type.size);
    if (static_cast<double>(std::abs(number)) >= std::pow(10.0, type.size))
        quorvane::raise(quorvane::ErrorNumberTooLarge);
    out.u8(bytes);
    out.u8(number < 0 ? 0 : 1);
    const quint64 magnitude = number < 0 ? 0 - static_cast<quint64>(number) : static_cast<quint64>(number);
    const int significant = std::min(bytes - 1, 8);
    out.number(magnitude, significant);
    for (int i = significant; i < bytes - 1; ++i)
        out.u8(0);
}

void writeWhole(ByteWriter& out, const ColumnType& type, const Value& value) {
    const qint64 number = scaled(value, 0);
    const int bytes = type.kind == ColumnType::BigInt ? 8 : type.kind == ColumnType::Int ? 4 : 1;
    if (type.kind == ColumnType::Int && isBeyondInt(Decimal(number, 0)))
        quorvane::raise(quorvane::ErrorNumberTooLarge);
    out.u8(static_cast<quint8>(bytes));
    out.number(static_cast<quint64>(type.kind == ColumnType::Bit ? number != 0 : number), bytes);
}

void writeDate(ByteWriter& out, const ColumnType& type, const Value& value) {
    const auto* date = value.get<quorvane::Date>();
    if (!date)
        quorvane::raise(quorvane::ErrorDateLiteral);
    const double serial = date->serial();
    const double day = std::trunc(serial);
    const auto days = static_cast<qint64>(day);
    if (type.kind == ColumnType::Date) {
        constexpr qint64 daysBeforeEmpty = 693593; // from 0001-01-01 to 1899-12-30
        out.u8(3);
        out.number(static_cast<quint64>(days + daysBeforeEmpty), 3);
        return;
    }
    constexpr double partsOfADay = 24 * 60 * 60 * 300;
    out.u8(8);
    out.u32(static_cast<quint32>(days - 2)); // from 1900-01-01
    out.u32(static_cast<quint32>(std::llround(std::abs(serial - day) * partsOfADay)));
}

/// A text of any length travels in pieces behind its whole length.
void writePieces(ByteWriter& out, QByteArrayView bytes) {
    constexpr qsizetype piece = 4000;
    out.u64(bytes.size());
    for (qsizetype at = 0; at < bytes.size(); at += piece) {
        const QByteArrayView part = bytes.sliced(at, std::min(piece, bytes.size() - at));
        out.u32(static_cast<quint32>(part.size()));
        out.bytes(part);
    }
    out.u32(0);
}

void writeText(ByteWriter& out, const ColumnType& type, const QString& text) {
    const bool narrow = type.kind == ColumnType::Narrow || type.kind == ColumnType::NarrowMax;
    QByteArray bytes;
    if (narrow) {
        bytes = toCodePage(text);
    } else {
        ByteWriter units;
        units.units(text);
        bytes = units.data();
    }
    if (type.kind == ColumnType::NarrowMax || type.kind == ColumnType::WideMax) {
        writePieces(out, bytes);
        return;
    }
    bytes.truncate(narrow ? type.size : 2 * type.size);
    out.u16(static_cast<quint16>(bytes.size()));
    out.bytes(bytes);
}

void writeNull(ByteWriter& out, const ColumnType& type) {
    switch (type.kind) {
    case ColumnType::NarrowMax:
    case ColumnType::WideMax:
        out.u64(std::numeric_limits<quint64>::max());
        break;
    case ColumnType::Narrow:
    case ColumnType::Wide:
        out.u16(0xFFFF);
        break;
    default:
        out.u8(0);
    }
}

QString textOf(const Value& value) {
    const auto* exact = value.get<Decimal>();
    return exact ? exact->toText(u'.') : value.toText({});
}

} // namespace

std::optional<ColumnType> declaredType(const QByteArray& declared) {
    static const QRegularExpression form(
        QStringLiteral("^\\s*(\\w+)[^(]*(?:\\(\\s*(\\d+)\\s*(?:,\\s*(\\d+)\\s*)?\\))?"));
    const auto match = form.match(QString::fromLatin1(declared));
    const QString name = match.captured(1).toLower();
    const int size = match.captured(2).toInt();
    const int scale = match.captured(3).toInt();
    if (name.isEmpty())
        return {};
    if (name == u"bigint")
        return ColumnType{ColumnType::BigInt, 0, 0};
    if (name == u"bit")
        return ColumnType{ColumnType::Bit, 0, 0};
    if (name.contains(u"int"))
        return ColumnType{ColumnType::Int, 0, 0};
    if (name == u"float" || name == u"real" || name == u"double")
        return ColumnType{ColumnType::Float, 0, 0};
    if (name == u"decimal" || name == u"numeric")
        return ColumnType{ColumnType::Exact, size > 0 ? size : 18, scale};
    if (name == u"date")
        return ColumnType{ColumnType::Date, 0, 0};
    if (name == u"datetime")
        return ColumnType{ColumnType::DateTime, 0, 0};
    if (name == u"nvarchar" && size > 0)
        return ColumnType{ColumnType::Wide, std::min(size, mostWide), 0};
    if (name == u"varchar")
        return size > 0 ? ColumnType{ColumnType::Narrow, std::min(size, mostNarrow), 0}
                        : ColumnType{ColumnType::NarrowMax, 0, 0};
    return ColumnType{ColumnType::WideMax, 0, 0};
}

ColumnType typeOfValues(const std::vector<Value>& values) {
    const auto any = [&](auto test) { return std::ranges::any_of(values, test); };
    if (any([](const Value& value) { return value.kind() == Kind::String; }) ||
        std::ranges::all_of(values, &Value::isNull))
        return typeOfTexts(values);
    if (any([](const Value& value) { return value.kind() == Kind::Date; }))
        return {ColumnType::Date, 0, 0};
    if (any([](const Value& value) { return value.kind() == Kind::Double; }))
        return {ColumnType::Float, 0, 0};
    if (any([](const Value& value) { return !value.isNull() && !isWhole(value); }))
        return {ColumnType::Exact, exactDigits, exactScale};
    return {any(isBeyondInt) ? ColumnType::BigInt : ColumnType::Int, 0, 0};
}

void writeType(ByteWriter& out, const ColumnType& type) {
    // Modern Spanish, case ignored, accents heeded: its language, its flags, its version and no old number.
    constexpr char collation[] = {0x0A, 0x0C, static_cast<char>(0xD0), 0x00, 0x00};
    const auto text = [&](quint8 token, quint16 bytes) {
        out.u8(token);
        out.u16(bytes);
        out.bytes({collation, sizeof collation});
    };
    const auto sized = [&](quint8 token, quint8 bytes) {
        out.u8(token);
        out.u8(bytes);
    };
    switch (type.kind) {
    case ColumnType::Int:
        return sized(0x26, 4);
    case ColumnType::BigInt:
        return sized(0x26, 8);
    case ColumnType::Bit:
        return sized(0x68, 1);
    case ColumnType::Float:
        return sized(0x6D, 8);
    case ColumnType::Exact:
        sized(0x6A, exactBytes(type.size));
        return sized(static_cast<quint8>(type.size), static_cast<quint8>(type.scale));
    case ColumnType::Date:
        return out.u8(0x28);
    case ColumnType::DateTime:
        return sized(0x6F, 8);
    case ColumnType::Narrow:
        return text(0xA7, static_cast<quint16>(type.size));
    case ColumnType::Wide:
        return text(0xE7, static_cast<quint16>(2 * type.size));
    case ColumnType::NarrowMax:
        return text(0xA7, 0xFFFF);
    case ColumnType::WideMax:
        return text(0xE7, 0xFFFF);
    }
}

void writeValue(ByteWriter& out, const ColumnType& type, const Value& value) {
    if (value.isNull())
        return writeNull(out, type);
    switch (type.kind) {
    case ColumnType::Int:
    case ColumnType::BigInt:
    case ColumnType::Bit:
        return writeWhole(out, type, value);
    case ColumnType::Float:
        out.u8(8);
        return out.u64(std::bit_cast<quint64>(value.toNumber({})));
    case ColumnType::Exact:
        return writeExact(out, type, value);
    case ColumnType::Date:
    case ColumnType::DateTime:
        return writeDate(out, type, value);
    default:
        return writeText(out, type, textOf(value));
    }
}

} // namespace dalvora::test::tds
