#include "benchmarks/Floor.h"
#include <sqlite3.h>

namespace bench {

namespace {

using quorvane::sqlite::Statement;

std::string text(sqlite3_stmt* row, int column) {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

} // namespace

Floor::Floor(const QString& databaseFile)
    : m_database(quorvane::sqlite::open(databaseFile, quorvane::sqlite::Access::ReadWrite, 5000)) {}

std::vector<PlainLine> Floor::fetchLines(const QString& code) const {
    std::vector<PlainLine> lines;
    for (const char* kind : {"Producto", "Monto", "Precio"}) {
        const QByteArray sql =
            "SELECT Empresa, Codigo, Tipo, Concepto, Descripcion, SubTipo, Calculo, FechaInicio,"
            " FechaFinal, CantidadInicio, CantidadFinal, Porcentaje FROM ComisionesD"
            " WHERE Empresa = '001' and Codigo = '" +
            code.toUtf8() + "' and tipo= '" + kind +
            "' and ((FechaInicio <= '2000-01-01' and FechaFinal >= '2000-01-01')"
            "or (FechaInicio <= '2000-12-31' and FechaFinal >= '2000-12-31'))";
        const Statement statement = quorvane::sqlite::prepare(m_database.get(), sql);
        sqlite3_stmt* row = statement.get();
        while (sqlite3_step(row) == SQLITE_ROW)
            lines.push_back({text(row, 0), text(row, 1), text(row, 2), text(row, 3), text(row, 4),
                             text(row, 5), text(row, 6), text(row, 7), text(row, 8),
                             sqlite3_column_double(row, 9), sqlite3_column_double(row, 10),
                             sqlite3_column_double(row, 11)});
    }
    return lines;
}

void Floor::run(const QByteArray& statement) const {
    quorvane::sqlite::run(m_database.get(), statement);
}

void Floor::runInTransaction(const std::vector<QByteArray>& statements) const {
    run("BEGIN IMMEDIATE");
    for (const QByteArray& statement : statements)
        run(statement);
    run("COMMIT");
}

} // namespace bench
