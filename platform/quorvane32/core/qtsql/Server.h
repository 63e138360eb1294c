#pragma once

#include "platform/quorvane32/core/qtsql/Dialect.h"
#include "platform/quorvane32/core/qtsql/FieldReader.h"
#include "platform/quorvane32/core/qtsql/ServerFault.h"
#include <QSqlDatabase>
#include <QSqlField>
#include <QSqlQuery>
#include <memory>

namespace quorvane {
class ConnectString;
}

namespace quorvane::qtsql {

/// How long a lock is waited for and how long a statement may take, when a profile does not say (ms).
inline constexpr int usualLockTimeout = 5000;
inline constexpr int usualStatementTimeout = 300000;
/// How long a server may take to answer a call (s).
inline constexpr int connectTimeout = 10;

class SqlLink;

/// One of Qt's SQL drivers: how a database is reached through it, and how it tells types and errors. Reads
/// its address from a connect string when made and keeps it for further links.
class Transport {
public:
    virtual ~Transport() = default;
    /// Qt's name of the driver.
    virtual QString driver() const = 0;
    /// Gives a database that is not open yet all that it needs to be opened.
    virtual void prepare(QSqlDatabase& database) const = 0;
    /// What only an open database can be told.
    virtual void opened(const QSqlDatabase& /*database*/) const {}
    virtual ValueKind kindOf(const QSqlField& field) const = 0;
    /// Reads the rows of a result with columns of these kinds.
    virtual std::unique_ptr<FieldReader> reader(std::vector<ValueKind> kinds) const {
        return std::make_unique<QtFieldReader>(std::move(kinds));
    }
    /// Why the last operation failed, never empty.
    virtual ServerFaults faults(const QSqlDatabase& database) const = 0;
    virtual ServerFaults faults(const QSqlQuery& query) const = 0;
    /// The database and its server in words, for messages; never the password.
    virtual QString place() const = 0;
};

/// What a server's sessions are told for a transaction, and for several queries of one state.
struct TransactionWords {
    QString begin;
    QString commit;
    QString rollback;
    /// What makes all that follows one state of the database, sent in front of the first query; "" for a
    /// server that has no such thing.
    QString beginReading;
    QString endReading;
};

/// One make of server, whichever driver reaches it.
class Product {
public:
    virtual ~Product() = default;
    /// Readies a session before its first statement and tells its words; error 3343 for a server that is too
    /// old.
    virtual TransactionWords start(SqlLink& link) const = 0;
    virtual std::unique_ptr<Dialect> dialect(SqlLink& link) const = 0;
    /// The ERP server's number with the server's own text in brackets.
    virtual RunTimeError statementError(const ServerFaults& faults) const = 0;
    /// The same for a server that could not be reached: 18456, 4060, 3709, ...
    virtual RunTimeError connectError(const ServerFaults& faults, const QString& place) const = 0;
};

struct Server {
    std::unique_ptr<Transport> transport;
    std::unique_ptr<Product> product;
};

/// The database and the server of a connect string in words.
QString placeOf(const ConnectString& options);
/// A yes or no of a connect string: S or N.
bool flagOf(const ConnectString& options, const char* key, bool usual);

} // namespace quorvane::qtsql
