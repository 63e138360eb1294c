#include "platform/quorvane32/core/qtsql/FieldReader.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QVariant>
#include <limits>

namespace quorvane::qtsql {

namespace {

Value dateValue(const QVariant& field) {
    const QDateTime moment = field.toDateTime();
    if (field.metaType().id() == QMetaType::QDate || !moment.isValid())
        return Date::fromQDate(field.metaType().id() == QMetaType::QDate ? field.toDate() : moment.date());
    return momentValue(moment.date(), moment.time());
}

} // namespace

Value wholeValue(qint64 number) {
    if (number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max())
        return static_cast<qint32>(number);
    return Decimal(number, 0);
}

Value momentValue(const QDate& day, const QTime& time) {
    // The time counts forward from midnight, also in a day before 30 December 1899.
    constexpr double millisecondsOfDay = 86400000.0;
    const double fraction = time.msecsSinceStartOfDay() / millisecondsOfDay;
    const double serial = Date::fromQDate(day).serial();
    return Date(serial < 0 ? serial - fraction : serial + fraction);
}

Value exactValue(const QString& text) {
    qsizetype end = text.size();
    if (text.contains(u'.')) {
        while (text[end - 1] == u'0')
            --end;
        if (text[end - 1] == u'.')
            --end;
    }
    try {
        return Decimal::fromText(QStringView(text).left(end));
    } catch (const RunTimeError&) {
        return Decimal::fromDouble(text.toDouble());
    }
}

bool QtFieldReader::read(const QSqlQuery& query, int ordinal, Value& value) {
    const QVariant field = query.value(ordinal);
    if (field.isNull()) {
        value = Value::Null{};
        return true;
    }
    switch (m_kinds[ordinal]) {
    case ValueKind::Truth:
        value = field.toBool();
        break;
    case ValueKind::Whole:
        value = wholeValue(field.toLongLong());
        break;
    case ValueKind::Float:
        value = field.toDouble();
        break;
    case ValueKind::Exact:
        value = exactValue(field.toString());
        break;
    case ValueKind::Date:
        value = dateValue(field);
        break;
    case ValueKind::Text:
        value = field.toString();
        break;
    }
    return true;
}

} // namespace quorvane::qtsql
