#pragma once

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/qtsql/Server.h"

namespace quorvane::sqlserver {

/// A Microsoft SQL Server, version 2012 or later: the oldest that speaks the protocol that both ODBC drivers
/// speak today (TDS 7.4). Connect string: Host=...;Database=...;User=...[;Port=...][;Password=...]
/// [;OdbcDriver=FreeTDS | ODBC Driver 18 for SQL Server | the path of a driver's library][;Dsn=...]
/// [;Encrypt=S or N][;TrustServerCertificate=S][;Timeout=milliseconds that a lock is waited for]
/// [;StatementTimeout=milliseconds][;ReadOnly=S][;OdbcOptions={keyword=value;...}].
class SqlServerProduct final : public qtsql::Product {
public:
    explicit SqlServerProduct(const ConnectString& options);

    qtsql::TransactionWords start(qtsql::SqlLink& link) const override;
    std::unique_ptr<qtsql::Dialect> dialect(qtsql::SqlLink& link) const override;
    RunTimeError statementError(const qtsql::ServerFaults& faults) const override;
    RunTimeError connectError(const qtsql::ServerFaults& faults, const QString& place) const override;

private:
    int m_lockTimeout;
    bool m_readOnly;
};

} // namespace quorvane::sqlserver
