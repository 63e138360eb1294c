#include "platform/quorvane32/core/qtsql/ServerEngine.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/qtsql/SqlCursor.h"
#include <QSqlRecord>
#include <utility>

namespace quorvane::qtsql {

namespace {

/// A result with no more rows left than this comes into memory rather than cost a second link.
constexpr qsizetype fewRows = 100;

} // namespace

ServerEngine::ServerEngine(Server server)
    : m_server(std::make_shared<const Server>(std::move(server)))
    , m_link(std::make_shared<SqlLink>(m_server))
    , m_dialect(m_server->product->dialect(*m_link)) {}

ServerEngine::~ServerEngine() {
    // A result still open keeps the link: an unfinished transaction shall not live on with it.
    if (m_link->inTransaction() || m_reading == Reading::Open)
        m_link->close();
}

void ServerEngine::clear() {
    m_link->clear();
    if (m_second)
        m_second->clear();
}

ServerEngine::Result ServerEngine::querySecond(const QString& sql) {
    if (m_second && !m_second->isOpen())
        m_second.reset();
    if (!m_second) {
        m_secondRefused = true; // unless this goes well: a server that is full is not asked at every query
        m_second = std::make_shared<SqlLink>(m_server);
        m_secondRefused = false;
    }
    return {m_second, m_second->run(sql)};
}

ServerEngine::Result ServerEngine::query(const QString& sql) {
    if (m_reading == Reading::Asked) {
        m_reading = Reading::Open;
        return {m_link, m_link->runFirstRead(sql)};
    }
    if (m_reading == Reading::No && !m_link->inTransaction() && !m_secondRefused && m_link->isBusy(fewRows)) {
        try {
            return querySecond(sql);
        } catch (const RunTimeError& error) {
            if (error.number() == ErrorConnectionLost)
                m_second.reset();
            else if (!m_secondRefused && error.number() != ErrorNoSuchTable)
                throw;
        }
    }
    return {m_link, m_link->run(sql)};
}

std::unique_ptr<Cursor> ServerEngine::select(const QString& sql) {
    Result result = query(m_dialect->adaptQuery(sql));
    const QSqlRecord record = result.query.record();
    std::vector<QString> names;
    names.reserve(record.count());
    for (int i = 0; i < record.count(); ++i)
        names.push_back(m_dialect->spelling(sql, record.fieldName(i)));
    return std::make_unique<SqlCursor>(std::move(result.link), std::move(result.query), std::move(names));
}

qint64 ServerEngine::execute(const QString& sql) {
    const QString adapted = m_dialect->adaptCommand(sql);
    clear();
    QSqlQuery query = m_link->run(adapted);
    return m_link->affectedRows(query);
}

void ServerEngine::endReading() {
    if (std::exchange(m_reading, Reading::No) == Reading::Open)
        m_link->endReading();
}

void ServerEngine::begin() {
    clear();
    m_link->begin();
}

} // namespace quorvane::qtsql
