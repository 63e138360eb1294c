#pragma once

#include "sql/Schema.h"
#include <QString>
#include <QStringList>
#include <vector>

namespace quorvane {
class Connection;
}

namespace dalvora {

struct ColumnLayout {
    QString name;
    QString type; ///< as the engine writes it, in lower case without blanks
};

struct IndexLayout {
    QString name;
    QString table;
    QStringList columns;
    QString statement; ///< what creates it
};

/// A table as its script creates it. The scripts are the one place that tells what a database has: creating,
/// checking and moving tables all read them.
struct TableLayout {
    QString name;
    std::vector<ColumnLayout> columns;
    QStringList key;
    std::vector<IndexLayout> indexes;
    /// What creates the table, its indexes and its first rows, in order.
    QStringList statements;

    bool hasColumn(QStringView name) const;
};

struct SchemaLayout {
    /// What comes before any table.
    QStringList preliminaries;
    std::vector<TableLayout> tables;
};

/// The tables that a script of sql/ creates, in its order.
SchemaLayout readLayout(const QByteArray& script);

/// The index that a statement creates; without a name when it creates none.
IndexLayout readIndex(const QString& statement);

/// Which engine's scripts fit the database of a connection; error 429 when none do.
SchemaEngine schemaEngineOf(const quorvane::Connection& connection);

} // namespace dalvora
