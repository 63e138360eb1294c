#include "tests/data/StoredFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class StoredRecord : public StoredTest {
protected:
    Program program{database};
    DBTable& table = program.table;

    void storeScheme(const QString& code) {
        program.begin(code);
        program.addDetail(u"A1"_s, 0.1, 1234567.891, 12.34);
        program.addDetail(u"A2"_s, 0, 0, 0.01);
        program.addMonto(u"FAC"_s, 1000, 2000.5);
        program.addPrecio(u"MAY"_s, 7.25);
        ASSERT_TRUE(table.DBWrite(true));
        expectSilence();
    }
};

} // namespace

TEST_P(StoredRecord, AWholeSchemeComesBackAsItWasSaved) {
    storeScheme(u"C1"_s);
    Program other(database);
    ASSERT_TRUE(other.read(u"c1"_s));
    EXPECT_TRUE(other.table.SysRecordFound);
    const QStringList header{u"01"_s, u"C1"_s, u"Esquema C1"_s, u"10"_s, u"01/01/2006"_s, u"31/12/2006"_s};
    for (int column = 1; column <= 6; ++column)
        EXPECT_EQ(other.table.TextValue(column), header[column - 1]);
    EXPECT_EQ(other.table.Acumulable, u"S"_s);
    ASSERT_EQ(other.table.DetailsCount(), 3);
    EXPECT_EQ(other.table.Details(1).values(),
              (DetailValues{u"Producto"_s, u"A1"_s, u"Texto A1"_s, 0.1, 1234567.891, 12.34, u"Neto"_s}));
    EXPECT_EQ(other.table.Details(2).values(),
              (DetailValues{u"Producto"_s, u"A2"_s, u"Texto A2"_s, 0, 0, 0.01, u"Neto"_s}));
    ASSERT_EQ(other.table.MontosCount(), 2);
    EXPECT_EQ(other.table.montos(1).values(), (MontoValues{u"FAC"_s, 1000, 2000.5, 5, u"Total"_s}));
    ASSERT_EQ(other.table.PreciosCount(), 2);
    EXPECT_EQ(other.table.Precios(1).values(), (PrecioValues{u"MAY"_s, u"Lista MAY"_s, 7.25, u"Neto"_s}));
    expectSilence();
}

TEST_P(StoredRecord, EveryChangeOfALineReachesItsRow) {
    storeScheme(u"C1"_s);
    ASSERT_TRUE(program.read(u"C1"_s));
    table.Details(1).setTextValue(4, u"0,333"_s);
    table.Details(1).setTextValue(6, u"99,99"_s);
    table.Details(2).Producto = u"B7"_s;
    table.montos(1).setTextValue(5, u"Neto"_s);
    table.PreciosRemove(1);
    program.addPrecio(u"MIN"_s, 1);
    ASSERT_TRUE(table.DBWrite(true));
    EXPECT_EQ(
        stored(),
        (QStringList{
            u"ComisionesD|01|C1|Monto|FAC| |1000|2000,5|5|01/01/2006|31/12/2006||Neto"_s,
            u"ComisionesD|01|C1|Precio|MIN|Lista MIN|0|0|1|01/01/2006|31/12/2006||Neto"_s,
            u"ComisionesD|01|C1|Producto|A1|Texto A1|0,333|1234567,891|99,99|01/01/2006|31/12/2006|Producto|Neto"_s,
            u"ComisionesD|01|C1|Producto|B7|Texto A2|0|0|0,01|01/01/2006|31/12/2006|Producto|Neto"_s,
            u"Comisiones|01|C1|Esquema C1|01/01/2006|31/12/2006|10|S"_s,
        }));
    expectSilence();
}

TEST_P(StoredRecord, LinesThatSwapTheirCodesAreBothStored) {
    storeScheme(u"C1"_s);
    ASSERT_TRUE(program.read(u"C1"_s));
    std::swap(table.Details(1).Producto, table.Details(2).Producto);
    ASSERT_TRUE(table.DBWrite(true));
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"concepto = 'A1' and porcentaje = 0.01"_s), 1);
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"concepto = 'A2' and porcentaje = 12.34"_s), 1);
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"tipo = 'Producto'"_s), 2);
}

TEST_P(StoredRecord, APeriodIsFoundByEitherOfItsDates) {
    for (const auto& [start, end] :
         {std::pair{u"01/01/2006"_s, u"31/03/2006"_s}, std::pair{u"01/06/2006"_s, u"31/08/2006"_s}}) {
        ASSERT_TRUE(program.read(u"C1"_s, start, end));
        ASSERT_FALSE(table.SysRecordFound);
        program.addMonto(u"M"_s + start.mid(3, 2));
        ASSERT_TRUE(table.DBWrite());
    }
    const auto found = [&](const QString& start, const QString& end) {
        EXPECT_TRUE(program.read(u"C1"_s, start, end));
        return table.SysRecordFound ? table.TextValue(5) : u"-"_s;
    };
    EXPECT_EQ(found(u"01/06/2006"_s, u"30/06/2006"_s), u"01/06/2006"_s);
    ASSERT_EQ(table.MontosCount(), 2);
    EXPECT_EQ(table.montos(1).Documento, u"M06"_s);
    EXPECT_EQ(found(u"01/04/2006"_s, u"15/06/2006"_s), u"01/06/2006"_s);
    EXPECT_EQ(found(u"15/08/2006"_s, u"31/12/2006"_s), u"01/06/2006"_s);
    EXPECT_EQ(found(u"01/04/2006"_s, u"30/04/2006"_s), u"-"_s);
    EXPECT_EQ(found(u"01/05/2006"_s, u"30/09/2006"_s), u"-"_s) << "a period within the entered one";
    EXPECT_EQ(found({}, {}), u"01/01/2006"_s);
}

TEST_P(StoredRecord, EmptyDatesComeBackEmpty) {
    ASSERT_TRUE(program.read(u"C1"_s));
    ASSERT_TRUE(table.DBWrite());
    ASSERT_TRUE(program.read(u"C1"_s));
    EXPECT_TRUE(table.SysRecordFound);
    EXPECT_EQ(table.TextValue(5) + table.TextValue(6), u""_s);
    table.setTextValue(3, u"otra"_s);
    EXPECT_TRUE(table.DBWrite(true));
    EXPECT_EQ(stored(), QStringList{u"Comisiones|01|C1|otra|01/01/1900|01/01/1900|0|"_s});
    ASSERT_TRUE(program.read(u"C1"_s));
    EXPECT_TRUE(table.DBDelete());
    EXPECT_EQ(stored(), QStringList());
    expectSilence();
}

TEST_P(StoredRecord, HostileTextsComeBackUnharmedFromEveryField) {
    QStringList texts{u"O'N;--%_\"[x]"_s,  u"'; DROP TABLE a; --"_s, u"ñÑ áÁ €"_s,
                      u"\\ \t \n /* */"_s, u"$ 5$ $$ 'x"_s,          u"?1 :a @b #t"_s};
    // SQL Server takes a literal through its code page, which has no others than the letters of the west.
    if (GetParam() != TestEngine::TestSqlServer)
        texts += u"😀 汉"_s;
    if (GetParam() == TestEngine::Sqlite)
        texts += u"a"_s + QChar(0) + u"b'"_s;
    for (const QString& text : texts) {
        ASSERT_TRUE(program.read(text));
        EXPECT_FALSE(table.SysRecordFound);
        table.setTextValue(3, text);
        static_cast<DetailValues&>(table.DetailsAdd(1)) = {text, text, text, 1, 2, 3, text};
        static_cast<MontoValues&>(table.MontosAdd(1)) = {text, 1, 2, 3, text};
        static_cast<PrecioValues&>(table.PreciosAdd(1)) = {text, text, 3, text};
        ASSERT_TRUE(table.DBWrite(true));
        ASSERT_TRUE(program.read(text));
        EXPECT_TRUE(table.SysRecordFound);
        EXPECT_EQ(table.Codigo(), text);
        EXPECT_EQ(table.Descripcion(), text);
        ASSERT_EQ(table.DetailsCount(), 2);
        EXPECT_EQ(table.Details(1).values(), (DetailValues{text, text, text, 1, 2, 3, text}));
        ASSERT_EQ(table.MontosCount(), 2);
        EXPECT_EQ(table.montos(1).values(), (MontoValues{text, 1, 2, 3, text}));
        ASSERT_EQ(table.PreciosCount(), 2);
        EXPECT_EQ(table.Precios(1).values(), (PrecioValues{text, text, 3, text}));
        table.Details(1).Porcentaje = 4;
        table.MontosRemove(1);
        ASSERT_TRUE(table.DBWrite(true));
        ASSERT_TRUE(program.read(text));
        EXPECT_EQ(table.Details(1).Porcentaje, 4);
        EXPECT_EQ(table.MontosCount(), 1);
    }
    EXPECT_EQ(countStored(u"Comisiones"_s, u"1 = 1"_s), texts.size());
    expectSilence();
}

TEST_P(StoredRecord, AThousandLinesComeBack) {
    program.begin(u"C1"_s);
    for (int i = 0; i < 1000; ++i)
        program.addDetail(u"P%1"_s.arg(i, 4, 10, QChar(u'0')), i, i + 0.5);
    ASSERT_TRUE(table.DBWrite(true));
    ASSERT_TRUE(program.read(u"C1"_s));
    ASSERT_EQ(table.DetailsCount(), 1001);
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(table.Details(i + 1).FinTramo, i + 0.5);
}

TEST_P(StoredRecord, DeletingAPeriodTakesTheLinesOfEveryPeriodOfItsCode) {
    for (const QString& year : {u"2006"_s, u"2007"_s}) {
        ASSERT_TRUE(program.read(u"C1"_s, u"01/01/"_s + year, u"31/12/"_s + year));
        program.addMonto(u"FAC"_s);
        ASSERT_TRUE(table.DBWrite());
    }
    storeScheme(u"C2"_s);
    ASSERT_TRUE(program.read(u"C1"_s, u"01/01/2006"_s, u"31/12/2006"_s));
    ASSERT_TRUE(table.DBDelete());
    EXPECT_EQ(countStored(u"Comisiones"_s, u"Codigo = 'C1'"_s), 1);
    EXPECT_EQ(countStored(u"Comisiones"_s, u"Codigo = 'C1' and FechaInicio = '01/01/2007'"_s), 1);
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"Codigo = 'C1'"_s), 0);
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"Codigo = 'C2'"_s), 4);
}

TEST_P(StoredRecord, AChangedPeriodMovesTheLinesOfEveryCompanyWithThisCode) {
    storeScheme(u"C1"_s);
    Program second(database);
    second.session.company = second.table.SysEmpresa = u"02"_s;
    second.begin(u"C1"_s);
    second.addMonto(u"FAC"_s);
    ASSERT_TRUE(second.table.DBWrite());
    ASSERT_TRUE(program.read(u"C1"_s));
    table.setTextValue(6, u"30/06/2006"_s);
    ASSERT_TRUE(table.DBWrite(true));
    EXPECT_EQ(recorder.take().size(), 1U) << "the change was asked about";
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"Empresa = '01' and FechaFinal = '30/06/2006'"_s), 4);
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"Empresa = '02' and FechaFinal = '30/06/2006'"_s), 1);
    EXPECT_EQ(countStored(u"Comisiones"_s, u"Empresa = '02' and FechaFinal = '31/12/2006'"_s), 1);
}

TEST_P(StoredRecord, CodesAreLookedUpInTheirTables) {
    program.connection.execute(
        u"insert into producto (Empresa, Producto, Glosa, Familia, SubFamilia, TipoProducto) "
        u"values ('01', 'te''1', 'Té de 1''', 'BEB', 'INF', 'ALI')"_s);
    program.connection.execute(
        u"insert into tipodocumento (Empresa, TipoDocto, Clase, Sistema, Valorizado, Vendedor) "
        u"values ('01', 'FAC', 'fac', 'Ventas', 'S', 'S')"_s);
    program.connection.execute(
        u"insert into ListaPrecio (Empresa, LisPrecio, Descripcion) values ('01', 'MAY', 'Mayorista')"_s);
    DBDetail& line = table.Details(1);
    line.SubTipo = u"Producto"_s;
    line.setTextValue(2, u"TE'1"_s);
    EXPECT_EQ(line.Producto, u"TE'1"_s);
    EXPECT_EQ(line.Descripcion, u"Té de 1'"_s);
    for (const auto& [subTipo, code] :
         {std::pair{u"Familia"_s, u"beb"_s}, std::pair{u"SubFamilia"_s, u"inf"_s},
          std::pair{u"TipoProducto"_s, u"ali"_s}}) {
        line.SubTipo = subTipo;
        line.setTextValue(2, code);
        EXPECT_EQ(line.Producto, code.toUpper());
        EXPECT_EQ(line.Descripcion, u""_s);
    }
    table.montos(1).setTextValue(1, u"fac"_s);
    EXPECT_EQ(table.montos(1).Documento, u"FAC"_s);
    table.Precios(1).setTextValue(1, u"may"_s);
    EXPECT_EQ(table.Precios(1).Descripcion, u"Mayorista"_s);
    expectSilence();
    table.Precios(1).setTextValue(1, u"x' or '1'='1"_s);
    expectTold({{u"Lista de Precios 'x' or '1'='1' no existe "_s, 64}});
}

TEST_P(StoredRecord, TheConfigurationIsLoaded) {
    EXPECT_FALSE(table.DBInitialize());
    EXPECT_EQ(recorder.take().size(), 1U);
    program.connection.execute(
        u"insert into gen_tabcod (Empresa, Tipo, Codigo, Valor2) values ('01', 'GEN_MONEDA', 'USD', 2)"_s);
    program.connection.execute(
        u"insert into gen_tabcod (Empresa, Tipo, Codigo, Texto) values ('01', 'CONFIG.EMPRESA', 'MONEDA', 'USD')"_s);
    program.connection.execute(u"insert into gen_tabcod (Empresa, Tipo, Codigo, Valor1) values ('01', "
                               u"'CONFIG.DALVORA', 'DECIMALES.CANTIDAD', 3)"_s);
    program.connection.execute(
        u"insert into producto (Empresa, Producto, Unidad) values ('01', 'A', 'UN')"_s);
    program.connection.execute(u"insert into relctacteprod values ('01', 'CLIENTE', 'X', 'A', 'CJ')"_s);
    ASSERT_TRUE(table.DBInitialize());
    expectSilence();
    ASSERT_EQ(table.currencies().size(), 1U);
    EXPECT_EQ(table.currencies()[0].format, u"###,##0.00"_s);
    EXPECT_EQ(table.SysMoneda, u"USD"_s);
    EXPECT_EQ(table.SysDecimales, 3);
    EXPECT_EQ(table.units(), (QStringList{u"CJ"_s, u"UN"_s}));
}

INSTANTIATE_TEST_SUITE_P(Engines, StoredRecord, testing::ValuesIn(allEngines), engineName);
