#include "platform/quorvane32/core/odbc/OdbcTransport.h"
#include "platform/quorvane32/core/odbc/OdbcFieldReader.h"
#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
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

namespace {

/// All that the driver manager keeps of the last operation on a handle.
qtsql::ServerFaults diagnose(SQLSMALLINT type, SQLHANDLE handle) {
    qtsql::ServerFaults faults;
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, SQL_MAX_MESSAGE_LENGTH * 4> text{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    constexpr SQLSMALLINT most = 20;
    const auto utf16 = [](const SQLWCHAR* units, qsizetype size) {
        return QString::fromUtf16(reinterpret_cast<const char16_t*>(units), size);
    };
    for (SQLSMALLINT i = 1; handle && i <= most; ++i) {
        const SQLRETURN result = SQLGetDiagRecW(type, handle, i, state.data(), &number, text.data(),
                                                static_cast<SQLSMALLINT>(text.size()), &length);
        if (!SQL_SUCCEEDED(result))
            break;
        const qsizetype size = qMin<qsizetype>(length, text.size() - 1);
        faults.push_back({utf16(state.data(), 5).toLatin1(), number, utf16(text.data(), size)});
    }
    return faults;
}

/// What Qt's driver kept: the texts of all errors in one line, each behind the marks of who tells it.
qtsql::ServerFault keptBy(const QSqlError& error) {
    static const QRegularExpression marks(QStringLiteral(R"(\s*(?:\[[^\]]*\]){2,})"));
    QString text = error.databaseText().trimmed();
    text.replace(marks, QStringLiteral(". "));
    while (text.startsWith(u'.') || text.startsWith(u' '))
        text.remove(0, 1);
    return {{}, error.nativeErrorCode().toInt(), text};
}

/// True when the driver itself knows that the link is gone.
bool isDead(const QSqlDriver* driver) {
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLHANDLE handle = driver ? handleOf(driver->handle()) : nullptr;
    return handle && SQL_SUCCEEDED(SQLGetConnectAttrW(handle, SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
           dead == SQL_CD_TRUE;
}

} // namespace

void OdbcTransport::prepare(QSqlDatabase& database) const {
    // Qt would add a user and a password to the text as they are: it holds them already, quoted.
    database.setDatabaseName(m_address.text);
    QString options = QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=%1").arg(qtsql::connectTimeout);
    if (m_address.readOnly)
        options += QLatin1String(";SQL_ATTR_ACCESS_MODE=SQL_MODE_READ_ONLY");
    database.setConnectOptions(options);
}

void OdbcTransport::opened(const QSqlDatabase& database) const {
    const SQLHANDLE handle = handleOf(database.driver()->handle());
    // For all statements of the link. A driver that does not take it here goes without.
    if (!handle || m_address.statementTimeout <= 0)
        return;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): ODBC takes numbers in the place of pointers.
    const auto seconds = reinterpret_cast<SQLPOINTER>(SQLULEN(m_address.statementTimeout));
    SQLSetConnectAttrW(handle, SQL_ATTR_QUERY_TIMEOUT, seconds, 0);
}

qtsql::ValueKind OdbcTransport::kindOf(const QSqlField& field) const {
    // A driver tells dates by the numbers of either version of ODBC; Qt knows both.
    const int type = field.metaType().id();
    if (type == QMetaType::QDate || type == QMetaType::QDateTime)
        return qtsql::ValueKind::Date;
    switch (field.typeID()) {
    case SQL_BIT:
        return qtsql::ValueKind::Truth;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return qtsql::ValueKind::Whole;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return qtsql::ValueKind::Float;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        return qtsql::ValueKind::Exact;
    default:
        return qtsql::ValueKind::Text;
    }
}

std::unique_ptr<qtsql::FieldReader> OdbcTransport::reader(std::vector<qtsql::ValueKind> kinds) const {
    return std::make_unique<OdbcFieldReader>(std::move(kinds));
}

qtsql::ServerFaults OdbcTransport::faults(const QSqlDatabase& database) const {
    return {keptBy(database.lastError())};
}

qtsql::ServerFaults OdbcTransport::faults(const QSqlQuery& query) const {
    qtsql::ServerFaults faults = diagnose(SQL_HANDLE_STMT, handleOf(query.result()->handle()));
    if (faults.empty())
        faults.push_back(keptBy(query.lastError()));
    if (isDead(query.driver()))
        faults.push_back({QByteArrayLiteral("08S01"), 0, faults.front().text});
    return faults;
}

} // namespace quorvane::odbc
