#pragma once

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Engine.h"
#include "platform/quorvane32/core/sqlite/SqliteDialect.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <list>
#include <optional>

namespace quorvane::sqlite {

/// The embedded database. Write transactions are immediate: a save waits for another program's write at its
/// start and never loses a lock half way. Connect string: Driver=sqlite;Database=path[;Timeout=milliseconds]
/// [;Synchronous=normal]; the last leaves it to the next full commit to reach the disk.
class SqliteEngine final : public Engine {
public:
    SqliteEngine(const QString& path, int timeout);
    SqliteEngine(const SqliteEngine&) = delete;
    SqliteEngine& operator=(const SqliteEngine&) = delete;
    ~SqliteEngine() override;

    std::unique_ptr<Cursor> select(const QString& sql) override;
    qint64 execute(const QString& sql) override;
    void beginReading() override;
    void endReading() override;
    void begin() override;
    void commit() override;
    void rollback() override;

private:
    /// A compiled statement, found again by its shape.
    struct Compiled {
        QString shape;
        std::vector<bool> dates;
        Statement statement;
    };
    Compiled& compiled(const QString& sql, const QString& shape);
    /// Before the first write: readers never wait for a writer in this mode. A database that is only read is
    /// left as it is, since it may turn out to be another program's.
    void useWriteAheadLog();
    /// What is written into a file that has been deleted or replaced is gone with it, and the system raises
    /// no error: error 3709 instead.
    void requireItsFile();
    /// Knows the date columns, which are read with the first statement: a connection that waits for its first
    /// one, as that of the reports does, costs the start next to nothing.
    SqliteDialect& dialect();
    void bind(sqlite3_stmt* statement, int position, const Parameter& parameter);
    void runToEnd(sqlite3_stmt* statement);

    Handle m_database;
    std::optional<SqliteDialect> m_dialect;
    std::list<Compiled> m_compiled;
    bool m_writesAhead = false;
};

/// Opens the database that a connect string describes.
std::unique_ptr<Engine> openSqlite(const ConnectString& options);

} // namespace quorvane::sqlite
