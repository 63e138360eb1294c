#pragma once

#include "platform/quorvane32/core/qtsql/Server.h"

namespace quorvane::qtsql {

/// A result that is still on its way and occupies its link.
class PendingRows {
public:
    virtual ~PendingRows() = default;
    /// Takes rows out of the way into memory, at most `limit` beside the current one. Keeps an error for the
    /// reader of the rows. True when none is left on the link.
    virtual bool takeIn(qsizetype limit) noexcept = 0;
};

/// One link to a server. The server answers one statement after the other: rows that are read as they arrive
/// occupy the link until the last one. Whoever sends a statement first asks pending rows to come in.
class SqlLink {
public:
    /// Errors as Product::connectError, 429 when Qt's driver is missing, 3343 for a server that is too old.
    explicit SqlLink(std::shared_ptr<const Server> server);
    ~SqlLink();
    SqlLink(const SqlLink&) = delete;
    SqlLink& operator=(const SqlLink&) = delete;

    /// Runs one statement of the server's own SQL, its rows read as they arrive. Errors as
    /// Product::statementError; 3930 in a transaction that can only be undone.
    QSqlQuery run(const QString& sql);
    /// The same for a query that begins a reading: the beginning travels with it, so that it costs no round
    /// trip.
    QSqlQuery runFirstRead(const QString& sql);
    void endReading();
    /// The next row of a result of this link; false past the last one.
    bool fetch(QSqlQuery& query);
    /// Reads what the server still says to a statement and returns the rows that it affected itself: those of
    /// its triggers are told first.
    qint64 affectedRows(QSqlQuery& query);

    void begin();
    /// Error 3930 when a statement of the transaction had failed: the server then stores nothing. A link that
    /// is lost while the server's answer is waited for is told as an unknown outcome (error 3709).
    void commit();
    void rollback();
    bool inTransaction() const { return m_inTransaction; }

    bool isOpen() const { return m_database.isOpen(); }
    /// Ends the link; the server undoes what was not committed. Rows on their way are lost.
    void close();
    /// Reads the rows of a result of this link.
    std::unique_ptr<FieldReader> reader(const QSqlQuery& query) const;
    /// Raises the error of a result of this link.
    [[noreturn]] void fail(const QSqlQuery& query);

    void setPending(PendingRows* rows) { m_pending = rows; }
    bool isPending(const PendingRows* rows) const { return m_pending == rows; }
    /// True when rows are still on their way after at most `limit` of them have been taken in.
    bool isBusy(qsizetype limit) { return m_pending && !m_pending->takeIn(limit); }
    /// Takes in all rows that are on their way.
    void clear();

private:
    QSqlDatabase open() const;
    QSqlQuery send(const QString& sql);

    std::shared_ptr<const Server> m_server;
    QString m_name;
    QSqlDatabase m_database;
    TransactionWords m_words;
    PendingRows* m_pending = nullptr;
    bool m_inTransaction = false;
    bool m_failed = false; ///< a statement of the transaction
};

} // namespace quorvane::qtsql
