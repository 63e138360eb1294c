#pragma once

#include "sql/TableLayouts.h"
#include <QHash>

namespace dalvora {

struct CatalogueIndex {
    QString name;
    QStringList columns;
    bool unique = false;
    bool valid = true; ///< false when the engine does not use it
};

struct CatalogueTable {
    QString name;
    std::vector<ColumnLayout> columns;
    std::vector<CatalogueIndex> indexes;

    /// Null for a column that the table does not have.
    const ColumnLayout* column(QStringView name) const;
};

/// What a database really has: its tables and views, their columns and indexes, as the engine's own catalogue
/// tells. Keys are unique indexes. Read with a handful of queries, whatever the number of tables.
class Catalogue {
public:
    /// The database's errors leave it as RunTimeError.
    static Catalogue read(quorvane::Connection& connection);

    /// By name in any case; null for an unknown one.
    const CatalogueTable* table(const QString& name) const;
    bool hasIndex(const QString& table, const QString& index) const;

private:
    QHash<QString, CatalogueTable> m_tables; ///< by name in lower case
};

} // namespace dalvora
