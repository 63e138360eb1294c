#include "platform/quorvane32/core/postgres/PostgresTransport.h"
#include "platform/quorvane32/core/postgres/PostgresSettings.h"
#include <QSqlError>

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

qtsql::ServerFaults faultsOf(const QSqlError& error) {
    return {{error.nativeErrorCode().toLatin1(), 0, error.databaseText()}};
}

} // namespace

void PostgresTransport::prepare(QSqlDatabase& database) const {
    database.setHostName(m_options.value(QStringLiteral("host")));
    database.setPort(m_options.number(QStringLiteral("port"), -1));
    database.setDatabaseName(m_options.value(QStringLiteral("database")));
    database.setUserName(m_options.value(QStringLiteral("user")));
    database.setPassword(m_options.value(QStringLiteral("password")));
    database.setConnectOptions(librarySettings(m_options));
}

qtsql::ValueKind PostgresTransport::kindOf(const QSqlField& field) const {
    switch (field.typeID()) {
    case TypeBool:
        return qtsql::ValueKind::Truth;
    case TypeInt2:
    case TypeInt4:
    case TypeInt8:
        return qtsql::ValueKind::Whole;
    case TypeFloat4:
    case TypeFloat8:
        return qtsql::ValueKind::Float;
    case TypeNumeric:
        return qtsql::ValueKind::Exact;
    case TypeDate:
    case TypeTimestamp:
    case TypeTimestampWithZone:
        return qtsql::ValueKind::Date;
    default:
        return qtsql::ValueKind::Text;
    }
}

qtsql::ServerFaults PostgresTransport::faults(const QSqlDatabase& database) const {
    return faultsOf(database.lastError());
}

qtsql::ServerFaults PostgresTransport::faults(const QSqlQuery& query) const {
    return faultsOf(query.lastError());
}

} // namespace quorvane::postgres
