#pragma once

#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/core/qtsql/Dialect.h"

namespace quorvane::sqlserver {

/// The ERP server's own SQL: statements go to it unchanged. What is refused is only what the server would
/// read as more than the one statement that was checked: it needs no ";" between two, its comments nest, it
/// takes other characters for blanks, and ODBC reads {...} as words of its own.
class SqlServerDialect final : public qtsql::Dialect {
public:
    /// A read-only one refuses every command (error 70), since the server has no such mode for a session.
    explicit SqlServerDialect(bool readOnly) : m_readOnly(readOnly) {}

    QString adaptCommand(const QString& sql) override;
    QString adaptQuery(const QString& sql) override;
    QString spelling(const QString& /*sql*/, const QString& name) const override { return name; }

private:
    bool m_readOnly;
    std::vector<SqlToken> m_tokens;
};

} // namespace quorvane::sqlserver
