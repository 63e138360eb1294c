#pragma once

#include <QByteArray>
#include <QStringView>
#include <optional>

namespace dalvora {

/// Databases that have a schema here.
enum class SchemaEngine { Sqlite, PostgreSql, SqlServer };

/// The engine that a connect string's driver names; nothing for one without a schema here.
std::optional<SchemaEngine> schemaEngine(QStringView driver);

/// The statements that create the ERP's tables in an empty database (UTF-8, separated by ";").
QByteArray erpTables(SchemaEngine engine = SchemaEngine::Sqlite);
/// The statements that create the session service's tables, with the layout's version in ses_esquema.
QByteArray sessionTables(SchemaEngine engine = SchemaEngine::Sqlite);

/// The statements that bring a database from the layout before `version` to it.
QByteArray layoutUpgrade(SchemaEngine engine, int version);

} // namespace dalvora
