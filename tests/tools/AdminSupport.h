#pragma once

#include "demo/Database.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Profile.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TestDatabase.h"
#include "tools/quorvane-admin/AdminProgram.h"
#include <QTemporaryDir>
#include <QTextStream>

namespace quorvane::admin::test {

using dalvora::test::TestDatabase;
using dalvora::test::TestEngine;
using namespace Qt::StringLiterals;

/// A database with a profile, and an administrator who works with it.
class AdminDesk {
public:
    explicit AdminDesk(TestEngine engine, TestDatabase::Tables tables = TestDatabase::Tables::All)
        : database(engine, tables) {
        Profile profile;
        profile.connectString = database.connectString();
        profile.companies = {u"001"_s, u"002"_s};
        profile.defaultCompany = u"001"_s;
        profile.save(m_folder.path());
    }

    /// Runs the program with these words, as a shell would take them apart at blanks.
    int run(const QString& words) { return run(words.split(u' ', Qt::SkipEmptyParts)); }
    int run(const QStringList& words) {
        out.clear();
        errors.clear();
        QTextStream outStream(&out);
        QTextStream errorStream(&errors);
        asked = 0;
        AdminProgram program(outStream, errorStream, [this] {
            ++asked;
            return password;
        });
        return program.run(QStringList{u"--perfil"_s, folder()} + words);
    }

    /// The first column of the first row as text, "" for no row.
    QString value(const QString& sql) const {
        Connection connection;
        connection.open(database.connectString());
        const Recordset row = connection.openRecordset(sql);
        return row.eof() || row.value(0).isNull() ? QString() : row.value(0).toText({});
    }
    void execute(const QString& sql) const {
        Connection connection;
        connection.open(database.connectString());
        connection.execute(sql);
    }
    void loadDemonstration() const {
        Connection connection;
        connection.open(database.connectString());
        dalvora::demo::loadDemonstration(connection);
    }
    /// Companies 001 and 002 with a few rows each, and the users demo (all rights) and lectura (may read).
    void loadSmallCompanies() const {
        for (const QString& company : {u"001"_s, u"002"_s})
            for (const char16_t* rows :
                 {u"ses_empresa (Empresa, Nombre) VALUES ('%1', 'Comercial Ñandú')",
                  u"gen_tabcod (Empresa, Tipo, Codigo, Texto) VALUES ('%1', 'CONFIG', 'NOMBRE', 'x')",
                  u"producto (Empresa, Producto, Familia) VALUES ('%1', '007', 'A'), ('%1', '026', 'A')",
                  u"Comisiones (Empresa, Codigo, FechaInicio, FechaFinal, Porcentaje) VALUES "
                  "('%1', 'MIXTA', '01/07/1996', '31/12/1998', 1.5)",
                  u"ComisionesD (Empresa, Codigo, Tipo, Concepto, FechaInicio, FechaFinal) VALUES "
                  "('%1', 'MIXTA', 'Producto', 'A', '01/07/1996', '31/12/1998')",
                  u"documento (Empresa, TipoDocto, Numero, IdCtaCte, Fecha, Neto) VALUES "
                  "('%1', 'FACTURA', '1', 'A', '05/03/1997', 12.34)",
                  u"documentod (Empresa, TipoDocto, Numero, IdCtaCte, Linea, Producto) VALUES "
                  "('%1', 'FACTURA', '1', 'A', 1, '007')"})
                execute(u"INSERT INTO "_s + QString::fromUtf16(rows).arg(company));
        execute(u"INSERT INTO ses_usuario (Usuario) VALUES ('demo'), ('lectura')"_s);
        execute(u"INSERT INTO ses_derecho (Usuario, Programa, Derechos) VALUES ('demo', 'VELTRANO', 'RWXD'), "
                "('lectura', 'VELTRANO', 'R---')"_s);
    }
    QString folder() const { return m_folder.path(); }

    TestDatabase database;
    QString password = u"Una-larga-1"_s;
    int asked = 0; ///< how often the last order asked for a password
    QString out;
    QString errors;

private:
    QTemporaryDir m_folder;
};

/// A suite that runs on every engine.
class EveryEngine : public testing::TestWithParam<TestEngine> {
protected:
    AdminDesk desk{GetParam()};
};

} // namespace quorvane::admin::test
