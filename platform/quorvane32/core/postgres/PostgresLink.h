#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>

namespace quorvane {
class ConnectString;
}

namespace quorvane::postgres {

/// A result that is still on its way and occupies the link.
class PendingRows {
public:
    virtual ~PendingRows() = default;
    /// Takes the rows that are left out of the way, into memory. Keeps an error for the reader of the rows.
    virtual void fetchAll() noexcept = 0;
};

/// One link to a server. The server answers one statement after the other: rows that are read as they arrive
/// occupy the link until the last one. Whoever sends a statement first asks pending rows to come in.
class PostgresLink {
public:
    /// Errors 18456, 4060, 3709, and 3343 for a server that is too old.
    explicit PostgresLink(const ConnectString& options);
    ~PostgresLink();
    PostgresLink(const PostgresLink&) = delete;
    PostgresLink& operator=(const PostgresLink&) = delete;

    /// Runs one statement of the server's own SQL, its rows read as they arrive. Errors as raiseStatement.
    QSqlQuery run(const QString& sql);
    bool isOpen() const { return m_database.isOpen(); }
    /// Ends the link; the server undoes what was not committed. Rows on their way are lost.
    void close();

    void setPending(PendingRows* rows) { m_pending = rows; }
    bool isPending(const PendingRows* rows) const { return m_pending == rows; }

private:
    QSqlDatabase open(const ConnectString& options) const;
    void requireVersion();

    QString m_name;
    QSqlDatabase m_database;
    PendingRows* m_pending = nullptr;
};

} // namespace quorvane::postgres
