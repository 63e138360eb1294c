#pragma once

#include "platform/quorvane32/base/Value.h"
#include <QString>
#include <memory>

namespace quorvane {

/// Rows of one SELECT, fetched as they are asked for; positioned before the first row when made.
class Cursor {
public:
    virtual ~Cursor() = default;
    /// Moves to the next row; false past the last one. The database's errors leave it as RunTimeError.
    virtual bool next() = 0;
    virtual int columnCount() const = 0;
    virtual QString columnName(int ordinal) const = 0;
    /// The current row's value. Date columns come as Kind::Date and exact numbers as Kind::Decimal on every
    /// engine. What an expression makes of a date (max, coalesce, ...) has no declared type in the embedded
    /// database: it comes as the ISO text, yyyy-mm-dd.
    virtual Value value(int ordinal) = 0;
};

/// A database as the connection sees it. An implementation takes statements in the ERP server's SQL, adapts
/// them with its dialect, and throws RunTimeError whose number is already the ERP server's (2627 duplicate
/// key, 1222 lock time-out, 3709 connection lost, ...) with the engine's own text kept in the description.
class Engine {
public:
    virtual ~Engine() = default;
    /// Error 3705 when the text is anything but one SELECT; nothing has run then.
    virtual std::unique_ptr<Cursor> select(const QString& sql) = 0;
    /// Runs one statement and returns the number of affected rows. Error 3705 for more than one.
    virtual qint64 execute(const QString& sql) = 0;
    /// From here to endReading() every SELECT sees the database as the first of them finds it, and keeps
    /// nobody from writing. Never called inside a transaction, nor is anything but select() in between. An
    /// engine that has no such thing reads statement by statement.
    virtual void beginReading() {}
    virtual void endReading() {}
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;
};

/// Opens the engine that a connect string names ("Driver=sqlite;Database=..."); error 429 for a driver that
/// this program was built without, and the engine's own errors for a database that cannot be opened.
std::unique_ptr<Engine> openEngine(const QString& connectString);

} // namespace quorvane
