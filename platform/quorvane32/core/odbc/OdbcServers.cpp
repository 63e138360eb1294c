#include "platform/quorvane32/core/odbc/OdbcServers.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/odbc/OdbcAddress.h"
#include "platform/quorvane32/core/odbc/UsualDrivers.h"
#include "platform/quorvane32/core/postgres/PostgresProduct.h"
#include "platform/quorvane32/core/postgres/PostgresSettings.h"
#include "platform/quorvane32/core/sqlserver/SqlServerProduct.h"
#include <QCoreApplication>

namespace quorvane::odbc {

namespace {

QString valueOf(const ConnectString& options, const char* key, const char* usual = "") {
    return options.value(QLatin1String(key), QString::fromLatin1(usual));
}

/// Seconds of a time in milliseconds, at least one unless it is none at all.
int secondsOf(int milliseconds) {
    return milliseconds <= 0 ? 0 : qMax(1, (milliseconds + 999) / 1000);
}

void addDriver(OdbcAddress& address, const ConnectString& options, const QString& driver) {
    const QString dsn = valueOf(options, "dsn");
    address.add(dsn.isEmpty() ? QStringLiteral("DRIVER") : QStringLiteral("DSN"),
                dsn.isEmpty() ? driver : dsn);
}

void addUser(OdbcAddress& address, const ConnectString& options) {
    address.add(QStringLiteral("UID"), valueOf(options, "user"));
    address.add(QStringLiteral("PWD"), valueOf(options, "password"));
}

void addFreeTds(OdbcAddress& address, const ConnectString& options, int statementTimeout) {
    address.add(QStringLiteral("Server"), valueOf(options, "host"));
    address.add(QStringLiteral("Port"), valueOf(options, "port"));
    // Dates are dates from version 7.3 of the protocol on; before, the server gives them as texts.
    address.add(QStringLiteral("TDS_Version"), QStringLiteral("7.4"));
    address.add(QStringLiteral("ClientCharset"), QStringLiteral("UTF-8"));
    address.add(QStringLiteral("Encryption"),
                qtsql::flagOf(options, "encrypt", true) ? QStringLiteral("require") : QStringLiteral("off"));
    if (statementTimeout > 0)
        address.add(QStringLiteral("Timeout"), QString::number(statementTimeout));
}

void addVendors(OdbcAddress& address, const ConnectString& options) {
    const QString port = valueOf(options, "port");
    const QString host = valueOf(options, "host");
    address.add(QStringLiteral("Server"), port.isEmpty() ? host : host + u',' + port);
    const auto word = [&](const char* key, bool usual) {
        return qtsql::flagOf(options, key, usual) ? QStringLiteral("yes") : QStringLiteral("no");
    };
    address.add(QStringLiteral("Encrypt"), word("encrypt", true));
    address.add(QStringLiteral("TrustServerCertificate"), word("trustservercertificate", false));
    // Without a user the system's own sign-in counts.
    if (valueOf(options, "user").isEmpty())
        address.add(QStringLiteral("Trusted_Connection"), QStringLiteral("yes"));
}

} // namespace

OdbcTransport::Address sqlServerAddress(const ConnectString& options) {
    const QString driver = valueOf(options, "odbcdriver", usualSqlServerDriver);
    const bool vendors = driver.contains(QLatin1String("SQL Server"), Qt::CaseInsensitive) ||
                         driver.contains(QLatin1String("msodbcsql"), Qt::CaseInsensitive);
    const int timeout =
        secondsOf(options.number(QStringLiteral("statementtimeout"), qtsql::usualStatementTimeout));
    OdbcAddress address(vendors ? OdbcAddress::Braces::Doubled : OdbcAddress::Braces::Plain);
    addDriver(address, options, driver);
    if (vendors)
        addVendors(address, options);
    else
        addFreeTds(address, options, timeout);
    address.add(QStringLiteral("Database"), valueOf(options, "database"));
    address.add(QStringLiteral("APP"), QCoreApplication::applicationName());
    addUser(address, options);
    address.addAll(valueOf(options, "odbcoptions"));
    return {address.text(), qtsql::placeOf(options), timeout, qtsql::flagOf(options, "readonly", false)};
}

OdbcTransport::Address postgresAddress(const ConnectString& options) {
    OdbcAddress address(OdbcAddress::Braces::Doubled);
    addDriver(address, options, valueOf(options, "odbcdriver", usualPostgresDriver));
    address.add(QStringLiteral("Servername"), valueOf(options, "host"));
    address.add(QStringLiteral("Port"), valueOf(options, "port"));
    address.add(QStringLiteral("Database"), valueOf(options, "database"));
    address.add(QStringLiteral("SSLmode"), valueOf(options, "sslmode"));
    // Truth values as such, and no savepoint of the driver's own around each statement.
    address.add(QStringLiteral("BoolsAsChar"), QStringLiteral("0"));
    address.add(QStringLiteral("Protocol"), QStringLiteral("7.4-0"));
    address.add(QStringLiteral("pqopt"), postgres::librarySettings(options));
    addUser(address, options);
    address.addAll(valueOf(options, "odbcoptions"));
    return {address.text(), qtsql::placeOf(options), 0, false};
}

qtsql::Server serverOf(const ConnectString& options) {
    const bool sqlServer = valueOf(options, "driver").compare(u"sqlserver", Qt::CaseInsensitive) == 0;
    std::unique_ptr<qtsql::Product> product;
    if (sqlServer)
        product = std::make_unique<sqlserver::SqlServerProduct>(options);
    else
        product = std::make_unique<postgres::PostgresProduct>();
    return {std::make_unique<OdbcTransport>(sqlServer ? sqlServerAddress(options) : postgresAddress(options)),
            std::move(product)};
}

} // namespace quorvane::odbc
