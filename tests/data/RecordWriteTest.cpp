#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

using Audits = std::vector<std::pair<int, QString>>;

const QString updateOfC1 =
    u"UPDATE Comisiones SET Descripcion='Esquema', FechaInicio='01/01/2006', FechaFinal='31/12/2006',  "
    u"Porcentaje = 10, Acumulable = 'S' WHERE Empresa = '01' and Codigo = 'C1'  "
    u"and fechaInicio = '01/01/2006' and fechaFinal = '31/12/2006'"_s;

class RecordWrite : public RecordTest {
protected:
    void read() {
        storeHeader();
        readStored();
    }
    void readNew() {
        table.setTextValue(2, u"C9"_s);
        table.setTextValue(3, u"Nuevo"_s);
        table.setTextValue(5, u"01/01/2007"_s);
        table.setTextValue(6, u"31/12/2007"_s);
        ASSERT_TRUE(table.DBRead());
        table.SaveDates();
        table.carga_inicio();
        table.setTextValue(4, u"12,5"_s);
        table.Acumulable = u"N"_s;
        database.take();
    }
};

} // namespace

TEST_F(RecordWrite, AnUnchangedStoredRecordRewritesItsHeaderOnly) {
    storeLines(u"Producto"_s, {lineRow(u"A"_s, u""_s, 0, 1, 5, u"Producto"_s)});
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u""_s, 0, 1, 5)});
    storeLines(u"Precio"_s, {lineRow(u"MAY"_s, u""_s, 0, 0, 5)});
    read();
    EXPECT_TRUE(table.DBWrite(true));
    expectCalls({u"begin"_s, updateOfC1, u"commit"_s});
    EXPECT_EQ(session.audits, (Audits{{5, u":COMISION:C1"_s}}));
    expectSilence();
}

TEST_F(RecordWrite, ANewRecordInsertsItsHeader) {
    readNew();
    EXPECT_TRUE(table.DBWrite());
    expectCalls({u"begin"_s,
                 u"INSERT INTO Comisiones ( Empresa, Codigo, Descripcion, FechaInicio, FechaFinal,  "
                 u"Porcentaje, Acumulable )VALUES ( '01', 'C9', 'Nuevo','01/01/2007', '31/12/2007', 12.5, "
                 u"'N') "_s,
                 u"commit"_s});
    EXPECT_EQ(session.audits, (Audits{{6, u":COMISION:C9"_s}}));
}

TEST_F(RecordWrite, EmptyDatesAreWrittenAsEmptyTexts) {
    table.setTextValue(2, u"C9"_s);
    EXPECT_TRUE(table.DBWrite());
    EXPECT_EQ(database.take().at(1),
              u"INSERT INTO Comisiones ( Empresa, Codigo, Descripcion, FechaInicio, FechaFinal,  "
              u"Porcentaje, Acumulable )VALUES ( '01', 'C9', '','', '', 0, '') "_s);
}

TEST_F(RecordWrite, QuotesAreDoubledAndDollarsKept) {
    table.setTextValue(2, u"O'N"_s);
    table.setTextValue(3, u"cuesta 5$; 100% 'x' \"y\" 😀"_s);
    table.Acumulable = u"S"_s;
    EXPECT_TRUE(table.DBWrite());
    EXPECT_EQ(database.take().at(1),
              u"INSERT INTO Comisiones ( Empresa, Codigo, Descripcion, FechaInicio, FechaFinal,  "
              u"Porcentaje, Acumulable )VALUES ( '01', 'O''N', 'cuesta 5$; 100% ''x'' \"y\" 😀','', '', 0, "
              u"'S') "_s);
}

TEST_F(RecordWrite, ANameOfAPlaceholderInATextIsFilledByALaterStep) {
    // The code is filled before the percentage, so it takes that; the description comes after the code.
    table.setTextValue(2, u"$Porcentaje$"_s);
    table.setTextValue(3, u"$Codigo$"_s);
    EXPECT_TRUE(table.DBWrite());
    EXPECT_EQ(database.take().at(1),
              u"INSERT INTO Comisiones ( Empresa, Codigo, Descripcion, FechaInicio, FechaFinal,  "
              u"Porcentaje, Acumulable )VALUES ( '01', '0', '$Codigo$','', '', 0, '') "_s);
}

TEST_F(RecordWrite, ASuccessfulWriteLeavesNothingLoadedAndNothingUnsaved) {
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u""_s, 0, 1, 5), lineRow(u"BOL"_s, u""_s, 0, 1, 5)});
    read();
    table.montos(1).setTextValue(4, u"6"_s);
    table.MontosRemove(2);
    table.Precios(1).setTextValue(4, u"Neto"_s);
    table.SysRecordModified = true;
    ASSERT_TRUE(table.hasUnsavedChanges());
    EXPECT_TRUE(table.DBWrite());
    EXPECT_FALSE(table.SysRecordEnabled);
    EXPECT_FALSE(table.SysRecordModified);
    EXPECT_FALSE(table.hasUnsavedChanges());
    EXPECT_EQ(table.montos(1).Save.Porcentaje, 6);
    EXPECT_EQ(table.SysErrorTable, -1);
    EXPECT_EQ(table.SysErrorRow, 0);
}

TEST_F(RecordWrite, AChangedPeriodCarriesTheLinesAlongBeforeTheyAreWritten) {
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u""_s, 0, 1, 5)});
    read();
    table.setTextValue(6, u"30/06/2006"_s);
    table.montos(1).setTextValue(4, u"6"_s);
    EXPECT_TRUE(table.DBWrite());
    expectCalls(
        {u"begin"_s,
         u"UPDATE Comisiones SET Descripcion='Esquema', FechaInicio='01/01/2006', "
         u"FechaFinal='30/06/2006',  Porcentaje = 10, Acumulable = 'S' WHERE Empresa = '01' and "
         u"Codigo = 'C1'  and fechaInicio = '01/01/2006' and fechaFinal = '31/12/2006'"_s,
         u" Update comisionesd set FechaInicio = '01/01/2006',FechaFinal = '30/06/2006' where  codigo "
         u"= 'C1' and FechaInicio = '01/01/2006' and FechaFinal='31/12/2006'"_s,
         u"UPDATE ComisionesD SET concepto='FAC', descripcion=' ', "
         u"CantidadInicio=0,CantidadFinal=1, Porcentaje = 6, calculo = 'Neto' WHERE Empresa = '01' "
         u"and codigo = 'C1' and fechaInicio = '01/01/2006' and fechaFinal = '30/06/2006' and tipo "
         u"= 'Monto' and concepto = 'FAC'  and CantidadInicio = 0 and cantidadfinal = 1 and "
         u"porcentaje = 5  and calculo = 'Neto'"_s,
         u"commit"_s});
}

TEST_F(RecordWrite, AChangedStartDateAloneCarriesTheLinesToo) {
    read();
    table.setTextValue(5, u"02/01/2006"_s);
    EXPECT_TRUE(table.DBWrite());
    const auto calls = database.take();
    ASSERT_EQ(calls.size(), 4U);
    EXPECT_EQ(calls[2],
              u" Update comisionesd set FechaInicio = '02/01/2006',FechaFinal = '31/12/2006' where  "
              u"codigo = 'C1' and FechaInicio = '01/01/2006' and FechaFinal='31/12/2006'"_s);
}

TEST_F(RecordWrite, TheCompanyOfTheSessionIsWritten) {
    read();
    table.SysEmpresa = u"02"_s;
    EXPECT_TRUE(table.DBWrite());
    EXPECT_TRUE(database.take().at(1).contains(u"WHERE Empresa = '02' and Codigo = 'C1'"));
    EXPECT_EQ(table.TextValue(1), u"02"_s);
}

TEST_F(RecordWrite, WithoutTheWriteLetterNothingIsWritten) {
    read();
    session.rights = u"R-XD"_s;
    table.SysErrorCol = table.SysErrorRow = table.SysErrorTable = 9;
    EXPECT_FALSE(table.DBWrite(true));
    expectTold({{u"Usuario no tiene permiso de escritura"_s, 48}});
    expectCalls({});
    EXPECT_EQ(table.SysErrorTable, -1);
    EXPECT_EQ(table.SysErrorRow, 0);
    EXPECT_EQ(table.SysErrorCol, 0);
    session.rights = u"rw"_s;
    EXPECT_TRUE(table.DBWrite(true));
}

TEST_F(RecordWrite, WithValidationAnInvalidLineKeepsTheDatabaseUntouched) {
    read();
    table.Precios(1).ListaPrecio = u"MAY"_s;
    EXPECT_FALSE(table.DBWrite(true));
    expectTold({{u"Debe ingresar Porcentaje"_s, 48}});
    EXPECT_EQ(table.Grilla, 3);
    EXPECT_EQ(table.SysErrorTable, 1);
    EXPECT_EQ(table.SysErrorRow, 1);
    EXPECT_EQ(table.SysErrorCol, 3);
    expectCalls({});
}

TEST_F(RecordWrite, WithoutValidationAnIncompleteLineIsWritten) {
    read();
    table.Precios(1).ListaPrecio = u"MAY"_s;
    EXPECT_TRUE(table.DBWrite());
    EXPECT_EQ(database.take().size(), 4U);
    expectSilence();
}

TEST_F(RecordWrite, AHeaderThatIsNoLongerThereRefusesTheWrite) {
    read();
    table.DetailsAdd(1).SubTipo = u"Todos"_s;
    database.affect(u"UPDATE Comisiones "_s, 0);
    EXPECT_FALSE(table.DBWrite());
    expectTold({{u"No se grabó el registro porque ha sido modificado por otro usuario. Debe leer "
                 u"nuevamente."_s,
                 64}});
    expectCalls({u"begin"_s, updateOfC1, u"rollback"_s});
    EXPECT_TRUE(table.SysRecordEnabled);
    EXPECT_EQ(table.SysErrorTable, 0);
    EXPECT_EQ(session.audits, Audits());
    EXPECT_FALSE(connection.inTransaction());
}
