#include "sql/Catalogue.h"

#include "platform/quorvane32/core/Connection.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace dalvora {

namespace {

/// The two questions to an engine's catalogue: table, column and type by table and place; and table, index,
/// whether it is unique and whether it is used (1, 0), and column, by table, index and place.
struct Questions {
    SchemaEngine engine;
    const char* columns;
    const char* indexes;
};

constexpr Questions questions[] = {
    {SchemaEngine::Sqlite,
     "SELECT t.name, c.name, c.type FROM sqlite_master t, pragma_table_info(t.name) c "
     "WHERE t.type IN ('table', 'view') ORDER BY t.name, c.cid",
     // A whole-number key is the row's own number and has no index.
     "SELECT t.name, '', 1, 1, c.name, c.pk FROM sqlite_master t, pragma_table_info(t.name) c "
     "WHERE t.type = 'table' AND c.pk > 0 UNION ALL "
     "SELECT t.name, i.name, i.\"unique\", 1, c.name, c.seqno FROM sqlite_master t, "
     "pragma_index_list(t.name) i, pragma_index_info(i.name) c WHERE t.type = 'table' ORDER BY 1, 2, 6"},
    {SchemaEngine::PostgreSql,
     "SELECT c.relname::text, a.attname::text, format_type(a.atttypid, a.atttypmod) FROM pg_class c "
     "JOIN pg_attribute a ON a.attrelid = c.oid WHERE c.relkind IN ('r', 'v', 'm', 'p', 'f') "
     "AND a.attnum > 0 AND NOT a.attisdropped AND pg_table_is_visible(c.oid) AND c.relnamespace NOT IN "
     "('pg_catalog'::regnamespace, 'information_schema'::regnamespace) ORDER BY c.oid, a.attnum",
     "SELECT c.relname::text, x.relname::text, CASE WHEN i.indisunique THEN 1 ELSE 0 END, "
     "CASE WHEN i.indisvalid THEN 1 ELSE 0 END, a.attname::text FROM pg_index i "
     "JOIN pg_class c ON c.oid = i.indrelid JOIN pg_class x ON x.oid = i.indexrelid "
     "CROSS JOIN LATERAL unnest(i.indkey) WITH ORDINALITY AS k(number, place) "
     "JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = k.number "
     "WHERE pg_table_is_visible(c.oid) AND c.relnamespace NOT IN "
     "('pg_catalog'::regnamespace, 'pg_toast'::regnamespace) ORDER BY i.indexrelid, k.place"},
    {SchemaEngine::SqlServer,
     "SELECT TABLE_NAME, COLUMN_NAME, DATA_TYPE FROM INFORMATION_SCHEMA.COLUMNS "
     "WHERE TABLE_SCHEMA = SCHEMA_NAME() ORDER BY TABLE_NAME, ORDINAL_POSITION",
     "SELECT t.name, i.name, CASE WHEN i.is_unique = 1 THEN 1 ELSE 0 END, "
     "CASE WHEN i.is_disabled = 1 THEN 0 ELSE 1 END, c.name FROM sys.indexes i "
     "JOIN sys.tables t ON t.object_id = i.object_id "
     "JOIN sys.index_columns k ON k.object_id = i.object_id AND k.index_id = i.index_id "
     "JOIN sys.columns c ON c.object_id = k.object_id AND c.column_id = k.column_id "
     "WHERE k.is_included_column = 0 AND t.schema_id = SCHEMA_ID() ORDER BY t.name, i.name, k.key_ordinal"},
};

const Questions& questionsOf(SchemaEngine engine) {
    return *std::ranges::find(questions, engine, &Questions::engine);
}

QString textAt(const quorvane::Recordset& row, int ordinal) {
    return row.value(ordinal).toText({});
}

} // namespace

const ColumnLayout* CatalogueTable::column(QStringView wanted) const {
    const auto found = std::ranges::find_if(columns, [&](const ColumnLayout& candidate) {
        return wanted.compare(candidate.name, Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? nullptr : &*found;
}

Catalogue Catalogue::read(quorvane::Connection& connection) {
    Catalogue catalogue;
    const Questions& ask = questionsOf(schemaEngineOf(connection));
    for (auto row = connection.openRecordset(QLatin1String(ask.columns)); !row.eof(); row.moveNext()) {
        CatalogueTable& table = catalogue.m_tables[textAt(row, 0).toLower()];
        table.name = textAt(row, 0);
        table.columns.push_back({textAt(row, 1), textAt(row, 2).toLower().remove(u' ')});
    }
    for (auto row = connection.openRecordset(QLatin1String(ask.indexes)); !row.eof(); row.moveNext()) {
        std::vector<CatalogueIndex>& indexes = catalogue.m_tables[textAt(row, 0).toLower()].indexes;
        if (indexes.empty() || indexes.back().name != textAt(row, 1))
            indexes.push_back({textAt(row, 1), {}, textAt(row, 2) == u"1"_s, textAt(row, 3) == u"1"_s});
        indexes.back().columns.append(textAt(row, 4));
    }
    return catalogue;
}

const CatalogueTable* Catalogue::table(const QString& name) const {
    const auto found = m_tables.find(name.toLower());
    return found == m_tables.end() ? nullptr : &*found;
}

bool Catalogue::hasIndex(const QString& tableName, const QString& index) const {
    const CatalogueTable* found = table(tableName);
    return found && std::ranges::any_of(found->indexes, [&](const CatalogueIndex& candidate) {
               return candidate.name.compare(index, Qt::CaseInsensitive) == 0;
           });
}

} // namespace dalvora
