#pragma once

#include <QString>

namespace quorvane {
class Connection;
}

namespace dalvora::demo {

/// Creates an embedded database with all tables and no rows; error 58 when the file is there.
void createEmptyDatabase(const QString& path);

/// Creates the demonstration database: the companies 001 and 002, the users and their rights. Error 58 when
/// the file is there. The file is on the disk when the call returns; a call that is cut short leaves a file
/// that must not be used, so callers create it under another name.
void createDemonstrationDatabase(const QString& path);

/// Creates the tables that a database of any engine lacks (see bringTablesUpToDate). The connection is open,
/// and is opened anew.
void createTables(quorvane::Connection& connection);
/// Loads the companies, users and rights of the demonstration into tables that hold none of them, or nothing;
/// error 2627 when some are there.
void loadDemonstration(quorvane::Connection& connection);

/// A user of the demonstration, with the password that docs/users.md tells.
struct DemonstrationUser {
    const char* code;
    const char* name;
    const char* password;
    const char* rights;
};
inline constexpr DemonstrationUser demonstrationUsers[] = {
    {"demo", "Usuario de demostración", "Demo-1996", "RWXD"},
    {"lectura", "Sólo lectura", "Lectura-1996", "R---"},
    {"escritura", "Lectura y escritura", "Escritura-1997", "RW--"},
    {"sinborrar", "Todo menos eliminar", "Sinborrar-1998", "RWX-"},
};

} // namespace dalvora::demo
