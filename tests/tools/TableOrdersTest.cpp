// `tablas` and `demostracion` on databases of every age.
#include "platform/quorvane32/session/Accounts.h"
#include "sql/Catalogue.h"
#include "sql/TableUpgrade.h"
#include "tests/tools/AdminSupport.h"
#include <QFile>

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using namespace quorvane::admin::test;
using dalvora::SchemaEngine;

class TableOrders : public testing::TestWithParam<TestEngine> {
protected:
    SchemaEngine engine() const {
        return GetParam() == TestEngine::Sqlite ? SchemaEngine::Sqlite : SchemaEngine::PostgreSql;
    }
    /// The ERP's tables with a document of the ERP's own.
    void makeErpTables() {
        desk.database.run(QString::fromUtf8(dalvora::erpTables(engine())));
        desk.execute(u"INSERT INTO documento (Empresa, TipoDocto, Numero, IdCtaCte, Neto) VALUES "
                     "('010', 'FACTURA', '1', 'A', 12.5)"_s);
    }
    void makeSessionTablesOfLayoutOne() {
        QFile file(QStringLiteral(LAYOUT_ONE) +
                   (GetParam() == TestEngine::Sqlite ? u"/sqlite.sql"_s : u"/postgresql.sql"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        desk.database.run(QString::fromUtf8(file.readAll()));
        desk.execute(u"INSERT INTO ses_usuario (Usuario, Nombre) VALUES ('ana', 'Ana')"_s);
        desk.execute(u"INSERT INTO ses_auditoria (Momento, Usuario, Empresa, Programa, Codigo, Texto) VALUES "
                     "('2026-01-01 10:00:00.000', 'ana', '001', 'VELTRANO', 2, '')"_s);
    }
    dalvora::Catalogue catalogue() const {
        Connection connection;
        connection.open(desk.database.connectString());
        return dalvora::Catalogue::read(connection);
    }
    QString version() const { return desk.value(u"SELECT Version FROM ses_esquema"_s); }

    AdminDesk desk{GetParam(), TestDatabase::Tables::None};
};

TEST_P(TableOrders, AnEmptyDatabaseBecomesTheDemonstrationCompany) {
    EXPECT_EQ(desk.run(u"usuarios"_s), ExitFailure);
    EXPECT_TRUE(desk.errors.contains(u"no es una base de datos de Quorvane ERP")) << qPrintable(desk.errors);
    EXPECT_EQ(desk.run(u"tablas"_s), ExitSuccess) << qPrintable(desk.errors);
    EXPECT_TRUE(desk.out.startsWith(u"Tablas creadas: Comisiones, ComisionesD, ")) << qPrintable(desk.out);
    EXPECT_EQ(version(), u"2"_s);
    EXPECT_EQ(desk.run(u"demostracion"_s), ExitSuccess) << qPrintable(desk.errors);
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM documento"_s), u"858"_s);
    EXPECT_EQ(desk.run(u"demostracion"_s), ExitFailure);
    EXPECT_TRUE(desk.errors.contains(u"(2627)")) << qPrintable(desk.errors);
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM documento"_s), u"858"_s);
}

TEST_P(TableOrders, WhatIsUpToDateIsLeftAlone) {
    ASSERT_EQ(desk.run(u"tablas"_s), ExitSuccess);
    EXPECT_EQ(desk.run(u"tablas"_s), ExitSuccess);
    EXPECT_EQ(desk.out, u"Las tablas ya son de la versión 2: no hay nada que hacer.\n"_s);
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM ses_auditoria"_s), u"1"_s);
}

TEST_P(TableOrders, BesideTheErpsOwnTablesOnlyTheMissingOnesAreMade) {
    makeErpTables();
    desk.execute(u"DROP TABLE relctacteprod"_s);
    desk.execute(u"DROP INDEX documento_fecha"_s);
    ASSERT_EQ(desk.run(u"tablas"_s), ExitSuccess) << qPrintable(desk.errors);
    EXPECT_TRUE(desk.out.startsWith(u"Tablas creadas: relctacteprod, ses_esquema, ses_empresa, ses_usuario, "
                                    "ses_derecho, ses_auditoria.\n"
                                    "Tablas que ya estaban y no se tocaron: Comisiones, "))
        << qPrintable(desk.out);
    EXPECT_EQ(desk.value(u"SELECT Neto FROM documento"_s), u"12,5"_s);
    // How the ERP's tables are found is for their owner to decide.
    EXPECT_FALSE(catalogue().hasIndex(u"documento"_s, u"documento_fecha"_s));
    EXPECT_EQ(desk.run(u"empresa 010 Propia"_s), ExitSuccess);
}

TEST_P(TableOrders, AnOlderLayoutIsBroughtUpWithItsRows) {
    makeErpTables();
    makeSessionTablesOfLayoutOne();
    ASSERT_EQ(desk.run(u"tablas"_s), ExitSuccess) << qPrintable(desk.errors);
    EXPECT_EQ(desk.out, u"Índices creados: ses_auditoria_momento, ses_auditoria_usuario, "
                        "ses_auditoria_empresa.\nVersión de las tablas: antes 1, ahora 2.\n"_s);
    EXPECT_EQ(version(), u"2"_s);
    EXPECT_EQ(desk.value(u"SELECT Nombre FROM ses_usuario"_s), u"Ana"_s);
    EXPECT_TRUE(catalogue().hasIndex(u"ses_auditoria"_s, u"ses_auditoria_usuario"_s));
    ASSERT_EQ(desk.run(u"auditoria"_s), ExitSuccess);
    EXPECT_TRUE(desk.out.endsWith(u"TABLAS:1:2\n")) << qPrintable(desk.out);
    EXPECT_EQ(desk.run(u"tablas"_s), ExitSuccess);
    EXPECT_TRUE(desk.out.contains(u"no hay nada que hacer"));
}

TEST_P(TableOrders, AnIndexThatAnAdministratorMadeBeforeIsNoObstacle) {
    makeErpTables();
    makeSessionTablesOfLayoutOne();
    desk.execute(u"CREATE INDEX ses_auditoria_usuario ON ses_auditoria (Usuario, Momento)"_s);
    ASSERT_EQ(desk.run(u"tablas"_s), ExitSuccess) << qPrintable(desk.errors);
    EXPECT_EQ(version(), u"2"_s);
}

TEST_P(TableOrders, AnUpgradeThatFailsHalfWayChangesNothing) {
    makeErpTables();
    makeSessionTablesOfLayoutOne();
    desk.execute(u"CREATE TABLE ses_auditoria_empresa (a integer)"_s);
    EXPECT_EQ(desk.run(u"tablas"_s), ExitFailure);
    EXPECT_EQ(desk.errors.count(u'\n'), 1) << qPrintable(desk.errors);
    EXPECT_EQ(version(), u"1"_s);
    EXPECT_FALSE(catalogue().hasIndex(u"ses_auditoria"_s, u"ses_auditoria_momento"_s));
}

TEST_P(TableOrders, CreatingThatFailsHalfWayLeavesAnEmptyDatabase) {
    desk.execute(u"CREATE VIEW ses_auditoria_empresa AS SELECT 1 AS a"_s);
    EXPECT_EQ(desk.run(u"tablas"_s), ExitFailure);
    EXPECT_EQ(catalogue().table(u"Comisiones"_s), nullptr);
}

TEST_P(TableOrders, ANewerLayoutIsRefusedAndLeftAsItIs) {
    ASSERT_EQ(desk.run(u"tablas"_s), ExitSuccess);
    desk.execute(u"UPDATE ses_esquema SET Version = 3"_s);
    desk.execute(u"DROP TABLE ses_derecho"_s);
    EXPECT_EQ(desk.run(u"tablas"_s), ExitFailure);
    EXPECT_TRUE(desk.errors.contains(u"versión posterior (3)")) << qPrintable(desk.errors);
    EXPECT_EQ(catalogue().table(u"ses_derecho"_s), nullptr);
    EXPECT_EQ(desk.run(u"usuarios"_s), ExitFailure);
}

TEST_P(TableOrders, ANewDatabaseAndAnUpgradedOneAreTheSame) {
    makeErpTables();
    makeSessionTablesOfLayoutOne();
    ASSERT_EQ(desk.run(u"tablas"_s), ExitSuccess);
    AdminDesk fresh(GetParam());
    const auto describe = [](const AdminDesk& which) {
        Connection connection;
        connection.open(which.database.connectString());
        const dalvora::Catalogue found = dalvora::Catalogue::read(connection);
        QStringList text;
        for (const auto* name :
             {u"ses_esquema", u"ses_empresa", u"ses_usuario", u"ses_derecho", u"ses_auditoria"}) {
            const dalvora::CatalogueTable* table = found.table(QString::fromUtf16(name));
            for (const dalvora::ColumnLayout& column : table->columns)
                text.append(table->name + u'.' + column.name + u' ' + column.type);
            QStringList indexes;
            for (const dalvora::CatalogueIndex& index : table->indexes)
                indexes.append(table->name + u' ' + index.name + u" ("_s + index.columns.join(u',') + u')');
            indexes.sort();
            text += indexes;
        }
        return text.join(u'\n');
    };
    EXPECT_EQ(describe(desk), describe(fresh));
}

INSTANTIATE_TEST_SUITE_P(Engines, TableOrders, testing::ValuesIn(dalvora::test::catalogueEngines),
                         dalvora::test::engineName);

TEST(EmbeddedTables, AFileThatIsNotThereYetIsMade) {
    const QTemporaryDir folder;
    Profile profile;
    profile.connectString = u"Driver=sqlite;Database=nueva.db"_s;
    profile.companies = {u"001"_s};
    profile.save(folder.path());
    QString out;
    QString errors;
    QTextStream outStream(&out);
    QTextStream errorStream(&errors);
    AdminProgram program(outStream, errorStream, [] { return QString(); });
    EXPECT_EQ(program.run({u"--perfil"_s, folder.path(), u"usuarios"_s}), ExitFailure);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"nueva.db"_s)));
    EXPECT_EQ(program.run({u"--perfil"_s, folder.path(), u"tablas"_s}), ExitSuccess) << qPrintable(errors);
    EXPECT_EQ(program.run({u"--perfil"_s, folder.path(), u"usuarios"_s}), ExitSuccess) << qPrintable(errors);
}

} // namespace
