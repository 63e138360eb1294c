#pragma once

#include "platform/quorvane32/core/Engine.h"
#include "platform/quorvane32/core/qtsql/SqlLink.h"

namespace quorvane::qtsql {

/// A server reached through one of Qt's SQL drivers.
///
/// A link answers one statement at a time, and a report's rows may be on their way for long. A query that
/// arrives meanwhile goes over a second link to the same server, which is opened when it is first needed, so
/// that those rows need not come into memory; a third result takes the second one's rows in. Within a
/// transaction, within a reading of one state, and before anything that stores, all rows on their way come
/// in: a query must see what the transaction did, and a write must not wait for a result of its own program.
/// A second link that cannot be had, or that does not know a table of the first one's session, is done
/// without in the same way.
class ServerEngine final : public Engine {
public:
    explicit ServerEngine(Server server);
    ServerEngine(const ServerEngine&) = delete;
    ServerEngine& operator=(const ServerEngine&) = delete;
    ~ServerEngine() override;

    std::unique_ptr<Cursor> select(const QString& sql) override;
    qint64 execute(const QString& sql) override;
    /// The first SELECT takes the beginning along. All are read over one link, which keeps their state.
    void beginReading() override { m_reading = Reading::Asked; }
    void endReading() override;
    void begin() override;
    /// As SqlLink::commit.
    void commit() override { m_link->commit(); }
    void rollback() override { m_link->rollback(); }

private:
    struct Result {
        std::shared_ptr<SqlLink> link;
        QSqlQuery query;
    };
    Result query(const QString& sql);
    Result querySecond(const QString& sql);
    /// Takes in the rows that are on their way on both links.
    void clear();

    enum class Reading : quint8 { No, Asked, Open };

    std::shared_ptr<const Server> m_server;
    std::shared_ptr<SqlLink> m_link;
    std::shared_ptr<SqlLink> m_second;
    std::unique_ptr<Dialect> m_dialect;
    Reading m_reading = Reading::No;
    bool m_secondRefused = false;
};

} // namespace quorvane::qtsql
