#include "platform/reportengine/layout/BandMaker.h"
#include "platform/reportengine/rows/RowCodec.h"
#include <limits>

namespace quorvane::report {

namespace {

bool isBlank(const Value& value) {
    if (const QString* text = value.get<QString>())
        return text->trimmed().isEmpty();
    if (const Date* date = value.get<Date>())
        return date->isEmpty();
    return value.isNull() || value.kind() == Kind::Empty;
}

Value countValue(qint64 count) {
    if (count <= std::numeric_limits<qint32>::max())
        return static_cast<qint32>(count);
    return Decimal(count, 0);
}

Value valueOf(const ReportObject& object, const RowReader* row, const Totals& totals) {
    if (object.kind != ObjectKind::Field)
        return {};
    const FieldSource& source = object.source;
    switch (source.kind) {
    case FieldSource::Kind::Column:
        return row ? row->value(source.index) : Value();
    case FieldSource::Kind::Sum:
        return totals.sum(source.scope, source.index);
    case FieldSource::Kind::Count:
        return countValue(totals.count(source.scope));
    default:
        return {};
    }
}

bool holds(const ReportObject& object, const Value& own, const RowReader* row) {
    const Condition& condition = object.condition;
    if (condition.test == Condition::Test::None)
        return false;
    const bool isOwnSum = object.kind == ObjectKind::Field && object.source.kind == FieldSource::Kind::Sum &&
                          object.source.index == condition.column;
    if (isOwnSum)
        return conditionHolds(condition.test, own);
    return conditionHolds(condition.test, row ? row->value(condition.column) : Value());
}

} // namespace

bool conditionHolds(Condition::Test test, const Value& value) {
    switch (test) {
    case Condition::Test::None:
        return false;
    case Condition::Test::Negative:
        return numberOf(value).value_or(0) < 0;
    case Condition::Test::Positive:
        return numberOf(value).value_or(0) > 0;
    case Condition::Test::Zero:
        return numberOf(value).value_or(1) == 0;
    case Condition::Test::Empty:
        return isBlank(value);
    case Condition::Test::Filled:
        return !isBlank(value);
    }
    return false;
}

Band makeBand(const Definition& definition, int section, const RowReader* row, const Totals& totals) {
    const std::vector<ReportObject>& objects = definition.sections[section].objects;
    Band band;
    band.section = section;
    band.values.reserve(objects.size());
    for (std::size_t i = 0; i < objects.size(); ++i) {
        band.values.push_back(valueOf(objects[i], row, totals));
        if (!holds(objects[i], band.values.back(), row))
            continue;
        band.condition.resize(objects.size());
        band.condition[i] = true;
    }
    return band;
}

} // namespace quorvane::report
