#include "platform/quorvane32/lookup/QueryFile.h"
#include "tests/quorvane32_lookup/Database.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace quorvane;
using dalvora::test::allEngines;
using dalvora::test::engineName;
using dalvora::test::TestEngine;

namespace {

/// The shipped queries on the ERP's tables.
class DalvoraQueries : public testing::TestWithParam<TestEngine> {
protected:
    /// Returned values of every row, joined as they go back.
    QStringList result(const QString& name, const QString& parameters) {
        const QueryDefinition& query = file.query(name);
        QStringList lines;
        Recordset recordset = database.connection.openRecordset(query.statement(parameters.split(u'#'), {}));
        for (const QueryColumn& column : query.columns)
            (void)recordset.ordinal(column.field);
        for (; !recordset.eof(); recordset.moveNext()) {
            QStringList values;
            for (const QString& field : query.returned)
                values += recordset.value(field).toText({});
            lines += values.join(u'#');
        }
        return lines;
    }

    void run(const char* sql) { database.connection.execute(QString::fromUtf8(sql)); }

    void addProduct(const char* rest) {
        run((QByteArray("insert into producto (Empresa, Producto, Glosa, Familia, SubFamilia, TipoProducto) "
                        "values (") +
             rest + ")")
                .constData());
    }

    QueryFile file = QueryFile::load(QStringLiteral(DALVORA_QUERY_FILE));
    Database database{GetParam()};
};

} // namespace

TEST_P(DalvoraQueries, CodesOfTheCompanyWithTheirPeriod) {
    run("insert into Comisiones (Empresa, Codigo, Descripcion, FechaInicio, FechaFinal) "
        "values ('001', 'B', 'Otra', '01/01/2006', '31/12/2006')");
    run("insert into Comisiones (Empresa, Codigo, Descripcion, FechaInicio, FechaFinal) "
        "values ('001', 'A', 'Una', '01/02/2007', '28/02/2007')");
    run("insert into Comisiones (Empresa, Codigo) values ('002', 'C')");
    EXPECT_EQ(result("CodigosComision", "001"),
              (QStringList{"A#Una#01/02/2007#28/02/2007", "B#Otra#01/01/2006#31/12/2006"}));
}

TEST_P(DalvoraQueries, ProductsFamiliesAndTypesOfTheCompany) {
    addProduct("'001', 'P2', 'Queso', 'Lácteos', 'Quesos', 'Fresco'");
    addProduct("'001', 'P1', 'Leche', 'Lácteos', '', 'Fresco'");
    addProduct("'001', 'P3', 'Clavo', '', '', ''");
    addProduct("'002', 'P4', 'Ajeno', 'Otra', 'Otra', 'Otro'");
    run("insert into gen_tabcod (Empresa, Tipo, Codigo, Descripcion) "
        "values ('001', 'FAMILIA', 'LÁCTEOS', 'Productos lácteos')");
    run("insert into gen_tabcod (Empresa, Tipo, Codigo, Descripcion) "
        "values ('001', 'SUBFAMILIA', 'Lácteos', 'Otra cosa')");
    EXPECT_EQ(result("ProductoComision", "001"), (QStringList{"P1#Leche", "P2#Queso", "P3#Clavo"}));
    EXPECT_EQ(result("LISTAPRECIO_FAMILIA", "FAMILIA#001#  "), QStringList{"Lácteos#Productos lácteos"});
    EXPECT_EQ(result("LISTAPRECIO_SUBFAMILIA", "SUBFAMILIA#001#  "), QStringList{"Quesos#"});
    EXPECT_EQ(result("TIPOPRODUCTO", "001"), QStringList{"Fresco#"});
}

TEST_P(DalvoraQueries, OnlyValuedSalesDocumentsWithASalesperson) {
    run("insert into tipodocumento (Empresa, TipoDocto, Descripcion, Sistema, Valorizado, Vendedor) "
        "values ('001', 'FACTURA', 'Factura', 'Ventas', 'S', 'S')");
    run("insert into tipodocumento (Empresa, TipoDocto, Sistema, Valorizado, Vendedor) "
        "values ('001', 'GUIA', 'Ventas', 'N', 'S')");
    run("insert into tipodocumento (Empresa, TipoDocto, Sistema, Valorizado, Vendedor) "
        "values ('001', 'COMPRA', 'Compras', 'S', 'S')");
    run("insert into tipodocumento (Empresa, TipoDocto, Sistema, Valorizado, Vendedor) "
        "values ('001', 'BOLETA', 'Ventas', 'S', 'N')");
    EXPECT_EQ(result("DocumentosComision", "001"), QStringList{"FACTURA#Factura"});
}

TEST_P(DalvoraQueries, PriceListsThatHoldWithinThePeriod) {
    run("insert into ListaPrecio values ('001', 'ANTES', '', '01/01/2005', '31/12/2005')");
    run("insert into ListaPrecio values ('001', 'BORDE', '', '01/01/2005', '01/03/2006')");
    run("insert into ListaPrecio values ('001', 'DENTRO', '', '05/03/2006', '06/03/2006')");
    run("insert into ListaPrecio values ('001', 'LUEGO', '', '01/04/2006', '31/12/2006')");
    run("insert into ListaPrecio values ('001', 'SIEMPRE', '', '', '')");
    run("insert into ListaPrecio values ('002', 'AJENA', '', '', '')");
    EXPECT_EQ(result("LISTAPRECIOCOMISION", "001#01/03/2006#31/03/2006"),
              (QStringList{"BORDE#", "DENTRO#", "SIEMPRE#"}));
    EXPECT_EQ(result("LISTAPRECIOCOMISION", "001#01/03/2006#"),
              (QStringList{"BORDE#", "DENTRO#", "LUEGO#", "SIEMPRE#"}));
}

TEST_P(DalvoraQueries, EveryQueryRunsOnAnEmptyCompany) {
    for (const QueryDefinition& query : file.queries())
        EXPECT_TRUE(result(query.name, "X#01/01/2006#31/12/2006").isEmpty()) << query.name.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Engines, DalvoraQueries, testing::ValuesIn(allEngines), engineName);
