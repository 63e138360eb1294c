#include "platform/quorvane32/core/sqlserver/SqlServerProduct.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/qtsql/SqlLink.h"
#include "platform/quorvane32/core/sqlserver/SqlServerDialect.h"
#include <QVariant>
#include <algorithm>

namespace quorvane::sqlserver {

namespace {

constexpr int oldestVersion = 11; // 2012

struct Mapping {
    int native; ///< of the server; from 20000 on of the driver FreeTDS
    int number;
    const char* sentence = nullptr; ///< what the number does not say by itself
};

constexpr Mapping mappings[] = {
    {2627, ErrorDuplicateKey},
    {2601, ErrorDuplicateKey},
    {515, ErrorNullNotAllowed},
    {547, ErrorForeignKey},
    {1222, ErrorLockTimeout},
    {1205, ErrorDeadlock},
    {3960, ErrorDeadlock},
    {1105, ErrorDiskFull},
    {1101, ErrorDiskFull},
    {9002, ErrorDiskFull, "No queda espacio en el registro de transacciones de la base de datos"},
    {701, ErrorOutOfMemory},
    {1204, ErrorOutOfMemory},
    {229, ErrorPermissionDenied},
    {230, ErrorPermissionDenied},
    {262, ErrorPermissionDenied, "No tiene permiso para esto en la base de datos"},
    {297, ErrorPermissionDenied, "No tiene permiso para esto en la base de datos"},
    {3906, ErrorPermissionDenied, "La base de datos es de sólo lectura"},
    {2714, ErrorObjectExists},
    {208, ErrorNoSuchTable},
    {3701, ErrorNoSuchTable},
    {207, ErrorNoSuchColumn},
    {4104, ErrorNoSuchColumn},
    {102, ErrorSyntax},
    {105, ErrorSyntax},
    {156, ErrorSyntax},
    {170, ErrorSyntax},
    {241, ErrorDateLiteral},
    {242, ErrorDateLiteral},
    {295, ErrorDateLiteral},
    {296, ErrorDateLiteral},
    {220, ErrorNumberTooLarge},
    {8115, ErrorNumberTooLarge},
    {2628, ErrorTextTooLong},
    {8152, ErrorTextTooLong},
    {3902, ErrorTransactionFailed},
    {3930, ErrorTransactionFailed},
    {596, ErrorConnectionLost, "El servidor terminó la conexión"},
    {6005, ErrorConnectionLost, "El servidor de la base de datos se detuvo"},
    {20003, ErrorStatementTimeout},
    {20004, ErrorConnectionLost},
    {20006, ErrorConnectionLost},
    {20017, ErrorConnectionLost},
    {20047, ErrorConnectionLost},
};

struct StateMapping {
    const char* state; ///< an SQLSTATE, or its class alone
    int number;
};

// What a driver finds by itself has a state and no number that could be relied on.
constexpr StateMapping states[] = {
    {"HYT0", ErrorStatementTimeout},
    {"S1T0", ErrorStatementTimeout},
    {"08", ErrorConnectionLost},
};

struct Refusal {
    int native;
    int number;
    const char* words; ///< in the server's own text, English or Spanish
    const char* sentence;
};

constexpr const char* refusedUser = "El servidor no acepta el usuario o la contraseña del perfil:";
constexpr const char* expiredPassword = "La contraseña del perfil venció en el servidor:";
constexpr const char* noDatabase = "El servidor no tiene la base de datos del perfil:";

// A driver may keep several errors of a refused sign-in and tell the number of one only. A database that is
// missing also refuses the user, so it comes first.
constexpr Refusal refusals[] = {
    {4060, ErrorNoSuchDatabase, "cannot open database", noDatabase},
    {4064, ErrorNoSuchDatabase, "no se puede abrir la base de datos", noDatabase},
    {18487, ErrorLoginFailed, "password of the account has expired", expiredPassword},
    {18488, ErrorLoginFailed, "password of the account must be changed", expiredPassword},
    {18470, ErrorLoginFailed, "account is disabled",
     "El usuario del perfil está deshabilitado en el servidor:"},
    {18486, ErrorLoginFailed, "account is currently locked",
     "El usuario del perfil está bloqueado en el servidor:"},
    {18452, ErrorLoginFailed, "untrusted domain", refusedUser},
    {18456, ErrorLoginFailed, "login failed", refusedUser},
    {18456, ErrorLoginFailed, "error de inicio de sesión", refusedUser},
};

QString sessionSettings(int lockTimeout) {
    return QStringLiteral("SET DATEFORMAT dmy; SET LOCK_TIMEOUT %1; "
                          // A failed statement undoes its transaction at once, whatever the failure: no lock
                          // outlives it.
                          "SET XACT_ABORT ON; SET IMPLICIT_TRANSACTIONS OFF; "
                          "SET TRANSACTION ISOLATION LEVEL READ COMMITTED; SET NOCOUNT OFF; "
                          // A text that is too long is an error, and the server may use all kinds of indexes.
                          "SET ANSI_NULLS, ANSI_PADDING, ANSI_WARNINGS, ARITHABORT, CONCAT_NULL_YIELDS_NULL, "
                          "QUOTED_IDENTIFIER ON; SET NUMERIC_ROUNDABORT OFF; SET TEXTSIZE 2147483647")
        .arg(lockTimeout);
}

} // namespace

SqlServerProduct::SqlServerProduct(const ConnectString& options)
    : m_lockTimeout(qMax(0, options.number(QStringLiteral("timeout"), qtsql::usualLockTimeout)))
    , m_readOnly(qtsql::flagOf(options, "readonly", false)) {}

qtsql::TransactionWords SqlServerProduct::start(qtsql::SqlLink& link) const {
    QSqlQuery query = link.run(QStringLiteral(
        "SELECT CAST(SERVERPROPERTY('ProductVersion') AS varchar(128)) AS Version, snapshot_isolation_state "
        "AS Snapshots FROM sys.databases WHERE database_id = DB_ID()"));
    link.fetch(query);
    const QString version = query.value(0).toString();
    const bool snapshots = query.value(1).toInt() == 1;
    query.finish();
    if (version.section(u'.', 0, 0).toInt() < oldestVersion)
        throw RunTimeError(ErrorDatabaseFormat,
                           QStringLiteral("El servidor SQL Server es demasiado antiguo (%1); se necesita la "
                                          "versión 2012 (%2.0) o posterior")
                               .arg(version)
                               .arg(oldestVersion));
    QSqlQuery settings = link.run(sessionSettings(m_lockTimeout));
    link.affectedRows(settings);

    qtsql::TransactionWords words{QStringLiteral("BEGIN TRANSACTION"),
                                  QStringLiteral("COMMIT TRANSACTION"),
                                  QStringLiteral("IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION"),
                                  {},
                                  {}};
    // Readers of one state would otherwise lock the rows that they read: then each query sees its own.
    if (snapshots) {
        words.beginReading = QStringLiteral("SET TRANSACTION ISOLATION LEVEL SNAPSHOT; BEGIN TRANSACTION; ");
        words.endReading = QStringLiteral("IF @@TRANCOUNT > 0 COMMIT TRANSACTION; "
                                          "SET TRANSACTION ISOLATION LEVEL READ COMMITTED");
    }
    return words;
}

std::unique_ptr<qtsql::Dialect> SqlServerProduct::dialect(qtsql::SqlLink& /*link*/) const {
    return std::make_unique<SqlServerDialect>(m_readOnly);
}

RunTimeError SqlServerProduct::statementError(const qtsql::ServerFaults& faults) const {
    for (const qtsql::ServerFault& fault : faults)
        for (const Mapping& mapping : mappings)
            if (mapping.native == fault.number)
                return qtsql::serverError(mapping.number, qtsql::sentenceOf(fault.text), mapping.sentence);
    for (const qtsql::ServerFault& fault : faults)
        for (const StateMapping& mapping : states)
            if (fault.state.startsWith(mapping.state))
                return qtsql::serverError(mapping.number, qtsql::sentenceOf(fault.text));
    const qtsql::ServerFault& first = faults.front();
    return qtsql::unknownError(first.number ? QString::number(first.number)
                                            : QString::fromLatin1(first.state),
                               qtsql::sentenceOf(first.text));
}

RunTimeError SqlServerProduct::connectError(const qtsql::ServerFaults& faults, const QString& place) const {
    if (const auto error = qtsql::missingDriver(faults, place))
        return *error;
    const QString said = qtsql::sentenceOf(faults.front().text);
    for (const Refusal& refusal : refusals)
        for (const qtsql::ServerFault& fault : faults)
            if (fault.number == refusal.native ||
                fault.text.contains(QString::fromUtf8(refusal.words), Qt::CaseInsensitive))
                return qtsql::unreachableError(refusal.number, QString::fromUtf8(refusal.sentence), place,
                                               said);
    return qtsql::unreachableError(ErrorConnectionLost,
                                   QStringLiteral("No se puede conectar con la base de datos"), place, said);
}

} // namespace quorvane::sqlserver
