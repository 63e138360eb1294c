#pragma once

#include "platform/quorvane32/core/odbc/OdbcTransport.h"

namespace quorvane::odbc {

/// The server that a connect string names through ODBC: "Driver=sqlserver" (see SqlServerProduct) or
/// "Driver=odbc-postgresql" (see PostgresProduct; [;OdbcDriver=...] as below). Both know
/// [;OdbcOptions={keyword=value;...}], further keywords of the ODBC driver.
qtsql::Server serverOf(const ConnectString& options);

/// How an SQL Server is reached: OdbcDriver names FreeTDS (when missing) or the vendor's driver as the driver
/// manager knows it, or by the path of its library; Dsn a data source of the machine instead.
OdbcTransport::Address sqlServerAddress(const ConnectString& options);

/// How a PostgreSQL server is reached through its own ODBC driver.
OdbcTransport::Address postgresAddress(const ConnectString& options);

} // namespace quorvane::odbc
