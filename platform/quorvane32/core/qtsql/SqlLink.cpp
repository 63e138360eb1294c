#include "platform/quorvane32/core/qtsql/SqlLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QSqlError>
#include <QSqlRecord>
#include <limits>
#include <utility>

namespace quorvane::qtsql {

SqlLink::SqlLink(std::shared_ptr<const Server> server)
    : m_server(std::move(server))
    , m_name(QStringLiteral("quorvane-%1").arg(reinterpret_cast<quintptr>(this), 0, 16))
    , m_database(open()) {
    try {
        m_server->transport->opened(m_database);
        m_words = m_server->product->start(*this);
    } catch (...) {
        close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
        throw;
    }
}

SqlLink::~SqlLink() {
    close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase SqlLink::open() const {
    const Transport& transport = *m_server->transport;
    ServerFaults faults;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(transport.driver(), m_name);
        if (!database.isValid()) {
            database = QSqlDatabase();
            QSqlDatabase::removeDatabase(m_name);
            throw RunTimeError(ErrorCannotCreateObject,
                               QStringLiteral("Falta el controlador %1 de Qt para %2")
                                   .arg(transport.driver(), transport.place()));
        }
        transport.prepare(database);
        database.setNumericalPrecisionPolicy(QSql::HighPrecision);
        if (database.open())
            return database;
        faults = transport.faults(database);
    }
    QSqlDatabase::removeDatabase(m_name);
    throw m_server->product->connectError(faults, transport.place());
}

void SqlLink::close() {
    m_pending = nullptr;
    m_database.close();
}

void SqlLink::clear() {
    if (PendingRows* rows = std::exchange(m_pending, nullptr))
        rows->takeIn(std::numeric_limits<qsizetype>::max());
}

std::unique_ptr<FieldReader> SqlLink::reader(const QSqlQuery& query) const {
    const QSqlRecord record = query.record();
    std::vector<ValueKind> kinds;
    kinds.reserve(record.count());
    for (int i = 0; i < record.count(); ++i)
        kinds.push_back(m_server->transport->kindOf(record.field(i)));
    return m_server->transport->reader(std::move(kinds));
}

void SqlLink::fail(const QSqlQuery& query) {
    m_failed = m_inTransaction;
    throw m_server->product->statementError(m_server->transport->faults(query));
}

QSqlQuery SqlLink::send(const QString& sql) {
    clear();
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    query.setNumericalPrecisionPolicy(QSql::HighPrecision);
    if (!query.exec(sql))
        fail(query);
    return query;
}

QSqlQuery SqlLink::run(const QString& sql) {
    // A server may have undone the transaction already: what follows would be stored without it.
    if (m_failed)
        throw RunTimeError(ErrorTransactionFailed, QStringLiteral("La transacción falló y debe deshacerse"));
    return send(sql);
}

QSqlQuery SqlLink::runFirstRead(const QString& sql) {
    QSqlQuery query = run(m_words.beginReading + sql);
    while (!query.isSelect())
        if (!query.nextResult())
            fail(query);
    return query;
}

void SqlLink::endReading() {
    if (!m_words.endReading.isEmpty())
        run(m_words.endReading);
}

bool SqlLink::fetch(QSqlQuery& query) {
    if (!isOpen())
        throw RunTimeError(ErrorConnectionLost,
                           QStringLiteral("La conexión con la base de datos se cerró durante la lectura"));
    if (query.next())
        return true;
    if (query.lastError().type() != QSqlError::NoError)
        fail(query);
    return false;
}

qint64 SqlLink::affectedRows(QSqlQuery& query) {
    qint64 rows = query.isSelect() ? 0 : qMax(0, query.numRowsAffected());
    while (query.nextResult())
        if (!query.isSelect() && query.numRowsAffected() >= 0)
            rows = query.numRowsAffected();
    if (query.lastError().type() != QSqlError::NoError)
        fail(query);
    return rows;
}

void SqlLink::begin() {
    run(m_words.begin);
    m_inTransaction = true;
    m_failed = false;
}

void SqlLink::commit() {
    // A server may answer the commit of a failed transaction with its rollback, and without an error.
    if (m_failed)
        throw RunTimeError(ErrorTransactionFailed,
                           QStringLiteral("Una instrucción de la transacción falló: no se guardó nada"));
    try {
        run(m_words.commit);
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

void SqlLink::rollback() {
    send(m_words.rollback);
    m_inTransaction = false;
    m_failed = false;
}

} // namespace quorvane::qtsql
