#include "platform/reportengine/rows/SortKeys.h"
#include "platform/reportengine/rows/RowCodec.h"
#include <QtEndian>
#include <algorithm>
#include <bit>
#include <cstring>

namespace quorvane::report {

namespace {

constexpr quint64 signBit = 1ULL << 63;

/// A number's bits in its order; no number gives 0.
quint64 ordered(double number) {
    const auto bits = std::bit_cast<quint64>(number == 0 ? 0.0 : number); // -0 is 0
    return bits & signBit ? ~bits : bits | signBit;
}

void appendNumber(quint64 bits, SpanishKey& key) {
    unsigned char bytes[sizeof bits];
    qToBigEndian(bits, bytes);
    key.append(bytes, sizeof bytes);
}

/// The number of the month or year that a date lies in.
std::optional<double> periodOf(Period period, const Value& value) {
    const Date* date = value.get<Date>();
    if (!date || date->isEmpty())
        return std::nullopt;
    const QDate day = date->toQDate();
    return period == Period::Year ? day.year() : day.year() * 12 + day.month();
}

void appendText(const Value& value, SpanishKey& key) {
    if (value.isNull() || value.kind() == Kind::Empty)
        key.append(0);
    else if (const QString* text = value.get<QString>())
        appendSpanishKey(*text, key);
    else
        appendSpanishKey(value.toText(RegionalSettings()), key);
}

} // namespace

std::vector<KeyPart> groupParts(const Definition& definition) {
    std::vector<KeyPart> parts;
    for (const Group& group : definition.groups) {
        KeyPart part{group.column, definition.columns[group.column].type, group.period, false};
        for (const SortKey& sort : definition.sort)
            if (sort.column == group.column)
                part.descending = sort.descending;
        parts.push_back(part);
    }
    return parts;
}

std::vector<KeyPart> sortParts(const Definition& definition) {
    if (definition.sortedBySource)
        return {};
    std::vector<KeyPart> parts = groupParts(definition);
    for (const SortKey& sort : definition.sort) {
        const bool known = std::any_of(parts.begin(), parts.end(), [&](const KeyPart& part) {
            return part.column == sort.column && part.period == Period::None;
        });
        if (!known)
            parts.push_back(
                {sort.column, definition.columns[sort.column].type, Period::None, sort.descending});
    }
    return parts;
}

void appendKey(const KeyPart& part, const Value& value, SpanishKey& key) {
    const qsizetype start = key.size();
    if (part.period != Period::None || part.type != ColumnType::Text) {
        const auto number = part.period != Period::None ? periodOf(part.period, value) : numberOf(value);
        appendNumber(number ? ordered(*number) : 0, key);
    } else {
        appendText(value, key);
    }
    if (part.descending)
        for (qsizetype i = start; i < key.size(); ++i)
            key[i] = static_cast<unsigned char>(~key[i]);
}

quint64 keyPrefix(QByteArrayView key) {
    if (key.size() >= qsizetype(sizeof(quint64)))
        return qFromBigEndian<quint64>(key.data());
    unsigned char bytes[sizeof(quint64)] = {};
    std::copy(key.begin(), key.end(), bytes);
    return qFromBigEndian<quint64>(bytes);
}

int compareKeys(QByteArrayView a, QByteArrayView b) {
    const auto common = static_cast<std::size_t>(std::min(a.size(), b.size()));
    const int order = common == 0 ? 0 : std::memcmp(a.data(), b.data(), common);
    if (order != 0)
        return order;
    return a.size() < b.size() ? -1 : a.size() > b.size();
}

} // namespace quorvane::report
