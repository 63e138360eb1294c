#include "tests/data/RecordFixture.h"
#include "tests/support/ErrorOf.h"
#include <array>

using namespace dalvora;
using namespace dalvora::test;
using quorvane::test::errorOf;

namespace {

class RecordLines : public RecordTest {};

} // namespace

TEST_F(RecordLines, ANewRecordHasOneEmptyLineOfEachKind) {
    table.DetailsAdd().Producto = u"A"_s;
    table.montos(1).Documento = u"B"_s;
    table.carga_inicio();
    EXPECT_EQ(table.DetailsCount(), 1);
    EXPECT_EQ(table.MontosCount(), 1);
    EXPECT_EQ(table.PreciosCount(), 1);
    EXPECT_TRUE(table.Details(1).SysRecordNull() && table.montos(1).SysRecordNull() &&
                table.Precios(1).SysRecordNull());
}

TEST_F(RecordLines, LinesAreInsertedBeforeAPositionOrAppended) {
    table.Details(1).Producto = u"A"_s;
    table.DetailsAdd().Producto = u"C"_s;
    table.DetailsAdd(2).Producto = u"B"_s;
    table.DetailsAdd(1).Producto = u"0"_s;
    QStringList codes;
    for (int i = 1; i <= table.DetailsCount(); ++i)
        codes += table.Details(i).Producto;
    EXPECT_EQ(codes, (QStringList{u"0"_s, u"A"_s, u"B"_s, u"C"_s}));
    table.montos(1).Documento = u"B"_s;
    table.MontosAdd(1).Documento = u"A"_s;
    table.Precios(1).ListaPrecio = u"B"_s;
    table.PreciosAdd(1).ListaPrecio = u"A"_s;
    EXPECT_EQ(table.montos(2).Documento, u"B"_s);
    EXPECT_EQ(table.Precios(2).ListaPrecio, u"B"_s);
}

TEST_F(RecordLines, APositionOutOfRangeIsAnErrorToTheCaller) {
    for (const int position : {-1, 0, 2}) {
        EXPECT_EQ(errorOf([&] { table.Details(position); }), 9);
        EXPECT_EQ(errorOf([&] { table.montos(position); }), 9);
        EXPECT_EQ(errorOf([&] { table.Precios(position); }), 9);
        EXPECT_EQ(errorOf([&] { table.DetailsAdd(position); }), 9);
        EXPECT_EQ(errorOf([&] { table.MontosAdd(position); }), 9);
        EXPECT_EQ(errorOf([&] { table.PreciosAdd(position); }), 9);
        EXPECT_EQ(errorOf([&] { table.DetailsRemove(position); }), 9);
        EXPECT_EQ(errorOf([&] { table.MontosRemove(position); }), 9);
        EXPECT_EQ(errorOf([&] { table.PreciosRemove(position); }), 9);
    }
    EXPECT_EQ(table.DetailsCount() + table.MontosCount() + table.PreciosCount(), 3);
    expectSilence();
}

TEST_F(RecordLines, RemovingTheOnlyAmountOrPriceListLineLeavesANewEmptyOne) {
    table.montos(1).Documento = u"A"_s;
    table.Precios(1).ListaPrecio = u"A"_s;
    table.MontosRemove(1);
    table.PreciosRemove(1);
    EXPECT_EQ(table.MontosCount(), 1);
    EXPECT_EQ(table.PreciosCount(), 1);
    EXPECT_TRUE(table.montos(1).SysRecordNull() && table.Precios(1).SysRecordNull());
}

TEST_F(RecordLines, RemovingTheOnlyProductLineLeavesNone) {
    table.DetailsRemove(1);
    EXPECT_EQ(table.DetailsCount(), 0);
    EXPECT_EQ(errorOf([&] { table.Details(1); }), 9);
}

TEST_F(RecordLines, TheListsByKindAreTheSameCollections) {
    table.lines(LineKind::Monto).add(1).setTextValue(5, u"Neto"_s);
    EXPECT_EQ(table.montos(1).calculo, u"Neto"_s);
    EXPECT_EQ(&table.lines(LineKind::Producto).line(1), &table.Details(1));
    EXPECT_EQ(&table.lines(LineKind::Precio).line(1), &table.Precios(1));
    EXPECT_EQ(table.lines(LineKind::Monto).count(), 2);
    table.lines(LineKind::Producto).remove(1);
    EXPECT_EQ(table.DetailsCount(), 0);
}

TEST_F(RecordLines, ChoicesBeginWithAnEmptyOne) {
    EXPECT_EQ(table.ListValue(1), (QStringList{u""_s, u"Todos"_s, u"Familia"_s, u"SubFamilia"_s,
                                               u"Producto"_s, u"TipoProducto"_s}));
    EXPECT_EQ(table.ListValue(7), (QStringList{u""_s, u"Neto"_s, u"Total"_s}));
    for (const int column : {0, 2, 6, 8})
        EXPECT_EQ(table.ListValue(column), QStringList{u""_s});
}

TEST_F(RecordLines, AKeyTextIsAcceptedAndChangesNothing) {
    table.setTextValue(2, u"C1"_s);
    EXPECT_TRUE(table.SetKeyByString(u"C2#x"_s));
    EXPECT_EQ(table.Codigo(), u"C1"_s);
}

TEST_F(RecordLines, ReadingIsOfferedWhenNothingIsLoadedAndSavingWhenSomethingIs) {
    EXPECT_TRUE(table.SysAllowRead());
    EXPECT_FALSE(table.SysAllowWrite());
    table.SysRecordEnabled = true;
    EXPECT_FALSE(table.SysAllowRead());
    EXPECT_TRUE(table.SysAllowWrite());
}

TEST_F(RecordLines, DeletingIsOfferedWhenTheRecordIsStoredAndPrintingAlways) {
    EXPECT_FALSE(table.SysAllowDelete());
    EXPECT_TRUE(table.SysAllowExecute());
    table.SysRecordFound = true;
    EXPECT_TRUE(table.SysAllowDelete());
    EXPECT_TRUE(table.SysAllowExecute());
}

TEST_F(RecordLines, RightsAreLettersAtTheirPositionInAnyCase) {
    table.SysRecordFound = true;
    const auto allowed = [this](const QString& rights) {
        session.rights = rights;
        table.SysRecordEnabled = false;
        const bool read = table.SysAllowRead();
        table.SysRecordEnabled = true;
        return std::array{read, table.SysAllowWrite(), table.SysAllowExecute(), table.SysAllowDelete()};
    };
    EXPECT_EQ(allowed(u"rwxd"_s), (std::array{true, true, true, true}));
    EXPECT_EQ(allowed(u"R---"_s), (std::array{true, false, false, false}));
    EXPECT_EQ(allowed(u"--X-"_s), (std::array{false, false, true, false}));
    EXPECT_EQ(allowed(u"RWDX"_s), (std::array{true, true, false, false})) << "the fourth letter deletes";
    EXPECT_EQ(allowed(u"RW"_s), (std::array{true, true, false, false}));
    EXPECT_EQ(allowed(u""_s), (std::array{false, false, false, false}));
}

TEST_F(RecordLines, UnsavedChangesAreChangedDatesLinesAndRemovedLines) {
    storeHeader();
    storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u""_s, 0, 10, 5)});
    readStored();
    EXPECT_FALSE(table.hasUnsavedChanges());
    table.montos(1).setTextValue(4, u"6"_s);
    EXPECT_TRUE(table.hasUnsavedChanges());
    table.montos(1).setTextValue(4, u"5"_s);
    EXPECT_FALSE(table.hasUnsavedChanges());
    table.Precios(1).setTextValue(4, u"Neto"_s);
    EXPECT_TRUE(table.hasUnsavedChanges());
    table.PreciosRemove(1);
    EXPECT_FALSE(table.hasUnsavedChanges());
    table.MontosRemove(1);
    EXPECT_TRUE(table.hasUnsavedChanges());
    table.carga_inicio();
    EXPECT_FALSE(table.hasUnsavedChanges());
    table.SysRecordModified = true;
    EXPECT_TRUE(table.hasUnsavedChanges());
}

TEST_F(RecordLines, AHundredThousandLinesTakeInsertionsAndRemovalsInTheirMiddle) {
    for (int i = 0; i < 100000; ++i)
        table.DetailsAdd();
    for (int i = 0; i < 20; ++i) {
        table.DetailsAdd(50000);
        table.DetailsRemove(1);
    }
    EXPECT_EQ(table.DetailsCount(), 100001);
}
