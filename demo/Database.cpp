#include "demo/Database.h"

#include "demo/Company.h"
#include "demo/RowInserter.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/session/Passwords.h"
#include "sql/Schema.h"
#include <QFile>

namespace dalvora::demo {

namespace {

using quorvane::sqlite::Handle;

constexpr char programName[] = "VELTRANO";

/// Opens a new file for one big load: nothing reaches the disk before finish().
Handle openForLoad(const QString& path) {
    if (QFile::exists(path))
        throw quorvane::RunTimeError(quorvane::ErrorFileExists,
                                     QStringLiteral("Ya existe el archivo %1").arg(path));
    Handle database = quorvane::sqlite::open(path, quorvane::sqlite::Access::Create, 0);
    quorvane::sqlite::run(database.get(), "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; BEGIN");
    quorvane::sqlite::run(database.get(), dalvora::erpTables());
    quorvane::sqlite::run(database.get(), dalvora::sessionTables());
    return database;
}

/// Commits and puts the file on the disk, in the mode that programs use it in.
void finish(Handle& database) {
    quorvane::sqlite::run(database.get(), "COMMIT");
    quorvane::sqlite::run(database.get(), "PRAGMA synchronous = FULL; PRAGMA journal_mode = WAL");
    database.reset(); // the last close takes the log into the file and removes it
}

void writeCompany(sqlite3* database, const Company& company) {
    RowInserter(database, "ses_empresa", "Empresa, Nombre").add(company.code, company.name);
    writeMasterTables(database, company);
    writeSchemes(database, company);
    writeDocuments(database, company);
}

void writeUsers(sqlite3* database) {
    RowInserter users(database, "ses_usuario", "Usuario, Nombre, Clave");
    RowInserter rights(database, "ses_derecho", "Usuario, Programa, Derechos");
    for (const DemonstrationUser& user : demonstrationUsers) {
        users.add(user.code, user.name, quorvane::hashPassword(QString::fromUtf8(user.password)));
        rights.add(user.code, programName, user.rights);
    }
}

} // namespace

void createEmptyDatabase(const QString& path) {
    Handle database = openForLoad(path);
    finish(database);
}

void createDemonstrationDatabase(const QString& path) {
    Handle database = openForLoad(path);
    writeCompany(database.get(), mainCompany());
    writeCompany(database.get(), secondCompany());
    writeUsers(database.get());
    finish(database);
}

} // namespace dalvora::demo
