// A company moves from one database to another, whatever their engines.
#include "platform/quorvane32/session/Accounts.h"
#include "sql/TableLayouts.h"
#include "tests/tools/AdminSupport.h"

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using namespace quorvane::admin::test;

using Pair = std::pair<TestEngine, TestEngine>;

/// All rows of a company in a table as text, in an order that does not hang on the engine.
QStringList dump(const AdminDesk& desk, const QString& table, const QString& company) {
    Connection connection;
    connection.open(desk.database.connectString());
    QStringList rows;
    for (Recordset row =
             connection.openRecordset(u"SELECT * FROM %1 WHERE Empresa = '%2'"_s.arg(table, company));
         !row.eof(); row.moveNext()) {
        QStringList values;
        for (int i = 0; i < row.fieldCount(); ++i)
            values.append(row.value(i).isNull() ? u"<nulo>"_s : u'[' + row.value(i).toText({}) + u']');
        rows.append(values.join(u' '));
    }
    rows.sort();
    return rows;
}

class MoveOrder : public testing::TestWithParam<Pair> {
protected:
    int move(const QString& company, const QStringList& more = {}) {
        return source.run(QStringList{u"trasladar"_s, company, u"--a"_s, target.folder()} + more);
    }
    /// Whether the target holds no row at all.
    void expectEmptyTarget() {
        for (const QString& table : tables())
            EXPECT_EQ(target.value(u"SELECT count(*) n FROM "_s + table), u"0"_s) << qPrintable(table);
    }
    static QStringList tables() {
        QStringList names{u"ses_empresa"_s};
        for (const dalvora::TableLayout& table : dalvora::readLayout(dalvora::erpTables()).tables)
            names.append(table.name);
        return names;
    }
    bool toServer() const { return GetParam().second != TestEngine::Sqlite; }

    AdminDesk source{GetParam().first};
    AdminDesk target{GetParam().second};
};

TEST_P(MoveOrder, EveryRowOfTheCompanyArrivesAsItWasAndNoOther) {
    source.loadDemonstration();
    ASSERT_EQ(move(u"001"_s), ExitSuccess) << qPrintable(source.errors);
    EXPECT_TRUE(source.out.startsWith(u"Empresa «001» trasladada; cada tabla tiene las mismas filas"));
    EXPECT_TRUE(source.out.contains(u"  documentod            2179 filas  suma ")) << qPrintable(source.out);
    ASSERT_EQ(tables().size(), 11);
    for (const QString& table : tables()) {
        const QStringList rows = dump(source, table, u"001"_s);
        EXPECT_FALSE(rows.isEmpty()) << qPrintable(table);
        EXPECT_EQ(dump(target, table, u"001"_s), rows) << qPrintable(table);
        EXPECT_EQ(dump(target, table, u"002"_s), QStringList()) << qPrintable(table);
        EXPECT_FALSE(dump(source, table, u"002"_s).isEmpty()) << qPrintable(table);
    }
    EXPECT_EQ(target.value(u"SELECT count(*) n FROM ses_usuario"_s), u"0"_s);
    EXPECT_EQ(target.value(u"SELECT Texto FROM ses_auditoria"_s), u"EMPRESA:001:TRASLADAR"_s);
}

TEST_P(MoveOrder, ValuesAreExact) {
    source.execute(u"INSERT INTO ses_empresa (Empresa, Nombre) VALUES ('Ñ1', 'O''Higgins \"y\" Cía. ')"_s);
    source.execute(
        u"INSERT INTO documento (Empresa, TipoDocto, Numero, IdCtaCte, Fecha, Correlativo, Neto, Impuesto, "
        "Total, Vendedor) VALUES ('ñ1', 'FACTURA', ' 1 ', '', '31/12/9999', -2147483648, -0.000001, "
        "123456789.123456, 0.1, 'x;--$?:a' )"_s);
    source.execute(
        u"INSERT INTO documento (Empresa, TipoDocto, Numero, IdCtaCte, Fecha, ComisionMonto) VALUES "
        "('Ñ1', 'FACTURA', '2', '', '', 0)"_s);
    ASSERT_EQ(move(u"ñ1"_s), ExitSuccess) << qPrintable(source.errors);
    EXPECT_TRUE(source.out.contains(u"no nombra la empresa «Ñ1» en Codigos")) << qPrintable(source.out);
    for (const QString& table : tables())
        EXPECT_EQ(dump(target, table, u"Ñ1"_s), dump(source, table, u"Ñ1"_s)) << qPrintable(table);
    const QStringList rows = dump(target, u"documento"_s, u"Ñ1"_s);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_TRUE(rows.join(u'\n').contains(u"[ 1 ]"));
    EXPECT_TRUE(rows.join(u'\n').contains(u"<nulo>"));
    EXPECT_TRUE(rows.join(u'\n').contains(u"[123456789,123456]")) << qPrintable(rows.join(u'\n'));
}

TEST_P(MoveOrder, ACompanyThatIsThereIsRefused) {
    source.loadSmallCompanies();
    target.execute(u"INSERT INTO producto (Empresa, Producto) VALUES ('001', 'P')"_s);
    EXPECT_EQ(move(u"001"_s), ExitFailure);
    EXPECT_EQ(source.errors, u"Error: La empresa «001» ya está en la base de datos de destino (1 filas en "
                             "producto): no se trasladó nada (58)\n"_s);
    EXPECT_EQ(target.value(u"SELECT count(*) n FROM Comisiones"_s), u"0"_s);
    ASSERT_EQ(move(u"002"_s), ExitSuccess) << qPrintable(source.errors);
    EXPECT_EQ(move(u"002"_s), ExitFailure);
}

TEST_P(MoveOrder, ItIsAllOrNothing) {
    source.loadSmallCompanies();
    target.execute(u"ALTER TABLE documentod DROP COLUMN Descuento"_s);
    EXPECT_EQ(move(u"001"_s, {u"--usuarios"_s}), ExitFailure);
    EXPECT_TRUE(source.errors.contains(u"tabla documentod, ")) << qPrintable(source.errors);
    expectEmptyTarget();
    EXPECT_EQ(target.value(u"SELECT count(*) n FROM ses_usuario"_s), u"0"_s);
}

TEST_P(MoveOrder, ARowThatIsRefusedIsNamedByTableAndKey) {
    source.loadSmallCompanies();
    target.execute(u"CREATE UNIQUE INDEX una_por_familia ON producto (Empresa, Familia)"_s);
    EXPECT_EQ(move(u"001"_s), ExitFailure);
    EXPECT_TRUE(
        source.errors.contains(u": tabla producto, Empresa «001», Producto «026». No se trasladó nada "
                               "(2627)"))
        << qPrintable(source.errors);
    EXPECT_EQ(source.errors.count(u'\n'), 1);
    expectEmptyTarget();
}

TEST_P(MoveOrder, WhatTheTargetWouldRoundIsToldWithBothValues) {
    if (GetParam().first != TestEngine::Sqlite || !toServer())
        GTEST_SKIP() << "only the embedded database holds more decimals than the other";
    source.loadSmallCompanies();
    source.execute(
        u"UPDATE Comisiones SET Porcentaje = 1.1234567 WHERE Empresa = '001' AND Codigo = 'MIXTA'"_s);
    EXPECT_EQ(move(u"001"_s), ExitFailure);
    EXPECT_TRUE(
        source.errors.contains(u"no guarda lo mismo: tabla Comisiones (Empresa «001», Codigo «MIXTA», "
                               "FechaInicio «01/07/1996», "))
        << qPrintable(source.errors);
    EXPECT_TRUE(source.errors.contains(u"columna Porcentaje, origen «1.1234567», destino «1.123457»"));
    expectEmptyTarget();
}

TEST_P(MoveOrder, ATextWithANulIsToldBeforeTheServerSeesIt) {
    if (GetParam().first != TestEngine::Sqlite || !toServer())
        GTEST_SKIP() << "only the embedded database holds such a text";
    source.loadSmallCompanies();
    source.execute(
        u"UPDATE producto SET Glosa = 'a%1b' WHERE Empresa = '001' AND Producto = '007'"_s.arg(QChar(u'\0')));
    EXPECT_EQ(move(u"001"_s), ExitFailure);
    EXPECT_EQ(source.errors,
              u"Error: El servidor no guarda textos con el carácter nulo: tabla producto (Empresa "
              "«001», Producto «007»), columna Glosa (5)\n"_s);
    expectEmptyTarget();
}

TEST_P(MoveOrder, UsersComeWithTheirPasswordsUnlessTheyAreThere) {
    source.loadDemonstration();
    target.run(u"alta LECTURA"_s);
    target.run(u"derechos lectura VELTRANO RWXD"_s);
    ASSERT_EQ(move(u"001"_s, {u"--usuarios"_s}), ExitSuccess) << qPrintable(source.errors);
    EXPECT_TRUE(source.out.contains(u"Usuarios que ya estaban y no se tocaron: lectura.\n"));
    EXPECT_EQ(target.value(u"SELECT count(*) n FROM ses_usuario"_s), u"4"_s);
    EXPECT_EQ(target.value(u"SELECT Derechos FROM ses_derecho WHERE Usuario = 'lectura'"_s), u"RWXD"_s);
    EXPECT_EQ(target.value(u"SELECT Derechos FROM ses_derecho WHERE Usuario = 'escritura'"_s), u"RW--"_s);
    Connection connection;
    connection.open(target.database.connectString());
    EXPECT_EQ(Accounts(connection).refusal(u"demo"_s, u"Demo-1996"_s, QDateTime::currentDateTime()),
              QString());
}

TEST_P(MoveOrder, TheTrailOfTheCompanyComesInItsOrderWhenItIsWanted) {
    source.loadSmallCompanies();
    for (const auto* entry : {u"'001', 7, 'uno'", u"'002', 7, 'de otra'", u"'001', 5, 'dos'"})
        source.execute(
            u"INSERT INTO ses_auditoria (Momento, Usuario, Programa, Empresa, Codigo, Texto) VALUES "
            "('2026-01-01 10:00:00.000', 'ana', 'VELTRANO', "_s +
            QString::fromUtf16(entry) + u')');
    target.run(u"alta eva"_s); // an entry that is there before
    ASSERT_EQ(move(u"001"_s, {u"--auditoria"_s}), ExitSuccess) << qPrintable(source.errors);
    ASSERT_EQ(target.run(u"auditoria --programa veltrano --empresa 001"_s), ExitSuccess);
    EXPECT_EQ(target.out.count(u'\n'), 2);
    EXPECT_TRUE(target.out.contains(u"uno\n") && target.out.endsWith(u"dos\n")) << qPrintable(target.out);
    EXPECT_EQ(target.value(u"SELECT count(*) n FROM ses_auditoria"_s), u"4"_s);
}

TEST_P(MoveOrder, AnUnknownCompanyAndATargetWithoutTablesAreTold) {
    source.loadSmallCompanies();
    EXPECT_EQ(move(u"999"_s), ExitFailure);
    EXPECT_EQ(source.errors, u"Error: La empresa «999» no existe en la base de datos de origen (3265)\n"_s);
    target.execute(u"DROP TABLE ses_esquema"_s);
    EXPECT_EQ(move(u"001"_s), ExitFailure);
    EXPECT_TRUE(
        source.errors.contains(u"Prepárelo con «quorvane-admin --perfil %1 tablas»"_s.arg(target.folder())))
        << qPrintable(source.errors);
    EXPECT_EQ(move(u"001"_s, {u"--usuario"_s}), ExitUsage);
}

TEST_P(MoveOrder, ASourceThatMayOnlyBeReadIsEnough) {
    source.loadSmallCompanies();
    Profile profile = Profile::load(source.folder());
    profile.connectString += u";ReadOnly=S"_s;
    profile.save(source.folder());
    ASSERT_EQ(move(u"001"_s), ExitSuccess) << qPrintable(source.errors);
}

TEST_P(MoveOrder, NobodyMovesACompanyOntoItself) {
    source.loadSmallCompanies();
    EXPECT_EQ(source.run(QStringList{u"trasladar"_s, u"001"_s, u"--a"_s, source.folder()}), ExitFailure);
    EXPECT_TRUE(source.errors.contains(u"ya está en la base de datos de destino"))
        << qPrintable(source.errors);
}

std::vector<Pair> movesHere() {
    std::vector<Pair> moves{{TestEngine::Sqlite, TestEngine::PostgreSql},
                            {TestEngine::PostgreSql, TestEngine::Sqlite},
                            {TestEngine::Sqlite, TestEngine::Sqlite},
                            {TestEngine::PostgreSql, TestEngine::PostgreSql},
                            {TestEngine::Sqlite, TestEngine::OdbcPostgreSql}};
    std::erase_if(moves, [](const Pair& move) { return !isHere(move.first) || !isHere(move.second); });
    return moves;
}

INSTANTIATE_TEST_SUITE_P(Engines, MoveOrder, testing::ValuesIn(movesHere()),
                         [](const testing::TestParamInfo<Pair>& engines) {
                             return dalvora::test::engineName({engines.param.first, 0}) + "To" +
                                    dalvora::test::engineName({engines.param.second, 0});
                         });

} // namespace
