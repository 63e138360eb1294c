#include "tools/quorvane-admin/HealthCheck.h"

#include "platform/quorvane32/core/ConnectString.h"
#include "sql/TableLayouts.h"
#include <QFileInfo>
#include <QLocale>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

constexpr std::size_t mostRowsTold = 10;

QString size(qint64 bytes) {
    return QLocale(QLocale::Spanish).formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

void checkRoom(HealthCheck& check, const QString& file) {
    constexpr qint64 leastRoom = 100LL * 1024 * 1024;
    const qint64 used = QFileInfo(file).size();
    const QStorageInfo disk(QFileInfo(file).absolutePath());
    if (!disk.isValid()) {
        // A system without a list of its disks, as in a changed root.
        check.good(u"Archivo de %1; no se sabe cuánto lugar libre tiene el disco"_s.arg(size(used)));
        return;
    }
    const qint64 room = disk.bytesAvailable();
    const QString text = u"Archivo de %1; lugar libre en el disco: %2"_s.arg(size(used), size(room));
    // A long transaction can need as much again as the file has.
    if (room < qMax(leastRoom, used))
        check.finding(text + u", muy poco"_s);
    else
        check.good(text);
}

void checkSqlite(HealthCheck& check) {
    const QString file = ConnectString::parse(check.connection.connectString()).value(u"database"_s);
    check.good(
        u"Base de datos propia (SQLite %1): %2"_s.arg(check.value(u"SELECT sqlite_version()"_s), file));
    const auto answers = check.rows(u"SELECT integrity_check FROM pragma_integrity_check"_s);
    if (answers.size() == 1 && answers[0][0] == u"ok"_s)
        check.good(u"El archivo está íntegro"_s);
    else
        for (const QStringList& answer : answers)
            check.finding(u"El archivo está dañado: "_s + answer[0]);
    checkRoom(check, file);
}

void checkPostgres(HealthCheck& check) {
    check.good(u"PostgreSQL %1, base de datos %2 de %3"_s.arg(
        check.value(u"SELECT current_setting('server_version')"_s),
        check.value(u"SELECT current_database()::text"_s),
        size(check.value(u"SELECT pg_database_size(current_database())"_s).toLongLong())));
    const QString encoding = check.value(
        u"SELECT pg_encoding_to_char(encoding)::text FROM pg_database WHERE datname = current_database()"_s);
    if (encoding == u"UTF8"_s)
        check.good(u"Los textos se guardan en UTF-8"_s);
    else
        check.finding(u"Los textos se guardan en %1 y no en UTF-8"_s.arg(encoding));
    const QString citext = check.value(u"SELECT extversion FROM pg_extension WHERE extname = 'citext'"_s);
    if (citext.isEmpty())
        check.finding(u"Falta la extensión citext: los códigos distinguirían mayúsculas"_s);
    else
        check.good(u"Extensión citext %1"_s.arg(citext));
    if (check.value(u"SELECT CASE WHEN 'n' < 'ñ' AND 'ñ' < 'o' THEN 1 ELSE 0 END"_s) != u"1"_s)
        check.note(u"Los textos no se ordenan como en español (la ñ no sigue a la n)"_s);
    const QString failures = check.value(
        u"SELECT coalesce(checksum_failures, 0) FROM pg_stat_database WHERE datname = current_database()"_s);
    if (failures != u"0"_s)
        check.finding(u"El servidor encontró %1 páginas dañadas"_s.arg(failures));
    check.note(u"El lugar en el disco del servidor no se puede consultar desde aquí"_s);
}

void checkSqlServer(HealthCheck& check) {
    check.good(u"SQL Server %1, base de datos %2 de %3"_s.arg(
        check.value(u"SELECT CAST(SERVERPROPERTY('ProductVersion') AS varchar(50)) AS Version"_s),
        check.value(u"SELECT DB_NAME() AS Nombre"_s),
        size(check.value(u"SELECT SUM(CAST(size AS bigint)) * 8192 AS Bytes FROM sys.database_files"_s)
                 .toLongLong())));
    const QString collation =
        check.value(u"SELECT CAST(DATABASEPROPERTYEX(DB_NAME(), 'Collation') AS varchar(128)) AS Orden"_s);
    if (collation.contains(u"_CI_AS"_s))
        check.good(u"Los textos se comparan sin mayúsculas y con acentos (%1)"_s.arg(collation));
    else
        check.note(
            u"La base de datos compara textos con %1; las columnas deben decir una que termine en _CI_AS"_s
                .arg(collation));
    check.note(u"El lugar en el disco del servidor no se puede consultar desde aquí"_s);
}

} // namespace

std::vector<QStringList> HealthCheck::rows(const QString& sql) const {
    std::vector<QStringList> result;
    for (Recordset row = connection.openRecordset(sql); !row.eof() && result.size() < mostRowsTold;
         row.moveNext()) {
        QStringList texts;
        for (int i = 0; i < row.fieldCount(); ++i) {
            const Value value = row.value(i);
            texts.append(value.isNull() ? QString() : value.toText({}));
        }
        result.push_back(texts);
    }
    return result;
}

QString HealthCheck::value(const QString& sql) const {
    const auto found = rows(sql);
    return found.empty() ? QString() : found[0][0];
}

void checkEngine(HealthCheck& check) {
    switch (dalvora::schemaEngineOf(check.connection)) {
    case dalvora::SchemaEngine::Sqlite:
        return checkSqlite(check);
    case dalvora::SchemaEngine::PostgreSql:
        return checkPostgres(check);
    case dalvora::SchemaEngine::SqlServer:
        return checkSqlServer(check);
    }
}

} // namespace quorvane::admin
