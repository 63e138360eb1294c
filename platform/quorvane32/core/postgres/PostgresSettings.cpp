#include "platform/quorvane32/core/postgres/PostgresSettings.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/qtsql/Server.h"
#include <QCoreApplication>

namespace quorvane::postgres {

namespace {

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
        .arg(time("timeout", qtsql::usualLockTimeout), time("statementtimeout", qtsql::usualStatementTimeout),
             QString::number(transactionTimeout),
             qtsql::flagOf(options, "readonly", false)
                 ? QStringLiteral(" -c default_transaction_read_only=on")
                 : QString());
}

/// A value of the client library's own connection text.
QString quoted(QString value) {
    return u'\'' + value.replace(u'\\', QLatin1String("\\\\")).replace(u'\'', QLatin1String("\\'")) + u'\'';
}

} // namespace

/// A dead network is noticed within half a minute instead of the system's two hours. Drivers take ";" for
/// the end of an option, so none may hold one.
QString librarySettings(const ConnectString& options) {
    QString text = QStringLiteral("connect_timeout=%1 keepalives_idle=15 keepalives_interval=5 "
                                  "keepalives_count=3 tcp_user_timeout=30000 application_name=%2 options=%3")
                       .arg(QString::number(qtsql::connectTimeout),
                            quoted(QCoreApplication::applicationName()), quoted(sessionSettings(options)));
    for (const char* key : {"sslmode", "sslrootcert"}) {
        const QString value = options.value(QLatin1String(key));
        if (!value.isEmpty())
            text += u' ' + QLatin1String(key) + u'=' + quoted(value);
    }
    return text.remove(u';');
}

} // namespace quorvane::postgres
