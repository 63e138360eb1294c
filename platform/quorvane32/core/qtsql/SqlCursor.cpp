#include "platform/quorvane32/core/qtsql/SqlCursor.h"
#include <QDateTime>
#include <QSqlRecord>
#include <QVariant>
#include <limits>

namespace quorvane::qtsql {

namespace {

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

SqlCursor::SqlCursor(std::shared_ptr<SqlLink> link, QSqlQuery query, std::vector<QString> names)
    : m_link(std::move(link)), m_query(std::move(query)) {
    const QSqlRecord record = m_query.record();
    for (int i = 0; i < record.count(); ++i)
        m_columns.push_back({names[i], m_link->kindOf(record.field(i))});
    m_link->setPending(this);
}

SqlCursor::~SqlCursor() {
    if (m_link->isPending(this))
        m_link->setPending(nullptr);
}

void SqlCursor::end() {
    m_ended = true;
    if (m_link->isPending(this))
        m_link->setPending(nullptr);
}

bool SqlCursor::fetch() {
    try {
        if (m_link->fetch(m_query))
            return true;
    } catch (const RunTimeError&) {
        end();
        throw;
    }
    end();
    return false;
}

bool SqlCursor::next() {
    if (!m_rows.empty()) {
        m_rows.pop_front();
        if (!m_rows.empty())
            return true;
    }
    if (!m_ended)
        return fetch();
    if (m_error)
        throw RunTimeError(*m_error);
    return false;
}

bool SqlCursor::takeIn(qsizetype limit) noexcept {
    if (m_ended)
        return true;
    try {
        // The current row stays the first, and there is one even before the first fetch.
        if (m_rows.empty())
            m_rows.push_back(m_query.isValid() ? fetchedRow() : Row());
        while (static_cast<qsizetype>(m_rows.size()) <= limit && fetch())
            m_rows.push_back(fetchedRow());
    } catch (const RunTimeError& error) {
        m_error = error;
    }
    if (m_ended)
        m_query.finish();
    return m_ended;
}

Value SqlCursor::value(int ordinal) {
    return m_rows.empty() ? fetched(ordinal) : m_rows.front()[ordinal];
}

SqlCursor::Row SqlCursor::fetchedRow() const {
    Row row;
    row.reserve(m_columns.size());
    for (int i = 0; i < columnCount(); ++i)
        row.push_back(fetched(i));
    return row;
}

Value SqlCursor::fetched(int ordinal) const {
    const QVariant field = m_query.value(ordinal);
    if (field.isNull())
        return Value::Null{};
    switch (m_columns[ordinal].kind) {
    case ValueKind::Truth:
        return field.toBool();
    case ValueKind::Whole:
        return wholeValue(field.toLongLong());
    case ValueKind::Float:
        return field.toDouble();
    case ValueKind::Exact:
        return exactValue(field.toString());
    case ValueKind::Date:
        return dateValue(field);
    case ValueKind::Text:
        break;
    }
    return field.toString();
}

} // namespace quorvane::qtsql
