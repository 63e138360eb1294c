#pragma once

#include "platform/quorvane32/core/qtsql/Server.h"

namespace quorvane::postgres {

/// A PostgreSQL server, version 13 or later, through whichever driver. Connect string:
/// Host=...;Database=...;User=...[;Port=...][;Password=...][;Timeout=milliseconds that a lock is waited
/// for][;StatementTimeout=milliseconds][;ReadOnly=S][;SslMode=...][;SslRootCert=...]. The host is a name, an
/// address or the folder of the server's socket. Without a password the client library looks for one in its
/// own file (~/.pgpass).
class PostgresProduct final : public qtsql::Product {
public:
    qtsql::TransactionWords start(qtsql::SqlLink& link) const override;
    std::unique_ptr<qtsql::Dialect> dialect(qtsql::SqlLink& link) const override;
    RunTimeError statementError(const qtsql::ServerFaults& faults) const override;
    RunTimeError connectError(const qtsql::ServerFaults& faults, const QString& place) const override;
};

} // namespace quorvane::postgres
