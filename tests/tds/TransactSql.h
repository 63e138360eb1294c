#pragma once

#include <QHash>
#include <QString>

namespace dalvora::test::tds {

/// What a session has set or is asked about itself.
struct SessionSettings {
    QString dateFormat = QStringLiteral("mdy");
    int lockTimeout = -1; ///< ms; -1 for ever
    bool rollsBackOnError = false;
    bool counts = true;
    bool allowsSnapshots = true; ///< the database
    bool snapshot = false;       ///< its transactions see the state that their first query finds
    QString login;
    QString database;
    int majorVersion = 15;
    int openTransactions = 0;
};

/// A statement in the ERP server's SQL as the embedded engine's connection takes it, where that one does not
/// adapt it itself:
/// - texts pass the code page, unless an N stands before them;
/// - day/month/year is read in the session's order: under another one than dmy it is another day, or error
/// 242;
/// - the server's own values (@@VERSION, SERVERPROPERTY('...'), sys.databases, ...) become literals;
/// - in definitions, COLLATE names the collation of the embedded engine, IDENTITY a number of its own.
QString toEmbedded(const QString& sql, const SessionSettings& settings);

} // namespace dalvora::test::tds
