#include "demo/Database.h"

#include "demo/Company.h"
#include "demo/ConnectionTarget.h"
#include "demo/RowInserter.h"
#include "demo/SqliteTarget.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "platform/quorvane32/session/Passwords.h"
#include "sql/Schema.h"
#include "sql/TableUpgrade.h"
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

void writeCompany(RowTarget& target, const Company& company) {
    RowInserter(target, "ses_empresa", "Empresa, Nombre").add(company.code, company.name);
    writeMasterTables(target, company);
    writeSchemes(target, company);
    writeDocuments(target, company);
}

void writeUsers(RowTarget& target) {
    RowInserter users(target, "ses_usuario", "Usuario, Nombre, Clave");
    RowInserter rights(target, "ses_derecho", "Usuario, Programa, Derechos");
    for (const DemonstrationUser& user : demonstrationUsers) {
        users.add(user.code, user.name, quorvane::hashPassword(QString::fromUtf8(user.password)));
        rights.add(user.code, programName, user.rights);
    }
}

void writeDemonstration(RowTarget& target) {
    writeCompany(target, mainCompany());
    writeCompany(target, secondCompany());
    writeUsers(target);
}

/// Everything or nothing; a connection that is lost says so with its own error.
template<class Work> void inTransaction(quorvane::Connection& connection, Work work) {
    connection.beginTrans();
    try {
        work();
        connection.commitTrans();
    } catch (...) {
        connection.rollbackTrans();
        throw;
    }
}

} // namespace

void createEmptyDatabase(const QString& path) {
    Handle database = openForLoad(path);
    finish(database);
}

void createDemonstrationDatabase(const QString& path) {
    Handle database = openForLoad(path);
    SqliteTarget target(database.get());
    writeDemonstration(target);
    finish(database);
}

void createTables(quorvane::Connection& connection) {
    dalvora::bringTablesUpToDate(connection);
}

void loadDemonstration(quorvane::Connection& connection) {
    inTransaction(connection, [&] {
        ConnectionTarget target(connection);
        writeDemonstration(target);
        target.finish();
    });
}

} // namespace dalvora::demo
