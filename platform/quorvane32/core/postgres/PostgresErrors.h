#pragma once

#include <QSqlError>
#include <QString>

namespace quorvane::postgres {

/// Raises an error of the server with the ERP server's number and the server's own text in brackets: 2627
/// duplicate key, 1222 lock time-out, 1205 deadlock, 208 no such table, 207 no such column, 70 no right,
/// 3709 connection lost, ... An error that has no number there is raised with the number that every
/// failed command has.
[[noreturn]] void raiseStatement(const QSqlError& error);

/// Raises why a server could not be reached: 18456 wrong user or password, 4060 no such database, 3709
/// anything else. `where` names the server and the database.
[[noreturn]] void raiseConnect(const QSqlError& error, const QString& where);

} // namespace quorvane::postgres
