#include "platform/quorvane32/core/postgres/PostgresProduct.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/postgres/PostgresDialect.h"
#include "platform/quorvane32/core/qtsql/SqlLink.h"
#include <QVariant>

namespace quorvane::postgres {

namespace {

constexpr int oldestVersion = 130000;

struct Mapping {
    const char* state; ///< an SQLSTATE, or its class alone
    int number;
    const char* sentence = nullptr; ///< what the number does not say by itself
};

// What a user can act on is said in Spanish; the server's own words follow in brackets.
constexpr Mapping mappings[] = {
    {"23505", ErrorDuplicateKey},
    {"23502", ErrorNullNotAllowed},
    {"23503", ErrorForeignKey},
    {"55P03", ErrorLockTimeout},
    {"40P01", ErrorDeadlock},
    {"40001", ErrorDeadlock},
    {"57014", ErrorStatementTimeout},
    {"53100", ErrorDiskFull},
    {"53200", ErrorOutOfMemory},
    {"42501", ErrorPermissionDenied},
    {"25006", ErrorPermissionDenied, "La base de datos es de sólo lectura"},
    {"42P07", ErrorObjectExists},
    {"42P01", ErrorNoSuchTable},
    {"42703", ErrorNoSuchColumn},
    {"42601", ErrorSyntax},
    {"22007", ErrorDateLiteral},
    {"22008", ErrorDateLiteral},
    {"22003", ErrorNumberTooLarge},
    {"22001", ErrorTextTooLong},
    {"25P02", ErrorTransactionFailed},
    {"25P03", ErrorConnectionLost, "La base de datos cerró la conexión por demasiada espera"},
    {"57P", ErrorConnectionLost, "El servidor de la base de datos se detuvo"},
    {"08", ErrorConnectionLost},
};

struct Refusal {
    const char* words; ///< in the server's own text, English or Spanish
    int number;
    const char* text;
};

// The client library gives no code for a refused connection, only the server's words.
constexpr Refusal refusals[] = {
    // These name the database or the role, too, so they come first.
    {"permission denied for database", ErrorPermissionDenied,
     "El servidor no deja entrar en la base de datos del perfil"},
    {"permiso denegado a la base de datos", ErrorPermissionDenied,
     "El servidor no deja entrar en la base de datos del perfil"},
    {"too many c", ErrorConnectionLost, "El servidor no admite más conexiones por ahora"},
    {"demasiad", ErrorConnectionLost, "El servidor no admite más conexiones por ahora"},
    {"remaining connection slots", ErrorConnectionLost, "El servidor no admite más conexiones por ahora"},
    {"not currently accepting connections", ErrorConnectionLost,
     "El servidor no admite conexiones a la base de datos del perfil por ahora"},
    {"no acepta conexiones", ErrorConnectionLost,
     "El servidor no admite conexiones a la base de datos del perfil por ahora"},
    {"authentication failed", ErrorLoginFailed,
     "El servidor no acepta el usuario o la contraseña del perfil"},
    {"no password supplied", ErrorLoginFailed, "El servidor pide una contraseña y el perfil no da ninguna"},
    {"role \"", ErrorLoginFailed, "El servidor no conoce el usuario del perfil"},
    {"no pg_hba.conf entry", ErrorLoginFailed, "El servidor no admite conexiones de este equipo o usuario"},
    {"autentificaci", ErrorLoginFailed, "El servidor no acepta el usuario o la contraseña del perfil"},
    {"el rol ", ErrorLoginFailed, "El servidor no conoce el usuario del perfil"},
    {"database \"", ErrorNoSuchDatabase, "El servidor no tiene la base de datos del perfil"},
    {"la base de datos ", ErrorNoSuchDatabase, "El servidor no tiene la base de datos del perfil"},
};

/// Reads which columns of the tables that unqualified names find are dates.
DateColumns readDateColumns(qtsql::SqlLink& link) {
    DateColumns columns;
    QSqlQuery query = link.run(QStringLiteral(
        "SELECT c.relname::text, a.attname::text, a.atttypid IN ('date'::regtype, 'timestamp'::regtype, "
        "'timestamptz'::regtype) FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid "
        "WHERE c.relkind IN ('r', 'v', 'm', 'p', 'f') AND a.attnum > 0 AND NOT a.attisdropped "
        "AND c.relnamespace NOT IN ('pg_catalog'::regnamespace, 'information_schema'::regnamespace) "
        "AND pg_table_is_visible(c.oid) ORDER BY c.oid, a.attnum"));
    while (query.next())
        columns.add(query.value(0).toString(), query.value(1).toString(), query.value(2).toBool());
    return columns;
}

} // namespace

qtsql::TransactionWords PostgresProduct::start(qtsql::SqlLink& link) const {
    QSqlQuery query = link.run(QStringLiteral(
        "SELECT current_setting('server_version_num')::int, current_setting('server_version')"));
    link.fetch(query);
    if (query.value(0).toInt() < oldestVersion)
        throw RunTimeError(
            ErrorDatabaseFormat,
            QStringLiteral("El servidor PostgreSQL es demasiado antiguo (%1); se necesita la versión %2 o "
                           "posterior")
                .arg(query.value(1).toString())
                .arg(oldestVersion / 10000));
    return {QStringLiteral("BEGIN"), QStringLiteral("COMMIT"), QStringLiteral("ROLLBACK"),
            // It holds no row, so a list that is left open on the screen may stay.
            QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY; "
                           "SET LOCAL idle_in_transaction_session_timeout = 0; "),
            QStringLiteral("COMMIT")};
}

std::unique_ptr<qtsql::Dialect> PostgresProduct::dialect(qtsql::SqlLink& link) const {
    return std::make_unique<PostgresDialect>(readDateColumns(link));
}

RunTimeError PostgresProduct::statementError(const qtsql::ServerFaults& faults) const {
    const qtsql::ServerFault& fault = faults.front();
    const QString said = qtsql::sentenceOf(fault.text);
    // What the client library itself finds wrong has no state: the link is broken.
    if (fault.state.isEmpty())
        return qtsql::serverError(ErrorConnectionLost, said);
    for (const Mapping& mapping : mappings)
        if (fault.state.startsWith(mapping.state))
            return qtsql::serverError(mapping.number, said, mapping.sentence);
    return qtsql::unknownError(QString::fromLatin1(fault.state), said);
}

RunTimeError PostgresProduct::connectError(const qtsql::ServerFaults& faults, const QString& place) const {
    if (const auto error = qtsql::missingDriver(faults, place))
        return *error;
    const QString said = qtsql::sentenceOf(faults.front().text);
    for (const Refusal& refusal : refusals)
        if (said.contains(QLatin1String(refusal.words), Qt::CaseInsensitive))
            return qtsql::unreachableError(refusal.number, QString::fromUtf8(refusal.text) + u':', place,
                                           said);
    return qtsql::unreachableError(ErrorConnectionLost,
                                   QStringLiteral("No se puede conectar con la base de datos"), place, said);
}

} // namespace quorvane::postgres
