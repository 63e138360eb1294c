#pragma once

#include "platform/quorvane32/core/Engine.h"
#include "tests/tds/ClientLink.h"
#include "tests/tds/Faults.h"
#include "tests/tds/Requests.h"
#include "tests/tds/ServerErrors.h"
#include "tests/tds/TransactSql.h"
#include <functional>

namespace dalvora::test::tds {

/// What a client that has signed in asks for, done by the embedded engine on the file of its database:
/// batches of statements and transactions. Only the first change of a transaction begins one there, as the
/// server locks nothing before; a lock is waited for as long as the session's LOCK_TIMEOUT says.
class BatchSession {
public:
    using Observer = std::function<void(const QString& statement)>;

    /// `path` is the file of the database; `observer` is told every statement before it runs.
    BatchSession(SessionSettings settings, const QString& path, Faults& faults, Observer observer);

    void run(const BatchRequest& request, Answer& answer);
    void run(const TransactionRequest& request, Answer& answer);

private:
    enum class End : quint8 { Statement, Batch };

    void requireTransaction(quint64 transaction) const;
    /// Does one statement with the faults that are planned for it; its errors become tokens.
    End runStatement(const QString& sql, bool more, Answer& answer, const std::function<void()>& work);
    void dispatch(const QString& sql, bool more, Answer& answer);
    /// A statement about transactions; false for any other.
    bool runTransactionStatement(const QString& sql, Answer& answer);
    void select(const QString& sql, bool more, Answer& answer);
    /// Holds the state that a transaction's first query finds, if its isolation is such.
    void holdState();
    void releaseState();
    void change(const QString& sql, bool more, Answer& answer);
    void begin(Answer& answer);
    void commit(Answer& answer);
    void rollback(Answer& answer);
    End fail(const ServerMessage& message, Answer& answer);
    /// Does what may meet a lock, again and again until the time is over.
    void patiently(Answer& answer, const std::function<void()>& work);
    void done(Answer& answer, int status, quint64 rows = 0) const;

    SessionSettings m_settings;
    Faults& m_faults;
    Observer m_observer;
    std::unique_ptr<quorvane::Engine> m_engine;
    quint64 m_transaction = 0; ///< its number, 0 for none
    quint64 m_transactions = 0;
    bool m_holdsState = false;
    bool m_begun = false; ///< in the embedded engine, too
    bool m_cutInRows = false;
};

} // namespace dalvora::test::tds
