#pragma once

#include "tests/tds/TdsServer.h"
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace dalvora::test::tds {

using namespace Qt::StringLiterals;

/// A connection of Qt's ODBC plug-in with FreeTDS' driver. The driver wants forward-only queries: others
/// would be sent as procedures.
class Client {
public:
    explicit Client(const QString& options);
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    QSqlDatabase& database() { return m_database; }
    bool open() { return m_database.open(); }
    QSqlQuery run(const QString& sql);
    /// The numbers of all that the server says about a statement's failure. (Qt keeps the last one alone,
    /// which for a duplicate key is the news that the statement ended.)
    QList<int> errorsOf(const QString& sql);
    /// The first of them; 0 when there is none.
    int errorOf(const QString& sql);
    QVariant one(const QString& sql);

private:
    QString m_name;
    QSqlDatabase m_database;
};

/// A text of the current row as the driver gives it in UTF-16. (Qt asks in bytes and loses a text whose bytes
/// are more than its column's characters.)
QString textOf(const QSqlQuery& query, int column);

/// A server with the database "empresa" and the login "ana".
class FreeTdsFixture : public testing::Test {
protected:
    FreeTdsFixture();

    QString options(const QString& user = u"ana"_s, const QString& password = u"clave ñ€"_s,
                    const QString& name = u"empresa"_s) const;

    QTemporaryDir folder;
    TdsServer server;
};

} // namespace dalvora::test::tds
