#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

using Audits = std::vector<std::pair<int, QString>>;

class RecordRead : public RecordTest {};

} // namespace

TEST_F(RecordRead, WithoutDatesTheFirstRowOfTheCodeIsRead) {
    storeHeader();
    table.setTextValue(2, u"C1"_s);
    EXPECT_TRUE(table.DBRead());
    const QString period = u"and ((FechaInicio <= '01/01/2006' and FechaFinal >= '01/01/2006')"
                           u"or (FechaInicio <= '31/12/2006' and FechaFinal >= '31/12/2006'))"_s;
    expectCalls({
        u"SELECT * FROM Comisiones WHERE Empresa = '01' and codigo = 'C1' "_s,
        u"SELECT * FROM ComisionesD WHERE Empresa = '01' and Codigo = 'C1' and tipo= 'Producto' "_s + period,
        u"SELECT * FROM ComisionesD WHERE Empresa = '01' and Codigo = 'C1' and tipo= 'Monto' "_s + period,
        u"SELECT * FROM ComisionesD WHERE Empresa = '01' and Codigo = 'C1' and tipo= 'Precio' "_s + period,
    });
    expectSilence();
}

TEST_F(RecordRead, WithBothDatesThePeriodThatHoldsOneOfThemIsRead) {
    table.setTextValue(2, u"C1"_s);
    table.setTextValue(5, u"01/06/2006"_s);
    table.setTextValue(6, u"30/06/2006"_s);
    EXPECT_TRUE(table.DBRead(5));
    expectCalls({u"SELECT * FROM Comisiones WHERE Empresa = '01' and codigo = 'C1' "
                 u"and ((FechaInicio <= '01/06/2006' and FechaFinal >= '01/06/2006')"
                 u"or (FechaInicio <= '30/06/2006' and FechaFinal >= '30/06/2006'))"_s});
}

TEST_F(RecordRead, OneDateAloneDoesNotCount) {
    table.setTextValue(2, u"C1"_s);
    table.setTextValue(5, u"01/06/2006"_s);
    EXPECT_TRUE(table.DBRead());
    expectCalls({u"SELECT * FROM Comisiones WHERE Empresa = '01' and codigo = 'C1' "_s});
}

TEST_F(RecordRead, AHeaderWithEmptyDatesReadsTheLinesOfEveryPeriod) {
    database.answer(
        u"FROM Comisiones "_s,
        {u"Codigo"_s, u"Descripcion"_s, u"FechaInicio"_s, u"FechaFinal"_s, u"Porcentaje"_s, u"Acumulable"_s},
        {{u"C1"_s, u""_s, Date::fromYmd(1900, 1, 1), Value::Null{}, Value::Null{}, Value::Null{}}});
    readStored();
    EXPECT_TRUE(table.FECHAINICIO().isEmpty() && table.FechaFinal().isEmpty());
    EXPECT_EQ(table.Porcentaje(), 0);
    EXPECT_EQ(table.Acumulable, u""_s);
    EXPECT_TRUE(table.DBRead());
    EXPECT_EQ(database.take().at(1),
              u"SELECT * FROM ComisionesD WHERE Empresa = '01' and Codigo = 'C1' and tipo= 'Producto' "_s);
}

TEST_F(RecordRead, TheHeaderIsTakenFromTheRow) {
    storeHeader(12.5, u"N"_s);
    table.setTextValue(2, u"c1"_s);
    table.setTextValue(3, u"antes"_s);
    ASSERT_TRUE(table.DBRead());
    EXPECT_TRUE(table.SysRecordFound);
    EXPECT_TRUE(table.SysRecordEnabled);
    const QStringList expected{u"01"_s, u"C1"_s, u"Esquema"_s, u"12,5"_s, u"01/01/2006"_s, u"31/12/2006"_s};
    for (int column = 1; column <= 6; ++column)
        EXPECT_EQ(table.TextValue(column), expected[column - 1]);
    EXPECT_EQ(table.Acumulable, u"N"_s);
}

TEST_F(RecordRead, TheSavedDatesAreTheCallersToKeep) {
    storeHeader();
    table.setSave_FechaInicio(Date(7));
    table.setSave_FechaFinal(Date(8));
    ASSERT_TRUE(table.DBRead());
    EXPECT_EQ(table.save_FechaInicio(), Date(7));
    EXPECT_EQ(table.save_FechaFinal(), Date(8));
}

TEST_F(RecordRead, ACodeThatIsNotStoredIsANewRecord) {
    table.setTextValue(2, u"NUEVO"_s);
    table.setTextValue(3, u"Nuevo esquema"_s);
    table.setTextValue(4, u"10"_s);
    table.setTextValue(5, u"01/06/2006"_s);
    table.Acumulable = u"S"_s;
    table.SaveDates();
    table.setSave_FechaFinal(Date::fromYmd(2006, 6, 30));
    table.Details(1).Producto = u"A"_s;
    table.SysRecordModified = true;
    EXPECT_TRUE(table.DBRead());
    EXPECT_FALSE(table.SysRecordFound);
    EXPECT_TRUE(table.SysRecordEnabled);
    EXPECT_FALSE(table.SysRecordModified);
    EXPECT_EQ(table.Porcentaje(), 0);
    EXPECT_TRUE(table.save_FechaInicio().isEmpty() && table.save_FechaFinal().isEmpty());
    EXPECT_EQ(table.TextValue(2), u"NUEVO"_s);
    EXPECT_EQ(table.TextValue(3), u"Nuevo esquema"_s);
    EXPECT_EQ(table.TextValue(5), u"01/06/2006"_s);
    EXPECT_EQ(table.Acumulable, u"S"_s);
    EXPECT_EQ(table.Details(1).Producto, u"A"_s);
    EXPECT_EQ(session.audits, Audits());
    expectSilence();
}

TEST_F(RecordRead, LinesAreTakenInOrderWithAnEmptyOneBehindThem) {
    storeHeader();
    storeLines(u"Producto"_s, {lineRow(u"BEB"_s, u"Bebidas"_s, 0, 10.5, 5, u"Familia"_s),
                               lineRow(u"A1"_s, u"Té"_s, 10.5, 20, 7.25, u"Producto"_s),
                               lineRow(u"Todos"_s, u""_s, 0, 0, 1, u"Todos"_s)});
    readStored();
    ASSERT_EQ(table.DetailsCount(), 4);
    EXPECT_EQ(table.Details(1).values(),
              (DetailValues{u"Familia"_s, u"BEB"_s, u"Bebidas"_s, 0, 10.5, 5, u"Neto"_s}));
    EXPECT_EQ(table.Details(2).values(),
              (DetailValues{u"Producto"_s, u"A1"_s, u"Té"_s, 10.5, 20, 7.25, u"Neto"_s}));
    for (int i = 1; i <= 3; ++i) {
        EXPECT_TRUE(table.Details(i).SysRecordFound);
        EXPECT_FALSE(table.Details(i).SysRecordModified());
        EXPECT_EQ(table.Details(i).Save, table.Details(i).values());
    }
    EXPECT_TRUE(table.Details(4).SysRecordNull());
    EXPECT_FALSE(table.Details(4).SysRecordFound);
}

TEST_F(RecordRead, AmountAndPriceListLinesTakeTheirOwnFields) {
    storeHeader();
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u" "_s, 100, 200, 3)});
    storeLines(u"Precio"_s, {lineRow(u"MAY"_s, u"Mayorista"_s, 0, 0, 4)});
    readStored();
    ASSERT_EQ(table.MontosCount(), 2);
    EXPECT_EQ(table.montos(1).values(), (MontoValues{u"FAC"_s, 100, 200, 3, u"Neto"_s}));
    ASSERT_EQ(table.PreciosCount(), 2);
    EXPECT_EQ(table.Precios(1).values(), (PrecioValues{u"MAY"_s, u"Mayorista"_s, 4, u"Neto"_s}));
    EXPECT_TRUE(table.montos(2).SysRecordNull() && table.Precios(2).SysRecordNull());
}

TEST_F(RecordRead, AHeaderWithoutLinesHasOneEmptyLineOfEachKind) {
    table.DetailsAdd();
    table.MontosAdd();
    table.PreciosAdd();
    storeHeader();
    readStored();
    EXPECT_EQ(table.DetailsCount(), 1);
    EXPECT_EQ(table.MontosCount(), 1);
    EXPECT_EQ(table.PreciosCount(), 1);
}

TEST_F(RecordRead, NullsInALineAreEmpty) {
    storeHeader();
    storeLines(u"Producto"_s, {Row(7, Value::Null{})});
    readStored();
    ASSERT_EQ(table.DetailsCount(), 2);
    EXPECT_TRUE(table.Details(1).SysRecordNull());
}

TEST_F(RecordRead, TheAuditNamesTheCompanyOfTheReadBefore) {
    storeHeader();
    table.setTextValue(2, u"C1"_s);
    ASSERT_TRUE(table.DBRead());
    EXPECT_EQ(session.audits, (Audits{{7, u":COMISION:C1"_s}}));
    ASSERT_TRUE(table.DBRead());
    EXPECT_EQ(session.audits.back(), (std::pair{7, u"01:COMISION:C1"_s}));
}

TEST_F(RecordRead, AQuoteInTheCodeIsDoubled) {
    table.setTextValue(2, u"O'NEIL"_s);
    EXPECT_TRUE(table.DBRead());
    expectCalls({u"SELECT * FROM Comisiones WHERE Empresa = '01' and codigo = 'O''NEIL' "_s});
}

TEST_F(RecordRead, WithoutTheReadLetterNothingIsRead) {
    for (const QString& rights : {u"-WXD"_s, u""_s}) {
        session.rights = rights;
        EXPECT_FALSE(table.DBRead());
        expectTold({{u"Usuario no tiene permiso de lectura"_s, 48}});
    }
    EXPECT_FALSE(table.SysRecordEnabled);
    expectCalls({});
    session.rights = u"r"_s;
    EXPECT_TRUE(table.DBRead());
}

TEST_F(RecordRead, AFailingStatementIsToldAndTheRecordIsNotEnabled) {
    storeHeader();
    for (const int statement : {1, 2, 3, 4}) {
        plan.statements = 0;
        plan.atStatement = statement;
        EXPECT_FALSE(table.DBRead()) << statement;
        expectTold({{u"Error al leer registro\n61 - Disco lleno"_s, 16}});
        EXPECT_FALSE(table.SysRecordEnabled);
    }
    EXPECT_EQ(session.audits, Audits());
}

TEST_F(RecordRead, ARowThatCannotBeFetchedIsToldAndKeepsWhatWasFilledIn) {
    storeHeader();
    storeLines(u"Producto"_s, {lineRow(u"A"_s, u""_s, 0, 1, 5), lineRow(u"B"_s, u""_s, 0, 1, 5)});
    table.setTextValue(2, u"x"_s);
    plan.atStatement = 2;
    plan.atRow = 2;
    EXPECT_FALSE(table.DBRead());
    expectTold({{u"Error al leer registro\n61 - Disco lleno"_s, 16}});
    EXPECT_EQ(table.Codigo(), u"C1"_s);
    EXPECT_EQ(table.DetailsCount(), 1);
}

TEST_F(RecordRead, AMissingColumnIsTold) {
    database.answer(u"FROM Comisiones "_s, {u"Codigo"_s}, {{u"C1"_s}});
    EXPECT_FALSE(table.DBRead());
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].text.startsWith(u"Error al leer registro\n3265 - "_s));
    EXPECT_EQ(told[0].style, 16);
}

TEST_F(RecordRead, ALostConnectionIsToldAndTheNextReadGoesWell) {
    storeHeader();
    plan.atStatement = 2;
    plan.error = RunTimeError(quorvane::ErrorConnectionLost, u"Conexión perdida"_s);
    EXPECT_FALSE(table.DBRead());
    expectTold({{u"Error al leer registro\n3709 - Conexión perdida"_s, 16}});
    EXPECT_TRUE(table.DBRead());
    EXPECT_TRUE(table.SysRecordEnabled);
}

TEST_F(RecordRead, AReadThatCannotBeAuditedIsAFailedRead) {
    storeHeader();
    session.auditError = RunTimeError(61, u"Disco lleno"_s);
    EXPECT_FALSE(table.DBRead());
    expectTold({{u"Error al leer registro\n61 - Disco lleno"_s, 16}});
    EXPECT_FALSE(table.SysRecordEnabled);
}
