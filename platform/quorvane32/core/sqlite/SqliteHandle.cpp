#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <sqlite3.h>

namespace quorvane::sqlite {

namespace {

struct Mapping {
    int native;
    int number;
    const char* text;
};

// What a user can act on is said in Spanish; the engine's own words follow in brackets.
constexpr Mapping mappings[] = {
    {SQLITE_BUSY, ErrorLockTimeout, "Otro programa está usando la base de datos; inténtelo de nuevo"},
    {SQLITE_LOCKED, ErrorLockTimeout, "Otro programa está usando la base de datos; inténtelo de nuevo"},
    {SQLITE_FULL, ErrorDiskFull, "No queda espacio en el disco de la base de datos"},
    {SQLITE_READONLY, ErrorPermissionDenied, "La base de datos es de sólo lectura"},
    {SQLITE_PERM, ErrorPermissionDenied, "No tiene permiso para usar la base de datos"},
    {SQLITE_CANTOPEN, ErrorPathAccess, "No se puede abrir la base de datos"},
    {SQLITE_NOTADB, ErrorDatabaseFormat, "El archivo no es una base de datos"},
    {SQLITE_CORRUPT, ErrorDatabaseFormat, "La base de datos está dañada"},
    {SQLITE_IOERR, ErrorConnectionLost, "Se perdió el acceso al archivo de la base de datos"},
};

// The system's own numbers of a write that found no room, and of a file that is somebody else's.
#ifdef Q_OS_WIN
constexpr int noRoomErrors[] = {39, 112}; // ERROR_HANDLE_DISK_FULL, ERROR_DISK_FULL
constexpr int foreignErrors[] = {5};      // ERROR_ACCESS_DENIED
#else
constexpr int noRoomErrors[] = {ENOSPC, EDQUOT, EFBIG};
constexpr int foreignErrors[] = {EACCES, EPERM};
#endif

/// The engine tells a disk without room as full when it writes rows, but as a failed access when it makes its
/// files beside the database, and a file that may not be opened as one that cannot be: the system's number
/// tells why.
int primaryCode(int extended, int systemError) {
    const int primary = extended & 0xFF;
    if (primary != SQLITE_IOERR && primary != SQLITE_CANTOPEN)
        return primary;
    const auto isOneOf = [&](const auto& numbers) {
        return std::ranges::find(numbers, systemError) != std::end(numbers);
    };
    if (isOneOf(noRoomErrors))
        return SQLITE_FULL;
    return isOneOf(foreignErrors) ? SQLITE_PERM : primary;
}

[[noreturn]] void raiseNative(int extended, int systemError, const QString& engineText) {
    if (extended == SQLITE_CONSTRAINT_PRIMARYKEY || extended == SQLITE_CONSTRAINT_UNIQUE ||
        extended == SQLITE_CONSTRAINT_ROWID)
        throw RunTimeError(ErrorDuplicateKey, QStringLiteral("Clave duplicada [%1]").arg(engineText));
    const int primary = primaryCode(extended, systemError);
    for (const Mapping& mapping : mappings)
        if (mapping.native == primary)
            throw RunTimeError(mapping.number,
                               QStringLiteral("%1 [%2]").arg(QString::fromUtf8(mapping.text), engineText));
    throw RunTimeError(primary, QStringLiteral("Error de la base de datos [%1]").arg(engineText));
}

} // namespace

void FinalizeStatement::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

void raiseLastError(sqlite3* database) {
    raiseNative(sqlite3_extended_errcode(database), sqlite3_system_errno(database),
                QString::fromUtf8(sqlite3_errmsg(database)));
}

Handle open(const QString& path, Access access, int timeout) {
    if (access == Access::ReadWrite && !QFileInfo::exists(path))
        throw RunTimeError(
            ErrorFileNotFound,
            QStringLiteral("No se encontró la base de datos %1").arg(QDir::toNativeSeparators(path)));
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (access == Access::Create ? SQLITE_OPEN_CREATE : 0);
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &raw, flags, nullptr);
    Handle database(raw, [](sqlite3* handle) { sqlite3_close_v2(handle); });
    if (result != SQLITE_OK && raw)
        raiseNative(result, sqlite3_system_errno(raw), QString::fromUtf8(sqlite3_errmsg(raw)));
    if (result != SQLITE_OK)
        throw RunTimeError(ErrorOutOfMemory, QStringLiteral("No hay memoria para abrir la base de datos"));
    sqlite3_busy_timeout(raw, timeout);
    // A misspelt column name must be an error, never silently a text.
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_limit(raw, SQLITE_LIMIT_ATTACHED, 0);
    registerFunctions(raw);
    return database;
}

Statement prepare(sqlite3* database, const QByteArray& sql) {
    sqlite3_stmt* raw = nullptr;
    const int result =
        sqlite3_prepare_v2(database, sql.constData(), static_cast<int>(sql.size()), &raw, nullptr);
    Statement statement(raw);
    if (result != SQLITE_OK)
        raiseLastError(database);
    if (!raw)
        throw RunTimeError(ErrorRefusedStatement, QStringLiteral("La instrucción está vacía"));
    return statement;
}

void run(sqlite3* database, const QByteArray& sql) {
    if (sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        raiseLastError(database);
}

} // namespace quorvane::sqlite
