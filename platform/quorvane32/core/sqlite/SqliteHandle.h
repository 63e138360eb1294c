#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace quorvane::sqlite {

using Handle = std::shared_ptr<sqlite3>;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const;
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

enum class Access { ReadWrite, Create };

/// Opens a database file with the ERP's collation ERP_ES and LIKE registered and foreign literals refused.
/// Error 53 for a missing file (unless it may be created), 3343 for a file that is no database, 70 and 75 for
/// one that must not be touched. `timeout` is the time in milliseconds to wait for another program's lock.
Handle open(const QString& path, Access access, int timeout);

/// Prepares exactly one statement; the engine's errors as RunTimeError.
Statement prepare(sqlite3* database, const QByteArray& sql);

/// Runs statements that give no rows, several if need be (schema files).
void run(sqlite3* database, const QByteArray& sql);

/// Raises the database's last error with the ERP server's number: 2627 duplicate key, 1222 locked by another
/// program, 61 disk full, 70 read-only, 3343 no database, 3709 lost; others keep the engine's own number.
[[noreturn]] void raiseLastError(sqlite3* database);

/// Registers the collation and the functions that make SQLite compare texts as the ERP's server does.
void registerFunctions(sqlite3* database);

} // namespace quorvane::sqlite
