#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <utility>

namespace quorvane {

namespace {

/// Reports the errors that a result raises while it is being fetched to the connection's list as well, and
/// once when it has no more rows or is dropped.
class ReportingCursor final : public Cursor {
public:
    ReportingCursor(std::unique_ptr<Cursor> cursor, std::function<void(const RunTimeError&)> report,
                    std::function<void()> ended)
        : m_cursor(std::move(cursor)), m_report(std::move(report)), m_ended(std::move(ended)) {}
    ~ReportingCursor() override {
        m_cursor.reset();
        end();
    }
    ReportingCursor(const ReportingCursor&) = delete;
    ReportingCursor& operator=(const ReportingCursor&) = delete;

    bool next() override {
        try {
            const bool found = m_cursor->next();
            if (!found)
                end();
            return found;
        } catch (const RunTimeError& error) {
            m_report(error);
            end();
            throw;
        }
    }
    int columnCount() const override { return m_cursor->columnCount(); }
    QString columnName(int ordinal) const override { return m_cursor->columnName(ordinal); }
    Value value(int ordinal) override { return m_cursor->value(ordinal); }

private:
    void end() {
        if (const auto ended = std::exchange(m_ended, {}))
            ended();
    }

    std::unique_ptr<Cursor> m_cursor;
    std::function<void(const RunTimeError&)> m_report;
    std::function<void()> m_ended;
};

} // namespace

Connection::Connection(EngineOpener opener) : m_opener(std::move(opener)) {}

Connection::~Connection() = default;

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
    endReading();
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
    // What a failed read would go on with is another state, and an engine may refuse it altogether.
    if (m_reading == Reading::Open)
        m_reading = Reading::Over;
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
    if (m_reading == Reading::Over)
        endReading();
    auto cursor = guarded([&](Engine& engine) {
        if (m_reading == Reading::Asked) {
            engine.beginReading();
            m_reading = Reading::Open;
        }
        return engine.select(sql);
    });
    ++m_fetching;
    const auto report = [this, generation = m_generation](const RunTimeError& error) {
        note(error, generation);
    };
    const auto ended = [this] {
        --m_fetching;
        endReadingWithoutRows();
    };
    return Recordset(std::make_unique<ReportingCursor>(std::move(cursor), report, ended));
}

qint64 Connection::execute(const QString& sql) {
    if (m_observer)
        m_observer(sql);
    endReading();
    m_affectedRows = 0;
    m_affectedRows = guarded([&](Engine& engine) { return engine.execute(sql); });
    return m_affectedRows;
}

void Connection::beginReading() {
    if (m_inTransaction)
        return; // which has a say of its own in what is seen
    endReading();
    m_reading = Reading::Asked;
    endReadingWithTheEvent();
}

void Connection::endReading() noexcept {
    const bool begun = m_reading == Reading::Open || m_reading == Reading::Over;
    m_reading = Reading::No;
    if (!begun || !m_engine || m_lost)
        return;
    try {
        m_engine->endReading();
    } catch (const std::exception&) {
        // The rows have been read; an engine that cannot end it is replaced by the next command.
        m_lost = true;
    }
}

void Connection::endReadingWithTheEvent() {
    if (m_eventAsked)
        return;
    if (!m_event)
        m_event = std::make_unique<QObject>();
    m_eventAsked = true;
    const auto end = [this] {
        m_eventAsked = false;
        // A long list that a window fetches as it is scrolled keeps its rows.
        if (m_reading == Reading::Open)
            m_reading = Reading::Over;
        else if (m_reading == Reading::Asked)
            m_reading = Reading::No;
        endReadingWithoutRows();
    };
    QMetaObject::invokeMethod(m_event.get(), end, Qt::QueuedConnection);
}

void Connection::endReadingWithoutRows() noexcept {
    if (m_reading == Reading::Over && m_fetching == 0)
        endReading();
}

void Connection::beginTrans() {
    if (m_inTransaction)
        raise(ErrorInvalidCall);
    endReading();
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
