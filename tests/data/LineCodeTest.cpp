#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class LineCode : public RecordTest {
protected:
    DBDetail& detail = table.Details(1);
    DBMonto& monto = table.montos(1);
    DBPrecio& precio = table.Precios(1);
};

} // namespace

TEST_F(LineCode, AProductIsLookedUpAndStoredInCapitalsWithItsDescription) {
    database.answer(u"FROM PRODUCTO "_s, {u"Producto"_s, u"Glosa"_s}, {{u"chai1"_s, u"Té chai"_s}});
    detail.SubTipo = u"Producto"_s;
    detail.setTextValue(2, u"  Chai1 "_s);
    expectCalls({u"SELECT Producto, Glosa FROM PRODUCTO WHERE EMPRESA = '01' AND Producto = 'Chai1' "_s});
    EXPECT_EQ(detail.Producto, u"CHAI1"_s);
    EXPECT_EQ(detail.Descripcion, u"Té chai"_s);
    expectSilence();
}

TEST_F(LineCode, EachGroupHasItsOwnStatementAndNoDescription) {
    struct Case {
        QString subTipo, field, statement;
    };
    for (const Case& group :
         {Case{u"Familia"_s, u"familia"_s,
               u"SELECT distinct( familia ), '' as glosa from producto WHERE Empresa='01'  and familia <> ' "
               u"'  "
               u"and familia = 'beb' "_s},
          Case{u"SubFamilia"_s, u"Subfamilia"_s,
               u"SELECT distinct( Subfamilia ), '' as glosa from producto WHERE Empresa='01'  and Subfamilia "
               u"<> ' '  "
               u"and Subfamilia = 'beb' "_s},
          Case{u"TipoProducto"_s, u"TipoProducto"_s,
               u"SELECT distinct( TipoProducto ), '' as glosa from producto WHERE Empresa='01' "
               u"and TipoProducto = 'beb' "_s}}) {
        database.answers.clear();
        database.answer(u"from producto"_s, {group.field, u"glosa"_s}, {{u"Beb"_s, u""_s}});
        detail.SubTipo = group.subTipo;
        detail.Descripcion = u"antes"_s;
        detail.setTextValue(2, u"beb"_s);
        expectCalls({group.statement});
        EXPECT_EQ(detail.Producto, u"BEB"_s);
        EXPECT_EQ(detail.Descripcion, u""_s);
    }
    expectSilence();
}

TEST_F(LineCode, ACodeThatDoesNotExistIsToldByItsKind) {
    detail.Producto = u"ANTES"_s;
    detail.Descripcion = u"antes"_s;
    for (const QString& subTipo : {u"Producto"_s, u"Familia"_s, u"SubFamilia"_s, u"TipoProducto"_s}) {
        detail.SubTipo = subTipo;
        detail.setTextValue(2, u"ABC"_s);
        expectTold({{subTipo + u" 'ABC' no existe "_s, 64}});
    }
    EXPECT_EQ(detail.Producto, u"ANTES"_s);
    EXPECT_EQ(detail.Descripcion, u"antes"_s);
}

TEST_F(LineCode, TheCheckItselfTellsWhetherTheCodeExists) {
    detail.SubTipo = u"Familia"_s;
    EXPECT_FALSE(detail.Valida_Producto(u"X"_s));
    EXPECT_FALSE(monto.Valida_Documento(u"X"_s));
    EXPECT_FALSE(precio.Valida_ListaPrecio(u"X"_s));
    detail.SubTipo = u"Todos"_s;
    EXPECT_TRUE(detail.Valida_Producto(u"X"_s));
    EXPECT_TRUE(monto.Valida_Documento(u"todos"_s));
    EXPECT_TRUE(precio.Valida_ListaPrecio(u"todas"_s));
}

TEST_F(LineCode, TodosInAnyCaseMeansAllProductsInAProductLineOnly) {
    detail.SubTipo = u"Producto"_s;
    detail.Descripcion = u"antes"_s;
    detail.setTextValue(2, u"todos"_s);
    EXPECT_EQ(detail.Producto, u"Todos"_s);
    EXPECT_EQ(detail.Descripcion, u""_s);
    expectSilence();
    detail.SubTipo = u"Familia"_s;
    detail.setTextValue(2, u"todos"_s);
    expectTold({{u"Familia 'todos' no existe "_s, 64}});
    EXPECT_EQ(detail.Producto, u"Todos"_s);
}

TEST_F(LineCode, AProductThatIsReallyCalledTodosMeansAllProductsToo) {
    database.answer(u"FROM PRODUCTO "_s, {u"Producto"_s, u"Glosa"_s}, {{u"TODOS"_s, u"Glosa"_s}});
    detail.SubTipo = u"Producto"_s;
    detail.setTextValue(2, u"TODOS"_s);
    EXPECT_EQ(detail.Producto, u"Todos"_s);
    EXPECT_EQ(detail.Descripcion, u""_s);
}

TEST_F(LineCode, AnotherKindLooksNothingUpAndStoresNothing) {
    for (const QString& subTipo : {u"Todos"_s, u""_s, u"producto"_s}) {
        detail.SubTipo = subTipo;
        detail.setTextValue(2, u"ABC"_s);
        EXPECT_EQ(detail.Producto, u""_s);
    }
    expectCalls({});
    expectSilence();
}

TEST_F(LineCode, AnEmptyEntryClearsAProductLineButNoOther) {
    detail.Producto = u"P"_s;
    detail.Descripcion = u"D"_s;
    monto.Documento = u"FAC"_s;
    precio.ListaPrecio = u"L1"_s;
    precio.Descripcion = u"D"_s;
    detail.setTextValue(2, u"   "_s);
    monto.setTextValue(1, u""_s);
    precio.setTextValue(1, u" "_s);
    EXPECT_EQ(detail.Producto, u""_s);
    EXPECT_EQ(detail.Descripcion, u""_s);
    EXPECT_EQ(monto.Documento, u"FAC"_s);
    EXPECT_EQ(precio.ListaPrecio, u"L1"_s);
    EXPECT_EQ(precio.Descripcion, u"D"_s);
    expectCalls({});
    expectSilence();
}

TEST_F(LineCode, ADocumentIsLookedUpAndStoredAsItsRowHasIt) {
    database.answer(u"tipodocumento"_s, {u"TipoDocto"_s, u"clase"_s}, {{u"Factura"_s, u"fac"_s}});
    monto.setTextValue(1, u"factura"_s);
    expectCalls({u"Select TipoDocto ,clase from tipodocumento WHERE EMPRESA = '01' and sistema = 'ventas' "
                 u"and valorizado = 'S' and Vendedor = 'S' and tipodocto = 'factura'"_s});
    EXPECT_EQ(monto.Documento, u"Factura"_s);
    expectSilence();
}

TEST_F(LineCode, AnUnknownDocumentIsToldAsAProduct) {
    monto.setTextValue(1, u"XX"_s);
    expectTold({{u"Producto 'XX' no existe "_s, 64}});
    EXPECT_EQ(monto.Documento, u""_s);
}

TEST_F(LineCode, TodosMeansAllDocuments) {
    monto.setTextValue(1, u"todos"_s);
    EXPECT_EQ(monto.Documento, u"TODOS"_s);
    expectSilence();
}

TEST_F(LineCode, APriceListIsLookedUpAndStoredWithItsDescription) {
    database.answer(u"FROM ListaPrecio"_s, {u"LisPrecio"_s, u"Descripcion"_s}, {{u"May"_s, u"Mayorista"_s}});
    precio.setTextValue(1, u"may"_s);
    expectCalls(
        {u" SELECT LisPrecio,Descripcion FROM ListaPrecio WHERE EMPRESA = '01' AND LisPrecio = 'may' "_s});
    EXPECT_EQ(precio.ListaPrecio, u"May"_s);
    EXPECT_EQ(precio.Descripcion, u"Mayorista"_s);
}

TEST_F(LineCode, AnUnknownPriceListIsTold) {
    precio.setTextValue(1, u"XX"_s);
    expectTold({{u"Lista de Precios 'XX' no existe "_s, 64}});
}

TEST_F(LineCode, TodasMeansAllPriceLists) {
    precio.Descripcion = u"Mayorista"_s;
    precio.setTextValue(1, u"TODAS"_s);
    EXPECT_EQ(precio.ListaPrecio, u"Todas"_s);
    EXPECT_EQ(precio.Descripcion, u""_s);
    expectSilence();
}

TEST_F(LineCode, CodesAreCutBeforeTheyAreLookedUp) {
    detail.SubTipo = u"Producto"_s;
    detail.setTextValue(2, QString(10000, u'p'));
    monto.setTextValue(1, QString(10000, u'd'));
    precio.setTextValue(1, QString(10000, u'l'));
    expectTold({{u"Producto '"_s + QString(20, u'p') + u"' no existe "_s, 64},
                {u"Producto '"_s + QString(40, u'd') + u"' no existe "_s, 64},
                {u"Lista de Precios '"_s + QString(20, u'l') + u"' no existe "_s, 64}});
}

TEST_F(LineCode, AQuoteInACodeStaysInsideItsLiteral) {
    detail.SubTipo = u"Producto"_s;
    detail.setTextValue(2, u"x' or '1'='1"_s);
    expectCalls(
        {u"SELECT Producto, Glosa FROM PRODUCTO WHERE EMPRESA = '01' AND Producto = 'x'' or ''1''=''1' "_s});
}

TEST_F(LineCode, ACodeThatReadsLikeAPlaceholderIsLookedUpAsItIs) {
    monto.setTextValue(1, u"$Empresa$"_s);
    expectCalls({u"Select TipoDocto ,clase from tipodocumento WHERE EMPRESA = '01' and sistema = 'ventas' "
                 u"and valorizado = 'S' and Vendedor = 'S' and tipodocto = '$Empresa$'"_s});
}

TEST_F(LineCode, ANullInTheFoundRowIsAnEmptyText) {
    database.answer(u"FROM PRODUCTO "_s, {u"Producto"_s, u"Glosa"_s}, {{u"A"_s, Value::Null{}}});
    detail.SubTipo = u"Producto"_s;
    detail.setTextValue(2, u"a"_s);
    EXPECT_EQ(detail.Producto, u"A"_s);
    EXPECT_EQ(detail.Descripcion, u""_s);
}

TEST_F(LineCode, AFailedLookupNamesTheProductTableWhateverWasLookedUp) {
    detail.SubTipo = u"Familia"_s;
    detail.Producto = u"ANTES"_s;
    const Message told{u"Error al leer tabla de productos\n61 - Disco lleno"_s, 16};
    plan.atStatement = 1;
    detail.setTextValue(2, u"A"_s);
    expectTold({told});
    EXPECT_EQ(detail.Producto, u"ANTES"_s);
    plan.atStatement = 2;
    EXPECT_FALSE(monto.Valida_Documento(u"A"_s));
    expectTold({told});
    plan.atStatement = 3;
    EXPECT_FALSE(precio.Valida_ListaPrecio(u"A"_s));
    expectTold({told});
}

TEST_F(LineCode, ALostConnectionIsToldOnceAndTheNextLookupGoesWell) {
    database.answer(u"tipodocumento"_s, {u"TipoDocto"_s, u"clase"_s}, {{u"FAC"_s, u"fac"_s}});
    plan.atStatement = 1;
    plan.error = RunTimeError(quorvane::ErrorConnectionLost, u"Conexión perdida"_s);
    monto.setTextValue(1, u"FAC"_s);
    expectTold({{u"Error al leer tabla de productos\n3709 - Conexión perdida"_s, 16}});
    monto.setTextValue(1, u"FAC"_s);
    EXPECT_EQ(monto.Documento, u"FAC"_s);
    expectSilence();
}
