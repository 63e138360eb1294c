#include "platform/quorvane32/core/postgres/PostgresCursor.h"
#include "platform/quorvane32/core/postgres/PostgresErrors.h"
#include <QDateTime>
#include <QSqlError>
#include <QSqlField>
#include <QSqlRecord>
#include <QVariant>
#include <limits>

namespace quorvane::postgres {

namespace {

// The server's own numbers of its types.
enum TypeNumber : int {
    TypeBool = 16,
    TypeInt8 = 20,
    TypeInt2 = 21,
    TypeInt4 = 23,
    TypeFloat4 = 700,
    TypeFloat8 = 701,
    TypeDate = 1082,
    TypeTimestamp = 1114,
    TypeTimestampWithZone = 1184,
    TypeNumeric = 1700,
};

Value wholeValue(qint64 number) {
    if (number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max())
        return static_cast<qint32>(number);
    return Decimal(number, 0);
}

Value dateValue(const QVariant& field) {
    const QDateTime moment = field.toDateTime();
    const Date day =
        Date::fromQDate(field.metaType().id() == QMetaType::QDate ? field.toDate() : moment.date());
    if (field.metaType().id() == QMetaType::QDate || !moment.isValid())
        return day;
    // The time counts forward from midnight, also in a day before 30 December 1899.
    constexpr double millisecondsOfDay = 86400000.0;
    const double fraction = moment.time().msecsSinceStartOfDay() / millisecondsOfDay;
    return Date(day.serial() < 0 ? day.serial() - fraction : day.serial() + fraction);
}

/// An exact number with no more digits than it needs: the server pads a column's values with zeros. One with
/// more digits than a Decimal holds becomes the nearest that it can.
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

} // namespace

PostgresCursor::Kind PostgresCursor::kindOf(int type) {
    switch (type) {
    case TypeBool:
        return Kind::Truth;
    case TypeInt2:
    case TypeInt4:
    case TypeInt8:
        return Kind::Whole;
    case TypeFloat4:
    case TypeFloat8:
        return Kind::Float;
    case TypeNumeric:
        return Kind::Exact;
    case TypeDate:
    case TypeTimestamp:
    case TypeTimestampWithZone:
        return Kind::Date;
    default:
        return Kind::Text;
    }
}

PostgresCursor::PostgresCursor(std::shared_ptr<PostgresLink> link, QSqlQuery query,
                               std::vector<QString> names)
    : m_link(std::move(link)), m_query(std::move(query)) {
    const QSqlRecord record = m_query.record();
    for (int i = 0; i < record.count(); ++i)
        m_columns.push_back({names[i], kindOf(record.field(i).typeID())});
    m_link->setPending(this);
}

PostgresCursor::~PostgresCursor() {
    if (m_link->isPending(this))
        m_link->setPending(nullptr);
}

bool PostgresCursor::fetch() {
    if (!m_link->isOpen())
        throw RunTimeError(ErrorConnectionLost,
                           QStringLiteral("La conexión con la base de datos se cerró durante la lectura"));
    if (m_query.next())
        return true;
    if (m_link->isPending(this))
        m_link->setPending(nullptr);
    if (m_query.lastError().type() != QSqlError::NoError)
        raiseStatement(m_query.lastError());
    return false;
}

bool PostgresCursor::next() {
    if (!m_inMemory)
        return fetch();
    if (!m_rows.empty())
        m_rows.pop_front();
    if (m_rows.empty() && m_error)
        throw RunTimeError(*m_error);
    return !m_rows.empty();
}

void PostgresCursor::fetchAll() noexcept {
    try {
        // The row that is being read stays the first.
        const auto keepRow = [this] {
            Row row;
            for (int i = 0; i < columnCount(); ++i)
                row.push_back(fetched(i));
            m_rows.push_back(std::move(row));
        };
        if (m_query.isValid())
            keepRow();
        else
            m_rows.emplace_back();
        while (fetch())
            keepRow();
    } catch (const RunTimeError& error) {
        m_error = error;
    }
    m_inMemory = true;
    m_query.finish();
}

Value PostgresCursor::value(int ordinal) {
    return m_inMemory ? m_rows.front()[ordinal] : fetched(ordinal);
}

Value PostgresCursor::fetched(int ordinal) const {
    const QVariant field = m_query.value(ordinal);
    if (field.isNull())
        return Value::Null{};
    switch (m_columns[ordinal].kind) {
    case Kind::Truth:
        return field.toBool();
    case Kind::Whole:
        return wholeValue(field.toLongLong());
    case Kind::Float:
        return field.toDouble();
    case Kind::Exact:
        return exactValue(field.toString());
    case Kind::Date:
        return dateValue(field);
    case Kind::Text:
        break;
    }
    return field.toString();
}

} // namespace quorvane::postgres
