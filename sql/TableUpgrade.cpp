#include "sql/TableUpgrade.h"

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/session/Accounts.h"
#include "sql/Catalogue.h"

using namespace Qt::StringLiterals;

namespace dalvora {

namespace {

/// The transaction in which one database is brought up to date.
class Upgrade {
public:
    explicit Upgrade(quorvane::Connection& connection)
        : m_connection(connection)
        , m_engine(schemaEngineOf(connection))
        , m_database(quorvane::ConnectString::parse(connection.connectString()).value(u"database"_s)) {}

    TableUpgrade run() {
        // The catalogue is read inside the transaction: another administrator's upgrade waits, or this one.
        m_catalogue = Catalogue::read(m_connection);
        readVersion();
        createMissing(readLayout(erpTables(m_engine)), true);
        createMissing(readLayout(sessionTables(m_engine)), false);
        if (m_done.layoutBefore > 0)
            runSteps();
        createMissingIndexes();
        m_done.layout = quorvane::Accounts::layoutVersion;
        return m_done;
    }

private:
    void readVersion() {
        if (!m_catalogue.table(u"ses_esquema"_s))
            return;
        m_connection.execute(u"UPDATE ses_esquema SET Version = Version"_s);
        quorvane::Accounts accounts(m_connection);
        accounts.checkLayout(m_database);
        m_done.layoutBefore = accounts.layout(m_database);
    }

    void createMissing(const SchemaLayout& layout, bool erp) {
        bool first = true;
        for (const TableLayout& table : layout.tables) {
            if (m_catalogue.table(table.name)) {
                if (erp)
                    m_done.kept.append(table.name);
                continue;
            }
            if (first)
                execute(layout.preliminaries);
            first = false;
            execute(table.statements);
            m_done.created.append(table.name);
        }
    }

    void runSteps() {
        for (qint64 version = m_done.layoutBefore + 1; version <= quorvane::Accounts::layoutVersion;
             ++version) {
            const QByteArray script = layoutUpgrade(m_engine, static_cast<int>(version));
            for (const QString& statement : quorvane::statementsOf(QString::fromUtf8(script)))
                runStep(statement);
        }
    }

    void runStep(const QString& statement) {
        const IndexLayout index = readIndex(statement);
        if (index.name.isEmpty())
            m_connection.execute(statement);
        else
            createIndex(index);
    }

    /// An administrator may have made the index before, and a table that was created now has its own.
    void createIndex(const IndexLayout& index) {
        if (m_done.created.contains(index.table, Qt::CaseInsensitive) ||
            m_done.indexes.contains(index.name) || m_catalogue.hasIndex(index.table, index.name))
            return;
        m_connection.execute(index.statement);
        m_done.indexes.append(index.name);
    }

    /// Of the session's tables only: how the ERP's own tables are found is their owner's business.
    void createMissingIndexes() {
        for (const TableLayout& table : readLayout(sessionTables(m_engine)).tables)
            for (const IndexLayout& index : table.indexes)
                createIndex(index);
    }

    void execute(const QStringList& statements) {
        for (const QString& statement : statements)
            m_connection.execute(statement);
    }

    quorvane::Connection& m_connection;
    SchemaEngine m_engine;
    QString m_database;
    Catalogue m_catalogue;
    TableUpgrade m_done;
};

} // namespace

TableUpgrade bringTablesUpToDate(quorvane::Connection& connection) {
    TableUpgrade done;
    connection.beginTrans();
    try {
        done = Upgrade(connection).run();
        connection.commitTrans();
    } catch (...) {
        connection.rollbackTrans();
        throw;
    }
    // What columns are dates is read when a database is opened.
    connection.open(QString(connection.connectString()));
    return done;
}

} // namespace dalvora
