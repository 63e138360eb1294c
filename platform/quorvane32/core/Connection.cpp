#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane {

namespace {

/// Reports the errors that a result raises while it is being fetched to the connection's list as well.
class ReportingCursor final : public Cursor {
public:
    ReportingCursor(std::unique_ptr<Cursor> cursor, std::function<void(const RunTimeError&)> report)
        : m_cursor(std::move(cursor)), m_report(std::move(report)) {}

    bool next() override {
        try {
            return m_cursor->next();
        } catch (const RunTimeError& error) {
            m_report(error);
            throw;
        }
    }
    int columnCount() const override { return m_cursor->columnCount(); }
    QString columnName(int ordinal) const override { return m_cursor->columnName(ordinal); }
    Value value(int ordinal) override { return m_cursor->value(ordinal); }

private:
    std::unique_ptr<Cursor> m_cursor;
    std::function<void(const RunTimeError&)> m_report;
};

} // namespace

Connection::Connection(EngineOpener opener) : m_opener(std::move(opener)) {}

void Connection::open(const QString& connectString) {
    close();
    m_errors.clear();
    try {
        m_engine = m_opener(connectString);
    } catch (const RunTimeError& error) {
        note(error, m_generation);
        throw;
    }
    m_connectString = connectString;
    m_lost = false;
    ++m_generation;
}

void Connection::close() {
    rollbackTrans();
    m_engine.reset();
    m_connectString.clear();
}

Engine& Connection::engine() {
    if (m_engine && !m_lost)
        return *m_engine;
    if (m_connectString.isEmpty())
        raise(ErrorObjectClosed);
    if (m_inTransaction)
        throw RunTimeError(
            ErrorConnectionLost,
            QStringLiteral("Se perdió la conexión con la base de datos durante la transacción"));
    m_engine.reset();
    m_engine = m_opener(m_connectString);
    m_lost = false;
    ++m_generation;
    return *m_engine;
}

void Connection::note(const RunTimeError& error, int generation) {
    m_errors.push_back({error.number(), error.description()});
    // The engine may be in the middle of a call: the next command replaces it. A result of an engine that is
    // replaced already says nothing about the present one.
    if (error.number() == ErrorConnectionLost && generation == m_generation)
        m_lost = true;
}

template<class Operation> auto Connection::guarded(Operation&& operation) {
    m_errors.clear();
    try {
        return operation(engine());
    } catch (const RunTimeError& error) {
        note(error, m_generation);
        throw;
    }
}

Recordset Connection::openRecordset(const QString& sql) {
    if (m_observer)
        m_observer(sql);
    auto cursor = guarded([&](Engine& engine) { return engine.select(sql); });
    const auto report = [this, generation = m_generation](const RunTimeError& error) {
        note(error, generation);
    };
    return Recordset(std::make_unique<ReportingCursor>(std::move(cursor), report));
}

qint64 Connection::execute(const QString& sql) {
    if (m_observer)
        m_observer(sql);
    m_affectedRows = 0;
    m_affectedRows = guarded([&](Engine& engine) { return engine.execute(sql); });
    return m_affectedRows;
}

void Connection::beginTrans() {
    if (m_inTransaction)
        raise(ErrorInvalidCall);
    guarded([](Engine& engine) { engine.begin(); });
    m_inTransaction = true;
}

void Connection::commitTrans() {
    if (!m_inTransaction)
        raise(ErrorInvalidCall);
    guarded([](Engine& engine) { engine.commit(); });
    m_inTransaction = false;
}

void Connection::rollbackTrans() noexcept {
    if (m_inTransaction && m_engine && !m_lost) {
        try {
            m_engine->rollback();
        } catch (const std::exception&) {
            // An engine that cannot even roll back is given up; the database undoes what was not committed.
            m_lost = true;
        }
    }
    // Its open transaction would keep other programs from writing until the next command here.
    if (m_lost)
        m_engine.reset();
    m_inTransaction = false;
}

} // namespace quorvane
