#pragma once

#include "platform/quorvane32/core/DateLiterals.h"
#include "platform/quorvane32/core/qtsql/Dialect.h"
#include <QString>
#include <vector>

namespace quorvane::postgres {

/// The ERP server's SQL as PostgreSQL reads it: TOP n becomes LIMIT, isnull() becomes coalesce(), an alias in
/// single quotes or a name in brackets becomes a quoted name, and literals against date columns become ISO
/// dates. Names are folded to lower case as the server folds unquoted ones, so an alias is found again
/// however it is written.
///
/// A comparison ignores blanks at the end of a text, as on the ERP's server: they are taken off the literals
/// that are compared, since the server's texts (citext) count them.
///
/// The server would run several statements of one text, and reads some texts (E'...', dollar quotes) in ways
/// of its own: what could make it see another statement than the one that was checked never reaches it.
class PostgresDialect final : public qtsql::Dialect {
public:
    explicit PostgresDialect(DateColumns columns) : m_columns(std::move(columns)) {}

    /// Error 3705 for anything but one statement with all its values, 5 for a text that holds a NUL.
    QString adaptCommand(const QString& sql) override;
    /// The same; error 3705 also for anything but a SELECT.
    QString adaptQuery(const QString& sql) override;

    /// How the statement adapted last spells a name that the server gives in lower case.
    QString spelling(const QString& sql, const QString& name) const override;

private:
    QString adapt(const QString& sql);

    DateColumns m_columns;
    std::vector<SqlToken> m_tokens;
};

} // namespace quorvane::postgres
