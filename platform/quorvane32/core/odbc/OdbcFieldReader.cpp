#include "platform/quorvane32/core/odbc/OdbcFieldReader.h"
#include <QSqlResult>
#include <QVariant>
#include <array>
// The driver manager's header needs this one on Windows.
#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

namespace quorvane::odbc {

using qtsql::ValueKind;

namespace {

struct Field {
    SQLHANDLE statement;
    SQLUSMALLINT column;
};

/// Reads a value of fixed size; false when the driver fails.
template<class T, class Make> bool readFixed(const Field& field, SQLSMALLINT type, Value& value, Make make) {
    T data{};
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(field.statement, field.column, type, &data, sizeof data, &length)))
        return false;
    if (length == SQL_NULL_DATA)
        value = Value::Null{};
    else
        value = make(data);
    return true;
}

/// Reads a text of any length, piece by piece.
bool readText(const Field& field, Value& value) {
    constexpr std::size_t units = 1024;
    std::array<SQLWCHAR, units> piece{};
    QString text;
    for (bool more = true; more;) {
        piece.fill(0);
        SQLLEN length = 0;
        const SQLRETURN result =
            SQLGetData(field.statement, field.column, SQL_C_WCHAR, piece.data(), sizeof piece, &length);
        if (!SQL_SUCCEEDED(result))
            return result == SQL_NO_DATA && (value = text, true);
        if (length == SQL_NULL_DATA) {
            value = Value::Null{};
            return true;
        }
        more = result == SQL_SUCCESS_WITH_INFO &&
               (length == SQL_NO_TOTAL || length >= static_cast<SQLLEN>(sizeof piece));
        qsizetype size = more ? units - 1 : length / static_cast<SQLLEN>(sizeof(SQLWCHAR));
        // A piece may end early rather than within a letter of two units.
        while (more && size > 0 && piece[size - 1] == 0)
            --size;
        text += QStringView(reinterpret_cast<const char16_t*>(piece.data()), size);
    }
    value = text;
    return true;
}

Value momentOf(const SQL_TIMESTAMP_STRUCT& moment) {
    constexpr SQLUINTEGER nanosecondsPerMillisecond = 1000000;
    return qtsql::momentValue(QDate(moment.year, moment.month, moment.day),
                              QTime(moment.hour, moment.minute, moment.second,
                                    static_cast<int>(moment.fraction / nanosecondsPerMillisecond)));
}

bool readField(const Field& field, ValueKind kind, Value& value) {
    switch (kind) {
    case ValueKind::Truth:
        return readFixed<SQLCHAR>(field, SQL_C_BIT, value, [](SQLCHAR truth) { return truth != 0; });
    case ValueKind::Whole:
        return readFixed<SQLBIGINT>(field, SQL_C_SBIGINT, value, qtsql::wholeValue);
    case ValueKind::Float:
        return readFixed<SQLDOUBLE>(field, SQL_C_DOUBLE, value, [](SQLDOUBLE number) { return number; });
    case ValueKind::Date:
        return readFixed<SQL_TIMESTAMP_STRUCT>(field, SQL_C_TIMESTAMP, value, momentOf);
    case ValueKind::Exact:
        break;
    case ValueKind::Text:
        return readText(field, value);
    }
    using Digits = std::array<char, 64>;
    return readFixed<Digits>(field, SQL_C_CHAR, value, [](const Digits& digits) {
        return qtsql::exactValue(QString::fromLatin1(digits.data()));
    });
}

} // namespace

void* handleOf(const QVariant& handle) {
    return handle.isValid() ? *static_cast<void* const*>(handle.constData()) : nullptr;
}

bool OdbcFieldReader::read(const QSqlQuery& query, int ordinal, Value& value) {
    const SQLHANDLE statement = handleOf(query.result()->handle());
    while (static_cast<int>(m_row.size()) <= ordinal) {
        const auto column = static_cast<SQLUSMALLINT>(m_row.size() + 1);
        Value read;
        if (!readField({statement, column}, m_kinds[m_row.size()], read))
            return false;
        m_row.push_back(std::move(read));
    }
    value = m_row[ordinal];
    return true;
}

} // namespace quorvane::odbc
