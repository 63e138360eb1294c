#pragma once

#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <QByteArray>
#include <QString>
#include <string>
#include <vector>

namespace bench {

/// A line of a scheme in the plainest form a program could keep it.
struct PlainLine {
    std::string empresa, codigo, tipo, concepto, descripcion, subTipo, calculo, fechaInicio, fechaFinal;
    double cantidadInicio = 0, cantidadFinal = 0, porcentaje = 0;
};

/// The database's C interface and nothing else: what our operations are held against.
class Floor {
public:
    explicit Floor(const QString& databaseFile);

    /// Fetches every line of a scheme of company 001 into plain structs, kind by kind as a read does.
    std::vector<PlainLine> fetchLines(const QString& code) const;
    /// Runs finished statements in one immediate transaction.
    void runInTransaction(const std::vector<QByteArray>& statements) const;
    void run(const QByteArray& statement) const;

private:
    quorvane::sqlite::Handle m_database;
};

} // namespace bench
