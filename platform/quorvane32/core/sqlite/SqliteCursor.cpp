#include "platform/quorvane32/core/sqlite/SqliteCursor.h"
#include "platform/quorvane32/base/Date.h"
#include <QTime>
#include <cstring>
#include <limits>
#include <sqlite3.h>

namespace quorvane::sqlite {

namespace {

/// An ISO date, with or without a time, as a Date value; anything else stays the text it is.
Value dateValue(const QString& text) {
    const auto number = [&](qsizetype from, qsizetype length) {
        return QStringView(text).mid(from, length).toInt();
    };
    if (text.size() < 10 || text[4] != u'-' || text[7] != u'-')
        return text;
    const QDate day(number(0, 4), number(5, 2), number(8, 2));
    if (!day.isValid())
        return text;
    Date date = Date::fromQDate(day);
    if (text.size() >= 19) {
        const QTime time(number(11, 2), number(14, 2), number(17, 2));
        if (!time.isValid())
            return text;
        // The time counts forward from midnight, also in a day before 30 December 1899.
        const double fraction = time.msecsSinceStartOfDay() / 86400000.0;
        date = Date(date.serial() < 0 ? date.serial() - fraction : date.serial() + fraction);
    }
    return date;
}

Value wholeValue(qint64 number) {
    if (number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max())
        return static_cast<qint32>(number);
    return Decimal(number, 0);
}

} // namespace

bool declaresDate(const char* type) {
    const QByteArray name = QByteArray(type).toUpper();
    return name.contains("DATE") || name.contains("TIME");
}

SqliteCursor::Declared SqliteCursor::declaredKind(const char* type) {
    const QByteArray name = QByteArray(type).toUpper();
    if (declaresDate(type))
        return Declared::Date;
    if (name.contains("CHAR") || name.contains("TEXT"))
        return Declared::Text;
    if (name.contains("DEC") || name.contains("NUMERIC") || name.contains("MONEY"))
        return Declared::Exact;
    if (name.contains("REAL") || name.contains("FLOA") || name.contains("DOUB"))
        return Declared::Float;
    return name.contains("INT") ? Declared::Whole : Declared::Unknown;
}

SqliteCursor::SqliteCursor(Handle database, Statement statement)
    : m_database(std::move(database)), m_statement(std::move(statement)) {
    const int count = sqlite3_column_count(m_statement.get());
    m_columns.resize(count);
    for (int i = 0; i < count; ++i) {
        m_columns[i].name = QString::fromUtf8(sqlite3_column_name(m_statement.get(), i));
        m_columns[i].declared = declaredKind(sqlite3_column_decltype(m_statement.get(), i));
    }
}

bool SqliteCursor::next() {
    const int result = sqlite3_step(m_statement.get());
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE)
        return false;
    raiseLastError(m_database.get());
}

QByteArray SqliteCursor::declaredType(int ordinal) const {
    return sqlite3_column_decltype(m_statement.get(), ordinal);
}

const QString& SqliteCursor::text(int ordinal) {
    Column& column = m_columns[ordinal];
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), ordinal));
    const int length = sqlite3_column_bytes(m_statement.get(), ordinal);
    if (length != column.lastBytes.size() || std::memcmp(data, column.lastBytes.constData(), length) != 0) {
        column.lastBytes = QByteArray(data, length);
        column.lastText = QString::fromUtf8(column.lastBytes);
    }
    return column.lastText;
}

Value SqliteCursor::value(int ordinal) {
    sqlite3_stmt* statement = m_statement.get();
    const Declared declared = m_columns[ordinal].declared;
    switch (sqlite3_column_type(statement, ordinal)) {
    case SQLITE_NULL:
        return Value::Null{};
    case SQLITE_INTEGER: {
        const qint64 number = sqlite3_column_int64(statement, ordinal);
        if (declared == Declared::Exact)
            return Decimal(number, 0);
        return declared == Declared::Float ? Value(static_cast<double>(number)) : wholeValue(number);
    }
    case SQLITE_FLOAT: {
        const double number = sqlite3_column_double(statement, ordinal);
        // A sum has no declared type; on the ERP's server it would be as exact as what it adds up.
        return declared == Declared::Float ? Value(number) : Value(Decimal::fromDouble(number));
    }
    default:
        return declared == Declared::Date ? dateValue(text(ordinal)) : Value(text(ordinal));
    }
}

} // namespace quorvane::sqlite
