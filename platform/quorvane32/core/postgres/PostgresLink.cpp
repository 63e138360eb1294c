#include "platform/quorvane32/core/postgres/PostgresLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/postgres/PostgresErrors.h"
#include <QCoreApplication>
#include <QSqlError>
#include <QVariant>

namespace quorvane::postgres {

namespace {

constexpr int oldestVersion = 130000;
constexpr int usualLockTimeout = 5000;
constexpr int usualStatementTimeout = 300000;
/// A program that hangs in the middle of a save holds the rows of others; it saves in much less.
constexpr int transactionTimeout = 60000;

/// What every session on the server has set from its first statement on (times in ms).
QString sessionSettings(const ConnectString& options) {
    const auto time = [&](const char* key, int usual) {
        return QString::number(qMax(0, options.number(QLatin1String(key), usual)));
    };
    return QStringLiteral("-c DateStyle=ISO,DMY -c standard_conforming_strings=on -c "
                          "client_min_messages=error -c lock_timeout=%1 "
                          "-c statement_timeout=%2 -c idle_in_transaction_session_timeout=%3%4")
        .arg(time("timeout", usualLockTimeout), time("statementtimeout", usualStatementTimeout),
             QString::number(transactionTimeout),
             options.value(QStringLiteral("readonly")).compare(u"s", Qt::CaseInsensitive) == 0
                 ? QStringLiteral(" -c default_transaction_read_only=on")
                 : QString());
}

/// A value of the client library's own connection text.
QString quoted(QString value) {
    return u'\'' + value.replace(u'\\', QLatin1String("\\\\")).replace(u'\'', QLatin1String("\\'")) + u'\'';
}

/// A dead network is noticed within half a minute instead of the system's two hours. The driver takes ";" for
/// the end of an option, so none may hold one.
QString libraryOptions(const ConnectString& options) {
    QString text = QStringLiteral("connect_timeout=10 keepalives_idle=15 keepalives_interval=5 "
                                  "keepalives_count=3 tcp_user_timeout=30000 application_name=%1 options=%2")
                       .arg(quoted(QCoreApplication::applicationName()), quoted(sessionSettings(options)));
    for (const char* key : {"sslmode", "sslrootcert"}) {
        const QString value = options.value(QLatin1String(key));
        if (!value.isEmpty())
            text += u' ' + QLatin1String(key) + u'=' + quoted(value);
    }
    return text.remove(u';');
}

QString describe(const ConnectString& options) {
    const QString host = options.value(QStringLiteral("host"));
    return QStringLiteral("«%1» en %2")
        .arg(options.value(QStringLiteral("database")),
             host.isEmpty() ? QStringLiteral("este equipo") : host);
}

} // namespace

PostgresLink::PostgresLink(const ConnectString& options)
    : m_name(QStringLiteral("quorvane-%1").arg(reinterpret_cast<quintptr>(this), 0, 16))
    , m_database(open(options)) {
    try {
        requireVersion();
    } catch (...) {
        close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
        throw;
    }
}

PostgresLink::~PostgresLink() {
    close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase PostgresLink::open(const ConnectString& options) const {
    QSqlError error;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), m_name);
        if (!database.isValid()) {
            database = QSqlDatabase();
            QSqlDatabase::removeDatabase(m_name);
            throw RunTimeError(ErrorCannotCreateObject,
                               QStringLiteral("Falta el controlador QPSQL de Qt para PostgreSQL"));
        }
        database.setHostName(options.value(QStringLiteral("host")));
        database.setPort(options.number(QStringLiteral("port"), -1));
        database.setDatabaseName(options.value(QStringLiteral("database")));
        database.setUserName(options.value(QStringLiteral("user")));
        database.setPassword(options.value(QStringLiteral("password")));
        database.setConnectOptions(libraryOptions(options));
        database.setNumericalPrecisionPolicy(QSql::HighPrecision);
        if (database.open())
            return database;
        error = database.lastError();
    }
    QSqlDatabase::removeDatabase(m_name);
    raiseConnect(error, describe(options));
}

void PostgresLink::requireVersion() {
    QSqlQuery query = run(QStringLiteral(
        "SELECT current_setting('server_version_num')::int, current_setting('server_version')"));
    query.next();
    if (query.value(0).toInt() < oldestVersion)
        throw RunTimeError(
            ErrorDatabaseFormat,
            QStringLiteral("El servidor PostgreSQL es demasiado antiguo (%1); se necesita la versión %2 o "
                           "posterior")
                .arg(query.value(1).toString())
                .arg(oldestVersion / 10000));
}

void PostgresLink::close() {
    m_pending = nullptr;
    m_database.close();
}

QSqlQuery PostgresLink::run(const QString& sql) {
    if (m_pending) {
        PendingRows* rows = m_pending;
        m_pending = nullptr;
        rows->fetchAll();
    }
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    query.setNumericalPrecisionPolicy(QSql::HighPrecision);
    if (!query.exec(sql))
        raiseStatement(query.lastError());
    return query;
}

} // namespace quorvane::postgres
