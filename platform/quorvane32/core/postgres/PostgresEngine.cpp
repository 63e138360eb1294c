#include "platform/quorvane32/core/postgres/PostgresEngine.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/postgres/PostgresCursor.h"
#include "platform/quorvane32/core/postgres/PostgresErrors.h"
#include <QSqlError>
#include <QSqlRecord>
#include <QVariant>
#include <utility>

namespace quorvane::postgres {

namespace {

/// Reads which columns of the tables that unqualified names find are dates.
DateColumns readDateColumns(PostgresLink& link) {
    DateColumns columns;
    QSqlQuery query = link.run(QStringLiteral(
        "SELECT c.relname::text, a.attname::text, a.atttypid IN ('date'::regtype, 'timestamp'::regtype, "
        "'timestamptz'::regtype) FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid "
        "WHERE c.relkind IN ('r', 'v', 'm', 'p', 'f') AND a.attnum > 0 AND NOT a.attisdropped "
        "AND c.relnamespace NOT IN ('pg_catalog'::regnamespace, 'information_schema'::regnamespace) "
        "AND pg_table_is_visible(c.oid) ORDER BY c.oid, a.attnum"));
    while (query.next())
        columns.add(query.value(0).toString(), query.value(1).toString(), query.value(2).toBool());
    return columns;
}

} // namespace

PostgresEngine::PostgresEngine(const ConnectString& options)
    : m_link(std::make_shared<PostgresLink>(options)), m_dialect(readDateColumns(*m_link)) {}

PostgresEngine::~PostgresEngine() {
    // A result still open keeps the link: an unfinished transaction shall not live on with it.
    if (m_inTransaction)
        m_link->close();
}

QSqlQuery PostgresEngine::run(const QString& sql) {
    try {
        return m_link->run(sql);
    } catch (const RunTimeError&) {
        m_failed = m_inTransaction;
        throw;
    }
}

std::unique_ptr<Cursor> PostgresEngine::select(const QString& sql) {
    const QString adapted = m_dialect.adaptQuery(sql);
    QSqlQuery query = m_reading == Reading::Asked ? runFirstRead(adapted) : run(adapted);
    const QSqlRecord record = query.record();
    std::vector<QString> names;
    names.reserve(record.count());
    for (int i = 0; i < record.count(); ++i)
        names.push_back(m_dialect.spelling(sql, record.fieldName(i)));
    return std::make_unique<PostgresCursor>(m_link, std::move(query), std::move(names));
}

qint64 PostgresEngine::execute(const QString& sql) {
    const QSqlQuery query = run(m_dialect.adaptCommand(sql));
    // A definition has no count, a query counts what it found.
    return query.isSelect() ? 0 : qMax(0, query.numRowsAffected());
}

QSqlQuery PostgresEngine::runFirstRead(const QString& sql) {
    // Each statement would see a state of its own otherwise. It holds no row, so a list that is left open on
    // the screen may stay.
    static const QString beginning = QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY; "
                                                    "SET LOCAL idle_in_transaction_session_timeout = 0; ");
    m_reading = Reading::Open;
    QSqlQuery query = m_link->run(beginning + sql);
    for (int answer = 0; answer < 2; ++answer)
        if (!query.nextResult())
            raiseStatement(query.lastError());
    return query;
}

void PostgresEngine::endReading() {
    if (std::exchange(m_reading, Reading::No) == Reading::Open)
        m_link->run(QStringLiteral("COMMIT"));
}

void PostgresEngine::begin() {
    run(QStringLiteral("BEGIN"));
    m_inTransaction = true;
    m_failed = false;
}

void PostgresEngine::commit() {
    // The server answers the commit of a failed transaction with its rollback, and without an error.
    if (m_failed)
        throw RunTimeError(ErrorTransactionFailed,
                           QStringLiteral("Una instrucción de la transacción falló: no se guardó nada"));
    try {
        run(QStringLiteral("COMMIT"));
    } catch (const RunTimeError& error) {
        if (error.number() != ErrorConnectionLost)
            throw;
        throw RunTimeError(
            ErrorConnectionLost,
            QStringLiteral("Se perdió la conexión al confirmar los datos: no se sabe si quedaron "
                           "guardados. Lea nuevamente para comprobarlo [%1]")
                .arg(error.description()));
    }
    m_inTransaction = false;
}

void PostgresEngine::rollback() {
    run(QStringLiteral("ROLLBACK"));
    m_inTransaction = false;
    m_failed = false;
}

} // namespace quorvane::postgres
