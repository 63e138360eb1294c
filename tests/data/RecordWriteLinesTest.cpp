#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class RecordWriteLines : public RecordTest {
protected:
    RecordWriteLines() { table.SysDecimales = 2; }
    void read() {
        storeHeader();
        readStored();
    }
    /// The statements that a write sends for the lines: what stands between header and commit.
    std::vector<QString> lineCalls() {
        EXPECT_TRUE(table.DBWrite());
        expectSilence();
        auto calls = database.take();
        EXPECT_GE(calls.size(), 3U);
        EXPECT_EQ(calls.back(), u"commit"_s);
        return {calls.begin() + 2, calls.end() - 1};
    }
    void newRecord() {
        table.setTextValue(2, u"C1"_s);
        table.setTextValue(5, u"01/01/2006"_s);
        table.setTextValue(6, u"31/12/2006"_s);
    }
};

using Calls = std::vector<QString>;

} // namespace

TEST_F(RecordWriteLines, ANewRecordInsertsEveryLineThatIsNotEmpty) {
    newRecord();
    static_cast<DetailValues&>(table.DetailsAdd()) = {u"Familia"_s, u"O'N"_s, u"Ñandú"_s, 1.5,
                                                      20,           12.25,    u"Neto"_s};
    table.DetailsAdd();
    static_cast<MontoValues&>(table.montos(1)) = {u"FAC"_s, 1000, 2000.5, 3, u"Total"_s};
    static_cast<PrecioValues&>(table.Precios(1)) = {u"MAY"_s, u"Mayorista"_s, 4, u"Neto"_s};
    EXPECT_EQ(
        lineCalls(),
        (Calls{
            u"INSERT INTO ComisionesD ( Empresa, Codigo, tipo, Concepto,Descripcion,  CantidadInicio, "
            u"CantidadFinal, Porcentaje, FechaInicio, FechaFinal, SubTipo, Calculo  ) VALUES ( '01', 'C1', "
            u"'Producto', 'O''N', 'Ñandú', 1.5, 20, 12.25, '01/01/2006','31/12/2006' ,'Familia','Neto'  ) "_s,
            u"INSERT INTO ComisionesD ( Empresa, Codigo, tipo, Concepto,Descripcion,  CantidadInicio, "
            u"CantidadFinal, Porcentaje, FechaInicio, FechaFinal, Calculo  ) VALUES ( '01', 'C1', 'Monto', "
            u"'FAC', ' ', 1000, 2000.5, 3 , '01/01/2006','31/12/2006', 'Total'  ) "_s,
            u"INSERT INTO ComisionesD ( Empresa, Codigo, tipo, Concepto,Descripcion,  CantidadInicio, "
            u"CantidadFinal, Porcentaje, FechaInicio, FechaFinal, Calculo  ) VALUES ( '01', 'C1', 'Precio', "
            u"'MAY', 'Mayorista', 0, 0, 4, '01/01/2006','31/12/2006', 'Neto'  ) "_s}));
}

TEST_F(RecordWriteLines, ALineForAllProductsIsInsertedUnderTodos) {
    newRecord();
    static_cast<DetailValues&>(table.Details(1)) = {u"TODOS"_s, u"X1"_s, u""_s, 0, 0, 5, u"Neto"_s};
    EXPECT_EQ(lineCalls(),
              (Calls{u"INSERT INTO ComisionesD ( Empresa, Codigo, tipo, Concepto,Descripcion,  "
                     u"CantidadInicio, CantidadFinal, Porcentaje, FechaInicio, FechaFinal, SubTipo, Calculo  "
                     u") VALUES ( '01', 'C1', 'Producto', 'Todos', '', 0, 0, 5, '01/01/2006','31/12/2006' "
                     u",'TODOS','Neto'  ) "_s}));
}

TEST_F(RecordWriteLines, AChangedProductLineIsUpdatedByItsSavedCopies) {
    storeLines(u"Producto"_s, {lineRow(u"A1"_s, u"Té"_s, 1.5, 10, 5, u"Producto"_s)});
    read();
    table.Details(1).setTextValue(3, u"Té 'verde'"_s);
    table.Details(1).setTextValue(5, u"20,75"_s);
    table.Details(1).setTextValue(6, u"7,5"_s);
    table.Details(1).setTextValue(7, u"Total"_s);
    table.Details(1).SubTipo = u"Familia"_s;
    EXPECT_EQ(
        lineCalls(),
        (Calls{u"UPDATE ComisionesD SET concepto='A1', descripcion='Té ''verde''', "
               u"CantidadInicio=1.5,CantidadFinal=20.75, Porcentaje = 7.5,Subtipo='Familia', calculo = "
               u"'Total' WHERE Empresa = '01' and codigo = 'C1' and fechaInicio = '01/01/2006' and "
               u"fechaFinal = '31/12/2006' and tipo = 'Producto' and concepto = 'A1'  and CantidadInicio "
               u"= 1.5 and cantidadfinal = 10 and porcentaje = 5  and Subtipo='Producto' and calculo = "
               u"'Neto'"_s}));
}

TEST_F(RecordWriteLines, AChangedAmountLineIsUpdatedByItsSavedCopies) {
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u" "_s, 1, 10, 5)});
    read();
    table.montos(1).setTextValue(3, u"20"_s);
    EXPECT_EQ(
        lineCalls(),
        (Calls{u"UPDATE ComisionesD SET concepto='FAC', descripcion=' ', "
               u"CantidadInicio=1,CantidadFinal=20, Porcentaje = 5, calculo = 'Neto' WHERE Empresa = '01' "
               u"and codigo = 'C1' and fechaInicio = '01/01/2006' and fechaFinal = '31/12/2006' and tipo "
               u"= 'Monto' and concepto = 'FAC'  and CantidadInicio = 1 and cantidadfinal = 10 and "
               u"porcentaje = 5  and calculo = 'Neto'"_s}));
}

TEST_F(RecordWriteLines, AChangedPriceListLineIsUpdatedByItsSavedCopies) {
    storeLines(u"Precio"_s, {lineRow(u"MAY"_s, u"Mayorista"_s, 0, 0, 5)});
    read();
    table.Precios(1).setTextValue(3, u"6"_s);
    table.Precios(1).setTextValue(4, u"Total"_s);
    EXPECT_EQ(
        lineCalls(),
        (Calls{u"UPDATE ComisionesD SET concepto='MAY', descripcion='Mayorista', "
               u"CantidadInicio=0,CantidadFinal=0, Porcentaje = 6, Calculo ='Total' WHERE Empresa = '01' "
               u"and codigo = 'C1' and fechaInicio = '01/01/2006' and fechaFinal = '31/12/2006' and tipo "
               u"= 'Precio' and concepto = 'MAY'  and porcentaje = 5 and calculo = 'Neto' "_s}));
}

TEST_F(RecordWriteLines, RemovedLinesAreDeletedByTheirSavedCopies) {
    storeLines(u"Producto"_s, {lineRow(u"A1"_s, u"Té"_s, 1.5, 10, 5, u"Producto"_s)});
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u""_s, 1, 10, 5)});
    storeLines(u"Precio"_s, {lineRow(u"MAY"_s, u""_s, 0, 0, 5.5)});
    read();
    table.Details(1).setTextValue(6, u"99"_s);
    table.DetailsRemove(1);
    table.MontosRemove(1);
    table.PreciosRemove(1);
    EXPECT_EQ(
        lineCalls(),
        (Calls{u"DELETE FROM ComisionesD WHERE Empresa = '01' and codigo = 'C1' and fechaInicio = "
               u"'01/01/2006' and fechaFinal = '31/12/2006' and tipo = 'Producto' and concepto = 'A1' and "
               u"CantidadInicio = 1.5 and cantidadfinal = 10 and porcentaje = 5 and Subtipo='Producto' "
               u"and calculo = 'Neto'"_s,
               u"DELETE FROM ComisionesD  WHERE Empresa = '01' and codigo = 'C1' and fechaInicio = "
               u"'01/01/2006' and fechaFinal = '31/12/2006' and tipo = 'Monto' and concepto = 'FAC' and "
               u"CantidadInicio = 1 and cantidadfinal = 10 and porcentaje = 5  and calculo = 'Neto'"_s,
               u"DELETE FROM ComisionesD WHERE Empresa = '01' and codigo = 'C1' and fechaInicio = "
               u"'01/01/2006' and fechaFinal = '31/12/2006' and tipo = 'Precio' and concepto = 'MAY' and "
               u"porcentaje = 5.5  and calculo = 'Neto'"_s}));
}

TEST_F(RecordWriteLines, ANewLineThatIsRemovedLeavesNoTrace) {
    read();
    table.DetailsAdd(1).SubTipo = u"Todos"_s;
    table.DetailsRemove(1);
    EXPECT_EQ(lineCalls(), Calls());
}

TEST_F(RecordWriteLines, AStoredLineThatWasEmptiedIsNeitherUpdatedNorInserted) {
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u""_s, 0, 0, 5)});
    read();
    static_cast<MontoValues&>(table.montos(1)) = {};
    const Calls calls = lineCalls();
    ASSERT_EQ(calls.size(), 1U) << "its code changed, so its old row goes";
    EXPECT_TRUE(calls[0].startsWith(u"DELETE FROM ComisionesD  WHERE "));
}

TEST_F(RecordWriteLines, AStoredLineWithoutACodeThatWasEmptiedStaysAsItIsStored) {
    storeLines(u"Precio"_s, {lineRow(u""_s, u""_s, 0, 0, 5)});
    read();
    static_cast<PrecioValues&>(table.Precios(1)) = {};
    EXPECT_EQ(lineCalls(), Calls());
}

TEST_F(RecordWriteLines, AChangedCodeDeletesTheOldRowAndInsertsANewOne) {
    storeLines(u"Producto"_s, {lineRow(u"A1"_s, u"Té"_s, 1, 10, 5, u"Producto"_s)});
    read();
    table.Details(1).Producto = u"B2"_s;
    const Calls calls = lineCalls();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[0].startsWith(u"DELETE FROM ComisionesD ") && calls[0].contains(u"concepto = 'A1'"));
    EXPECT_TRUE(calls[1].startsWith(u"INSERT INTO ComisionesD ") && calls[1].contains(u"'Producto', 'B2'"));
    EXPECT_FALSE(table.Details(1).SysRecordFound);
}

TEST_F(RecordWriteLines, ACodeThatChangedInCaseOnlyIsUpdated) {
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u""_s, 1, 10, 5)});
    storeLines(u"Precio"_s, {lineRow(u"MAY"_s, u""_s, 0, 0, 5)});
    read();
    table.montos(1).Documento = u"fac"_s;
    table.Precios(1).ListaPrecio = u"may"_s;
    const Calls calls = lineCalls();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[0].startsWith(u"UPDATE ComisionesD SET concepto='fac', "));
    EXPECT_TRUE(calls[1].startsWith(u"UPDATE ComisionesD SET concepto='may', "));
}

TEST_F(RecordWriteLines, EachKindDeletesThenUpdatesThenInserts) {
    storeLines(u"Monto"_s, {lineRow(u"A"_s, u""_s, 0, 1, 5), lineRow(u"B"_s, u""_s, 0, 1, 5),
                            lineRow(u"C"_s, u""_s, 0, 1, 5)});
    storeLines(u"Producto"_s, {lineRow(u"P"_s, u""_s, 0, 1, 5, u"Producto"_s)});
    read();
    table.montos(1).Documento = u"Z"_s;
    table.montos(2).setTextValue(4, u"6"_s);
    table.MontosRemove(3);
    table.MontosAdd(1).setTextValue(5, u"Neto"_s);
    table.Details(1).setTextValue(6, u"6"_s);
    QStringList begins;
    for (const QString& call : lineCalls())
        begins += call.section(u' ', 0, 0) + (call.contains(u"'Producto'") ? u'P' : u'M');
    EXPECT_EQ(begins, (QStringList{u"UPDATEP"_s, u"DELETEM"_s, u"DELETEM"_s, u"UPDATEM"_s, u"INSERTM"_s,
                                   u"INSERTM"_s}));
}

TEST_F(RecordWriteLines, ANewRecordSendsNoDeletesAndNoUpdates) {
    storeLines(u"Monto"_s, {lineRow(u"A"_s, u""_s, 0, 1, 5), lineRow(u"B"_s, u""_s, 0, 1, 5)});
    read();
    table.montos(1).setTextValue(4, u"6"_s);
    table.MontosRemove(2);
    table.SysRecordFound = false;
    EXPECT_EQ(lineCalls(), Calls());
}
