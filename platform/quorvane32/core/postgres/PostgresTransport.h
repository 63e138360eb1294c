#pragma once

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/qtsql/Server.h"

namespace quorvane::postgres {

/// Qt's own driver for PostgreSQL, which sends a statement's rows as they are read.
class PostgresTransport final : public qtsql::Transport {
public:
    explicit PostgresTransport(ConnectString options) : m_options(std::move(options)) {}

    QString driver() const override { return QStringLiteral("QPSQL"); }
    void prepare(QSqlDatabase& database) const override;
    qtsql::ValueKind kindOf(const QSqlField& field) const override;
    qtsql::ServerFaults faults(const QSqlDatabase& database) const override;
    qtsql::ServerFaults faults(const QSqlQuery& query) const override;
    QString place() const override { return qtsql::placeOf(m_options); }

private:
    ConnectString m_options;
};

} // namespace quorvane::postgres
