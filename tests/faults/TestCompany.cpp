#include "tests/faults/TestCompany.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "platform/quorvane32/session/Profile.h"
#include "sql/Schema.h"
#include <QFile>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

using quorvane::sqlite::Access;

constexpr const char* seed = R"(
INSERT INTO ses_empresa VALUES ('001', 'Empresa de prueba'), ('002', 'Otra empresa');
INSERT INTO ses_usuario (Usuario, Nombre) VALUES ('ana', 'Ana');
INSERT INTO ses_derecho VALUES ('ana', 'VELTRANO', 'RWXD');
INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Texto, Valor1, Valor2) VALUES
 ('001', 'GEN_MONEDA', 'PESO', '', 0, 2), ('001', 'CONFIG.EMPRESA', 'MONEDA', 'PESO', 0, 0),
 ('001', 'config.dalvora', 'DECIMALES.CANTIDAD', '', 2, 0);
INSERT INTO tipodocumento (Empresa, TipoDocto, Descripcion, Sistema, Valorizado, Vendedor) VALUES
 ('001', 'FACTURA', 'Factura', 'ventas', 'S', 'S'), ('001', 'BOLETA', 'Boleta', 'ventas', 'S', 'S');
INSERT INTO ListaPrecio (Empresa, LisPrecio, Descripcion, FechaInicio, FechaFinal) VALUES
 ('001', 'L1', 'Mayorista', '2000-01-01', '2030-12-31'), ('001', 'L2', 'Minorista', '2000-01-01', '2030-12-31');
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20)
INSERT INTO producto (Empresa, Producto, Glosa, Familia, SubFamilia, TipoProducto, Unidad)
 SELECT '001', 'P' || i, 'Producto ' || i, 'BEBIDAS', 'CALIENTES', 'PT', 'kg' FROM n;
)";

constexpr int patience = 5000; // ms that a test waits for a program's lock

void createDatabase(const QString& path) {
    const auto database = quorvane::sqlite::open(path, Access::Create, patience);
    quorvane::sqlite::run(database.get(), "PRAGMA synchronous = OFF; PRAGMA journal_mode = WAL; BEGIN");
    quorvane::sqlite::run(database.get(), erpTables());
    quorvane::sqlite::run(database.get(), sessionTables());
    quorvane::sqlite::run(database.get(), seed);
    quorvane::sqlite::run(database.get(), "COMMIT");
}

} // namespace

TestCompany::TestCompany(int timeout, const QString& folder)
    : m_path(folder.isEmpty() ? m_temporary.path() : folder) {
    createDatabase(database());
    setTimeout(timeout);
}

TestCompany::TestCompany(TestEngine engine, int timeout) : m_path(m_temporary.path()) {
    if (engine == TestEngine::Sqlite) {
        createDatabase(database());
    } else {
        m_server = std::make_unique<TestDatabase>(engine);
        m_server->run(QString::fromUtf8(seed));
    }
    setTimeout(timeout);
}

QString TestCompany::connectString() const {
    return m_server ? m_server->connectString() : QStringLiteral("Driver=sqlite;Database=") + database();
}

void TestCompany::setTimeout(int timeout) const {
    writeProfile(m_server ? m_server->connectString(timeout)
                          : QStringLiteral("Driver=sqlite;Database=quorvane.db;Timeout=%1").arg(timeout));
}

void TestCompany::writeProfile(const QString& connectString, bool automatic) const {
    quorvane::Profile profile;
    profile.connectString = connectString;
    profile.companies = {QStringLiteral("001"), QStringLiteral("002")};
    profile.defaultCompany = QStringLiteral("001");
    profile.user = QStringLiteral("ana");
    profile.automatic = automatic;
    profile.save(path());
}

void TestCompany::execute(const QString& statements) const {
    if (m_server) {
        quorvane::Connection connection;
        connection.open(connectString());
        connection.beginTrans();
        for (const QString& statement : quorvane::statementsOf(statements))
            connection.execute(statement);
        connection.commitTrans();
        return;
    }
    const auto handle = quorvane::sqlite::open(database(), Access::ReadWrite, patience);
    quorvane::sqlite::run(handle.get(), "BEGIN;" + statements.toUtf8() + ";COMMIT");
}

QStringList TestCompany::serverRows(const QString& select) const {
    quorvane::Connection connection;
    connection.open(connectString());
    QStringList result;
    for (quorvane::Recordset row = connection.openRecordset(select); !row.eof(); row.moveNext()) {
        QStringList values;
        for (int i = 0; i < row.fieldCount(); ++i) {
            // Dates and numbers as the embedded database stores them.
            const quorvane::Value value = row.value(i);
            const auto* date = value.get<quorvane::Date>();
            values << (value.isNull() ? QString()
                       : date         ? date->toQDate().toString(Qt::ISODate)
                                      : value.toText({u'.', u',', u'/'}));
        }
        result << values.join(u'|');
    }
    result.sort();
    return result;
}

QStringList TestCompany::rows(const QString& select) const {
    if (m_server)
        return serverRows(select);
    const auto handle = quorvane::sqlite::open(database(), Access::ReadWrite, patience);
    const auto statement = quorvane::sqlite::prepare(handle.get(), select.toUtf8());
    QStringList result;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement.get())) == SQLITE_ROW) {
        QStringList values;
        for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
            values << QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), i)));
        result << values.join(u'|');
    }
    if (step != SQLITE_DONE)
        quorvane::sqlite::raiseLastError(handle.get());
    result.sort();
    return result;
}

QString TestCompany::value(const QString& select) const {
    return rows(select).value(0);
}

QStringList TestCompany::contents() const {
    QStringList all;
    QString tables = QStringLiteral("SELECT relname FROM pg_class WHERE relkind = 'r' AND relnamespace = "
                                    "'public'::regnamespace AND relname <> 'ses_auditoria'");
    // Behind the test server is a file, too.
    if (!m_server || m_server->engine() == TestEngine::TestSqlServer) {
        all = rows(QStringLiteral("SELECT name, sql FROM sqlite_master"));
        tables =
            QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'ses_auditoria'");
    }
    for (const QString& table : rows(tables))
        for (const QString& row : rows(QStringLiteral("SELECT * FROM ") + table))
            all << table + u": "_s + row;
    return all;
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(bytes), bytes.size());
    ASSERT_TRUE(file.flush());
}

} // namespace dalvora::test
