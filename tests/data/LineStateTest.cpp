#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class LineState : public RecordTest {
protected:
    DBDetail& detail = table.Details(1);
    DBMonto& monto = table.montos(1);
    DBPrecio& precio = table.Precios(1);
};

/// Every column of a line, one past its last included.
QStringList texts(const CommissionLine& line, int columns) {
    QStringList all;
    for (int column = 1; column <= columns + 1; ++column)
        all += line.TextValue(column);
    return all;
}

} // namespace

TEST_F(LineState, ColumnsAreNumberedAsTheGridsAre) {
    static_cast<DetailValues&>(detail) = {u"Familia"_s, u"BEB"_s, u"Bebidas"_s, 1.5, 20, 12.5, u"Neto"_s};
    static_cast<MontoValues&>(monto) = {u"FAC"_s, 1000, 2500.25, 7, u"Total"_s};
    static_cast<PrecioValues&>(precio) = {u"MAY"_s, u"Mayorista"_s, 3, u"Neto"_s};
    EXPECT_EQ(texts(detail, 7), (QStringList{u"Familia"_s, u"BEB"_s, u"Bebidas"_s, u"1,5"_s, u"20"_s,
                                             u"12,50"_s, u"Neto"_s, u""_s}));
    EXPECT_EQ(texts(monto, 5),
              (QStringList{u"FAC"_s, u"1000"_s, u"2500,25"_s, u"7,00"_s, u"Total"_s, u""_s}));
    EXPECT_EQ(texts(precio, 4), (QStringList{u"MAY"_s, u"Mayorista"_s, u"3,00"_s, u"Neto"_s, u""_s}));
    EXPECT_EQ(detail.TextValue(0), u""_s);
    EXPECT_EQ(detail.TextValue(-1), u""_s);
}

TEST_F(LineState, APercentageIsShownGroupedWithTwoDecimals) {
    detail.Porcentaje = 1234.5;
    EXPECT_EQ(detail.TextValue(6), u"1.234,50"_s);
    regional = {u'.', u',', u'/'};
    EXPECT_EQ(detail.TextValue(6), u"1,234.50"_s);
}

TEST_F(LineState, AnEmptyLineShowsZeros) {
    EXPECT_EQ(texts(monto, 5), (QStringList{u""_s, u"0"_s, u"0"_s, u"0,00"_s, u""_s, u""_s}));
}

TEST_F(LineState, EveryColumnHasAListOfOneEmptyText) {
    for (const CommissionLine* line :
         {static_cast<CommissionLine*>(&detail), static_cast<CommissionLine*>(&monto),
          static_cast<CommissionLine*>(&precio)})
        for (const int column : {0, 1, 7, 99})
            EXPECT_EQ(line->ListValue(column), QStringList{u""_s});
}

TEST_F(LineState, ALineIsNullWhileEveryValueIsEmpty) {
    EXPECT_TRUE(detail.SysRecordNull() && monto.SysRecordNull() && precio.SysRecordNull());
    for (const int column : {1, 3, 4, 5, 6, 7}) {
        DBDetail& line = table.DetailsAdd();
        line.setTextValue(column, u"1"_s);
        EXPECT_FALSE(line.SysRecordNull()) << column;
    }
    for (const int column : {2, 3, 4, 5}) {
        DBMonto& line = table.MontosAdd();
        line.setTextValue(column, u"1"_s);
        EXPECT_FALSE(line.SysRecordNull()) << column;
    }
    for (const int column : {2, 3, 4}) {
        DBPrecio& line = table.PreciosAdd();
        line.setTextValue(column, u"1"_s);
        EXPECT_FALSE(line.SysRecordNull()) << column;
    }
    detail.Producto = u"A"_s;
    monto.Documento = u"A"_s;
    precio.ListaPrecio = u"A"_s;
    EXPECT_FALSE(detail.SysRecordNull() || monto.SysRecordNull() || precio.SysRecordNull());
}

TEST_F(LineState, ALineIsModifiedWhileAnyValueDiffersFromItsSavedCopy) {
    EXPECT_FALSE(detail.SysRecordModified());
    detail.setTextValue(1, u"Todos"_s);
    EXPECT_TRUE(detail.SysRecordModified());
    detail.PostRead();
    EXPECT_FALSE(detail.SysRecordModified());
    EXPECT_EQ(detail.Save.SubTipo, u"Todos"_s);
    detail.setTextValue(1, u"TODOS"_s);
    EXPECT_TRUE(detail.SysRecordModified()) << "texts are compared exactly";
    detail.setTextValue(1, u"Todos"_s);
    EXPECT_FALSE(detail.SysRecordModified());
    monto.setTextValue(3, u"5"_s);
    precio.setTextValue(3, u"5"_s);
    EXPECT_TRUE(monto.SysRecordModified() && precio.SysRecordModified());
}

TEST_F(LineState, AProductLineNeedsItsCodeUnlessItIsForAll) {
    static_cast<DetailValues&>(detail) = {u"Familia"_s, u""_s, u""_s, 0, 0, 5, u"Neto"_s};
    EXPECT_FALSE(detail.Validate());
    EXPECT_EQ(detail.SysErrorCol, 2);
    expectTold({{u"Debe ingresar Familia"_s, 48}});
    detail.SubTipo = u"Todos"_s;
    EXPECT_TRUE(detail.Validate());
    EXPECT_EQ(detail.SysErrorCol, 0);
    detail.SubTipo = u"todos"_s;
    EXPECT_FALSE(detail.Validate());
    expectTold({{u"Debe ingresar todos"_s, 48}});
    detail.SubTipo.clear();
    EXPECT_FALSE(detail.Validate());
    expectTold({{u"Debe ingresar "_s, 48}});
}

TEST_F(LineState, AProductLineNeedsPercentageAndCalculation) {
    static_cast<DetailValues&>(detail) = {u"Todos"_s, u""_s, u""_s, 5, 2, 0, u""_s};
    EXPECT_FALSE(detail.Validate());
    EXPECT_EQ(detail.SysErrorCol, 6);
    expectTold({{u"Debe ingresar Porcentaje"_s, 48}});
    detail.Porcentaje = 5;
    EXPECT_FALSE(detail.Validate());
    EXPECT_EQ(detail.SysErrorCol, 7);
    expectTold({{u"Debe ingresar Calculo"_s, 48}});
    detail.calculo = u"Total"_s;
    EXPECT_TRUE(detail.Validate()) << "brackets are not checked here";
    EXPECT_EQ(detail.SysErrorCol, 0);
    expectSilence();
}

TEST_F(LineState, AnAmountLineNeedsDocumentPercentageAndCalculation) {
    monto.InicioTramo = 1;
    EXPECT_FALSE(monto.Validate());
    EXPECT_EQ(monto.SysErrorCol, 1);
    monto.Documento = u"FAC"_s;
    EXPECT_FALSE(monto.Validate());
    EXPECT_EQ(monto.SysErrorCol, 4);
    monto.Porcentaje = 5;
    EXPECT_FALSE(monto.Validate());
    EXPECT_EQ(monto.SysErrorCol, 5);
    expectTold({{u"Debe ingresar Documento"_s, 48},
                {u"Debe ingresar Porcentaje"_s, 48},
                {u"Debe ingresar Calculo"_s, 48}});
    monto.calculo = u"Neto"_s;
    EXPECT_TRUE(monto.Validate());
    EXPECT_EQ(monto.SysErrorCol, 0);
}

TEST_F(LineState, APriceListLineNeedsPercentageAndCalculationButNoList) {
    precio.Descripcion = u"x"_s;
    EXPECT_FALSE(precio.Validate());
    EXPECT_EQ(precio.SysErrorCol, 3);
    precio.Porcentaje = 5;
    EXPECT_FALSE(precio.Validate());
    EXPECT_EQ(precio.SysErrorCol, 4);
    expectTold({{u"Debe ingresar Porcentaje"_s, 48}, {u"Debe ingresar Calculo"_s, 48}});
    precio.calculo = u"Neto"_s;
    EXPECT_TRUE(precio.Validate());
    EXPECT_EQ(precio.SysErrorCol, 0);
    expectSilence();
}
