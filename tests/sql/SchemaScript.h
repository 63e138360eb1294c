#pragma once

#include "sql/Schema.h"
#include <QString>
#include <QStringList>
#include <vector>

namespace dalvora::test {

/// A column as its script declares it.
struct SchemaColumn {
    QString table;
    QString name;
    QString type;   ///< in lower case and without blanks, e.g. "varchar(20)"
    QString filler; ///< the default, as written; "" for none
    bool ignoresCase = false;
    bool nullable = true;
    bool numbered = false; ///< the database gives each row its number
};

/// A primary key or an index, with its columns in order.
struct SchemaKey {
    QString table;
    QString name; ///< "" for a primary key
    QStringList columns;
};

/// The scripts that create an engine's tables, taken apart. They are written simply, so the reader is simple;
/// what it does not understand is an entry of `unread`.
struct SchemaScript {
    explicit SchemaScript(SchemaEngine engine);

    const SchemaColumn* column(const QString& table, const QString& name) const;

    std::vector<SchemaColumn> columns;
    std::vector<SchemaKey> keys;
    QStringList inserts;
    QStringList unread;
};

} // namespace dalvora::test
