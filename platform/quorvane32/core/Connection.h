#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Recordset.h"
#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace quorvane {

/// An error that the database reported, with the number that programs test for.
struct NativeError {
    int number = 0;
    QString text;
};

/// The one door to the ERP's database. Statements are given in the ERP server's SQL, finished, and reach the
/// engine through its dialect. Every operation can raise the database's errors as RunTimeError; errors()
/// keeps those of the last operation. After a lost connection the error goes to the caller and the next
/// command reconnects, but never inside a transaction: that one fails until it has been rolled back.
/// Recordsets may not outlive their connection.
class Connection {
public:
    using EngineOpener = std::function<std::unique_ptr<Engine>(const QString& connectString)>;
    using StatementObserver = std::function<void(const QString& sql)>;

    explicit Connection(EngineOpener opener = openEngine);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void open(const QString& connectString);
    void close();
    bool isOpen() const { return !m_connectString.isEmpty(); }
    const QString& connectString() const { return m_connectString; }

    /// Error 3705 when the text is anything but one SELECT.
    Recordset openRecordset(const QString& sql);
    /// Runs one statement and returns the number of rows that it affected.
    qint64 execute(const QString& sql);
    /// Affected rows of the last executed statement.
    qint64 affectedRows() const { return m_affectedRows; }

    /// What is read from here on is one state of the database: that of the first SELECT. It ends with
    /// endReading, another beginReading, a statement that writes, a transaction, or when the program returns
    /// to its event loop, since nobody shall look at an old state while a user thinks.
    void beginReading();
    /// Never raises: nothing can be lost with it.
    void endReading() noexcept;

    /// Transactions do not nest: a second beginTrans is error 5.
    void beginTrans();
    void commitTrans();
    /// Never raises: what cannot be rolled back has not been stored. A lost engine is released at once, with
    /// its locks.
    void rollbackTrans() noexcept;
    bool inTransaction() const { return m_inTransaction; }

    const std::vector<NativeError>& errors() const { return m_errors; }

    /// Called with every statement exactly as it was given, before it runs.
    void setStatementObserver(StatementObserver observer) { m_observer = std::move(observer); }

private:
    /// The open engine; a lost one is opened anew first.
    Engine& engine();
    /// Keeps an error of the engine of a generation; a loss concerns the present one only.
    void note(const RunTimeError& error, int generation);
    template<class Operation> auto guarded(Operation&& operation);
    /// Asks the event loop to end the reading when the present event has been handled.
    void endReadingWithTheEvent();
    void endReadingWithoutRows() noexcept;

    /// Asked: the next SELECT begins. Over: ends with the last result that is still being fetched.
    enum class Reading { No, Asked, Open, Over };

    EngineOpener m_opener;
    StatementObserver m_observer;
    QString m_connectString;
    std::unique_ptr<Engine> m_engine;
    std::vector<NativeError> m_errors;
    qint64 m_affectedRows = 0;
    int m_generation = 0; ///< counts the engines opened
    int m_fetching = 0;   ///< results that have rows left
    Reading m_reading = Reading::No;
    std::unique_ptr<QObject> m_event; ///< receives the call at the end of an event
    bool m_eventAsked = false;
    bool m_inTransaction = false;
    bool m_lost = false;
};

} // namespace quorvane
