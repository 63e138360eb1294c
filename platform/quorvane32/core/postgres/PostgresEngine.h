#pragma once

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Engine.h"
#include "platform/quorvane32/core/postgres/PostgresDialect.h"
#include "platform/quorvane32/core/postgres/PostgresLink.h"

namespace quorvane::postgres {

/// A PostgreSQL server, version 13 or later. Connect string: Driver=postgresql;Host=...;Database=...;User=...
/// [;Port=...][;Password=...][;Timeout=milliseconds that a lock is waited for]
/// [;StatementTimeout=milliseconds][;ReadOnly=S][;SslMode=...][;SslRootCert=...]. The
/// host is a name, an address or the folder of the server's socket. Without a password the client library
/// looks for one in its own file (~/.pgpass).
class PostgresEngine final : public Engine {
public:
    explicit PostgresEngine(const ConnectString& options);
    PostgresEngine(const PostgresEngine&) = delete;
    PostgresEngine& operator=(const PostgresEngine&) = delete;
    ~PostgresEngine() override;

    std::unique_ptr<Cursor> select(const QString& sql) override;
    qint64 execute(const QString& sql) override;
    /// The first SELECT takes the beginning along, so that it costs no round trip.
    void beginReading() override { m_reading = Reading::Asked; }
    void endReading() override;
    void begin() override;
    /// Error 3930 when a statement of the transaction had failed: the server then stores nothing. A link that
    /// is lost while the server's answer is waited for is told as an unknown outcome (error 3709).
    void commit() override;
    void rollback() override;

private:
    QSqlQuery run(const QString& sql);
    QSqlQuery runFirstRead(const QString& sql);

    enum class Reading { No, Asked, Open };

    std::shared_ptr<PostgresLink> m_link;
    PostgresDialect m_dialect;
    Reading m_reading = Reading::No;
    bool m_inTransaction = false;
    bool m_failed = false; ///< a statement of the transaction
};

} // namespace quorvane::postgres
