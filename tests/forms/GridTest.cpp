// Layout of the three detail grids and editing in them.
#include "tests/forms/MainFormTest.h"
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>

using namespace dalvora;
using namespace dalvora::test;

namespace {

class GridTest : public MainFormTest {
protected:
    quorvane::XGrid& products() { return *controls().XGrid; }
    quorvane::XGrid& amounts() { return *controls().XGrid2; }
    quorvane::XGrid& priceLists() { return *controls().XGrid3; }

    /// Shows a grid's tab and puts the cursor on a cell.
    void goTo(int tab, int row, int column) {
        controls().SSTab1->setCurrentIndex(tab);
        quorvane::XGrid& grid = *controls().grids()[static_cast<std::size_t>(tab)];
        grid.setFocus();
        grid.setRow(row);
        grid.setCol(column);
    }
    static QStringList captions(quorvane::XGrid& grid) {
        QStringList result;
        for (int column = 0; column < grid.cols(); ++column)
            result << grid.column(column).caption();
        return result;
    }
    static QList<int> widths(quorvane::XGrid& grid) {
        QList<int> result;
        for (int column = 0; column < grid.cols(); ++column)
            result << grid.column(column).width();
        return result;
    }
};

} // namespace

TEST_P(GridTest, ColumnsOfTheThreeGrids) {
    EXPECT_EQ(captions(products()),
              (QStringList{u""_s, u"Tipo"_s, u"Producto"_s, u"Descripción"_s, u"Inicio Tramo"_s,
                           u"Fin Tramo"_s, u"Porcentaje"_s, u"Calcular en base a:"_s}));
    EXPECT_EQ(widths(products()), (QList<int>{0, 1200, 1800, 2500, 1500, 1500, 1300, 1500}));
    EXPECT_EQ(captions(amounts()), (QStringList{u""_s, u"Documento"_s, u"Monto Inicio"_s, u"Monto Final"_s,
                                                u"Porcentaje"_s, u"Calcular en base a:"_s, u""_s, u""_s}));
    EXPECT_EQ(widths(amounts()), (QList<int>{0, 1800, 1500, 1500, 1300, 1500, 0, 0}));
    EXPECT_EQ(captions(priceLists()),
              (QStringList{u""_s, u"Lista de Precio"_s, u"Descripción"_s, u"Porcentaje"_s,
                           u"Calcular en base a:"_s, u""_s, u""_s, u""_s}));
    EXPECT_EQ(widths(priceLists()), (QList<int>{0, 1800, 2500, 1300, 1500, 0, 0, 0}));
}

TEST_P(GridTest, ListsButtonsAndLocks) {
    EXPECT_EQ(products().column(1).list(),
              (QStringList{u"Todos"_s, u"Familia"_s, u"SubFamilia"_s, u"Producto"_s, u"TipoProducto"_s}));
    EXPECT_EQ(products().column(7).list(), (QStringList{u"Neto"_s, u"Total"_s}));
    EXPECT_EQ(amounts().column(5).list(), (QStringList{u"Neto"_s, u"Total"_s}));
    EXPECT_EQ(priceLists().column(4).list(), (QStringList{u"Neto"_s, u"Total"_s}));
    EXPECT_EQ(products().column(1).kind(), 3);
    EXPECT_EQ(products().column(2).kind(), 1);
    EXPECT_EQ(products().column(2).buttonText(), u"?"_s);
    EXPECT_EQ(amounts().column(1).buttonText(), u"?"_s);
    EXPECT_EQ(priceLists().column(1).buttonText(), u"?"_s);
    EXPECT_TRUE(products().column(3).readOnly());
    EXPECT_TRUE(priceLists().column(2).readOnly());
    EXPECT_EQ(products().column(4).alignment(), 7);
    EXPECT_EQ(products().column(3).alignment(), 1);
}

TEST_P(GridTest, AmountsKeepTheControlsOwnFirstColour) {
    EXPECT_EQ(products().firstColor() & 0xFFFFFF, 0xE0E0E0U);
    EXPECT_EQ(priceLists().firstColor() & 0xFFFFFF, 0xE0E0E0U);
    EXPECT_EQ(amounts().firstColor(), quorvane::XGrid().firstColor());
    for (quorvane::XGrid* grid : controls().grids())
        EXPECT_EQ(grid->fourthColor() & 0xFFFFFF, 0xFFCECEU);
}

TEST_P(GridTest, FocusDetailCellOutsideTheRowsOnlySwitchesTheTab) {
    readC1();
    goTo(1, 1, 3);
    for (const int row : {0, amounts().rows()}) {
        table().Grilla = 2;
        goTo(0, 1, 1);
        FocusDetailCell(controls(), table(), 4, row, 1);
        EXPECT_EQ(controls().SSTab1->currentIndex(), 1);
        EXPECT_TRUE(amounts().isAncestorOf(QApplication::focusWidget()));
        EXPECT_EQ(amounts().row(), 1);
        EXPECT_EQ(amounts().col(), 3);
    }
}

TEST_P(GridTest, FocusDetailCellNeedsALineErrorAndTakesColumnOneForNone) {
    readC1();
    table().Grilla = 3;
    FocusDetailCell(controls(), table(), 4, 1, 0);
    EXPECT_EQ(controls().SSTab1->currentIndex(), 0);
    FocusDetailCell(controls(), table(), 0, 1, 1);
    EXPECT_EQ(controls().SSTab1->currentIndex(), 2);
    EXPECT_EQ(priceLists().col(), 1);
    EXPECT_TRUE(priceLists().isAncestorOf(QApplication::focusWidget()));
    table().Grilla = 0;
    FocusDetailCell(controls(), table(), 1, 1, 1);
    EXPECT_EQ(controls().SSTab1->currentIndex(), 2);
}

TEST_P(GridTest, CaptionRowIsTintedUnlessTheGridHasNoRow) {
    const auto captionColour = [](quorvane::XGrid& grid) {
        const QImage picture = grid.grab().toImage();
        return picture.pixelColor(picture.width() - 10, 6).rgb();
    };
    EXPECT_EQ(captionColour(products()), qRgb(0xE0, 0xE0, 0xFF));
    products().setRows(0);
    EXPECT_EQ(products().rows(), 0);
    SetupGrids(controls(), table());
    EXPECT_EQ(products().fourthColor() & 0xFFFFFF, 0xFFCECEU);
    EXPECT_EQ(products().firstColor() & 0xFFFFFF, 0xE0E0E0U);
}

TEST_P(GridTest, ShowsTheLinesAndAnEntryRow) {
    readC1();
    EXPECT_EQ(products().rows(), 3);
    EXPECT_EQ(products().text(1, 2), u"P1"_s);
    EXPECT_EQ(products().text(1, 6), u"5,00"_s);
    EXPECT_EQ(products().text(2, 1), QString());
    EXPECT_EQ(amounts().text(1, 1), u"FACTURA"_s);
    EXPECT_EQ(priceLists().text(1, 2), u"Mayorista"_s);
}

TEST_P(GridTest, AnotherTypeClearsTheCodeTheSameInOtherLettersDoesNot) {
    readC1();
    QString same = u"PRODUCTO"_s;
    enterCell(products(), 1, 1, u"Producto"_s);
    EXPECT_EQ(products().text(1, 2), u"P1"_s);
    goTo(0, 1, 1);
    QGuiApplication::clipboard()->setText(same);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(products().text(1, 2), u"P1"_s);
    enterCell(products(), 1, 1, u"Familia"_s);
    EXPECT_EQ(products().text(1, 1), u"Familia"_s);
    EXPECT_EQ(products().text(1, 2), QString());
    EXPECT_EQ(products().text(1, 3), QString());
    expectSilence();
}

TEST_P(GridTest, ARefusedValueGivesItsMessageOnceAndTheOldValueBack) {
    readC1();
    enterCell(products(), 1, 6, u"100,01"_s);
    expectTold({{u"Porcentaje inválido(a)"_s, 64}});
    press(Qt::Key_Escape);
    EXPECT_EQ(products().text(1, 6), u"5,00"_s);
    enterCell(products(), 1, 6, u"abc"_s);
    expectTold({{u"Porcentaje inválido(a)"_s, 48}});
    enterCell(products(), 1, 6, u"1e400"_s);
    EXPECT_EQ(recorder.take().size(), 1U);
    EXPECT_EQ(products().text(1, 6), u"5,00"_s);
}

TEST_P(GridTest, MovingPastTheLastRowAddsOneEmptyLineOnly) {
    readC1();
    goTo(0, 2, 1);
    press(Qt::Key_Down);
    EXPECT_EQ(products().rows(), 3);
    enterCell(products(), 2, 1, u"Todos"_s);
    goTo(0, 2, 1);
    press(Qt::Key_Down);
    EXPECT_EQ(products().rows(), 4);
    press(Qt::Key_Down);
    EXPECT_EQ(products().rows(), 4);
    EXPECT_EQ(table().DetailsCount(), 3);
}

TEST_P(GridTest, DeleteAsksForALineWithValuesOnly) {
    readC1();
    goTo(0, 1, 1);
    recorder.answer(ButtonNo);
    press(Qt::Key_Delete);
    expectTold({{u"¿ Seguro de eliminar fila ?"_s, 36}});
    EXPECT_EQ(table().DetailsCount(), 2);
    goTo(0, 2, 1);
    press(Qt::Key_Delete);
    expectSilence();
    EXPECT_EQ(table().DetailsCount(), 1);
}

TEST_P(GridTest, DeletingTheLastProductStartsAllThreeCollectionsAnew) {
    readC1();
    goTo(0, 2, 1);
    press(Qt::Key_Delete);
    goTo(0, 1, 1);
    press(Qt::Key_Delete);
    EXPECT_EQ(recorder.take().size(), 1U);
    for (quorvane::XGrid* grid : controls().grids())
        EXPECT_EQ(grid->rows(), 2);
    EXPECT_EQ(amounts().text(1, 1), QString());
}

TEST_P(GridTest, InsertPutsALineAboveTheCurrentOne) {
    readC1();
    goTo(0, 1, 1);
    press(Qt::Key_Insert);
    EXPECT_EQ(products().rows(), 4);
    EXPECT_EQ(products().text(1, 2), QString());
    EXPECT_EQ(products().text(2, 2), u"P1"_s);
    products().setRow(0);
    int insert = 45;
    DetailGrid(products(), LineKind::Producto, {context, *this, products(), [] {}}).keyDown(insert, {});
    EXPECT_EQ(table().DetailsCount(), 3);
}

TEST_P(GridTest, CodeOfAProductLineNeedsItsType) {
    readC1();
    goTo(0, 2, 2);
    press(Qt::Key_F2);
    expectTold({{u"Debe Ingresar Tipo"_s, 48}});
    enterCell(products(), 2, 1, u"Todos"_s);
    goTo(0, 2, 2);
    type(u"x"_s);
    expectTold({{u"Se seleccionaron todos los productos"_s, 48}});
    EXPECT_FALSE(products().isEditing());
    press(Qt::Key_F8);
    EXPECT_TRUE(calls.isEmpty());
}

TEST_P(GridTest, LookupByTypeStoresTheChosenCode) {
    readC1();
    chosen = {u"P2"_s, u"Té"_s};
    goTo(0, 1, 2);
    press(Qt::Key_F8);
    EXPECT_EQ(products().text(1, 2), u"P2"_s);
    EXPECT_EQ(products().text(1, 3), u"Té"_s);
    for (const auto& [type, code] : {std::pair{u"Familia"_s, u"BEBIDAS"_s},
                                     {u"SubFamilia"_s, u"CALIENTES"_s},
                                     {u"TipoProducto"_s, u"PT"_s}}) {
        enterCell(products(), 1, 1, type);
        chosen = {code};
        goTo(0, 1, 2);
        press(Qt::Key_F8);
        EXPECT_EQ(products().text(1, 2), code);
    }
    EXPECT_EQ(calls, (QStringList{u"ProductoComision@DALVORA.qry#01"_s,
                                  u"LISTAPRECIO_FAMILIA@DALVORA.QRY#FAMILIA#01#  "_s,
                                  u"LISTAPRECIO_SUBFAMILIA@DALVORA.QRY#SUBFAMILIA#01#  "_s,
                                  u"TIPOPRODUCTO@DALVORA.QRY#01"_s}));
    expectSilence();
}

TEST_P(GridTest, LookupsOfAmountsAndPriceLists) {
    readC1();
    goTo(1, 2, 1);
    chosen = {u"FACTURA"_s};
    press(Qt::Key_F8);
    EXPECT_EQ(amounts().text(2, 1), u"FACTURA"_s);
    goTo(2, 2, 1);
    chosen = {u"L1"_s, u"Mayorista"_s};
    press(Qt::Key_F8);
    EXPECT_EQ(priceLists().text(2, 2), u"Mayorista"_s);
    EXPECT_EQ(calls, (QStringList{u"DocumentosComision@DALVORA.qry#01"_s,
                                  u"LISTAPRECIOCOMISION@DALVORA.qry#01#01/01/2006#31/12/2006"_s}));
    calls.clear();
    chosen.clear();
    press(Qt::Key_F8);
    EXPECT_EQ(priceLists().text(2, 1), u"L1"_s);
}

TEST_P(GridTest, PriceListsNeedTheDates) {
    goTo(2, 1, 3);
    press(Qt::Key_F2);
    expectTold({{u"Debe Ingresar Fechas"_s, 48}});
    enter(*controls().FecIni, u"01/01/2006"_s);
    products().setCol(1);
    goTo(2, 1, 3);
    press(Qt::Key_F2);
    expectTold({{u"Debe Ingresar Fechas"_s, 48}});
    products().setCol(2);
    goTo(2, 1, 3);
    press(Qt::Key_F2);
    expectSilence();
    EXPECT_TRUE(priceLists().isEditing());
}

TEST_P(GridTest, PastedBlockGoesThroughTheSameChecksAndAddsRows) {
    readC1();
    QGuiApplication::clipboard()->setText(
        u"Producto\tp2\t\t1\t5\t3,5\tNeto\nFamilia\tBEBIDAS\t\t0\t9\t4\nTodos"_s);
    goTo(0, 2, 1);
    press(Qt::Key_V, Qt::ControlModifier);
    expectSilence();
    EXPECT_EQ(products().text(2, 2), u"P2"_s);
    EXPECT_EQ(products().text(2, 3), u"Té"_s);
    EXPECT_EQ(products().text(2, 6), u"3,50"_s);
    EXPECT_EQ(products().text(3, 2), u"BEBIDAS"_s);
    EXPECT_EQ(products().text(4, 1), u"Todos"_s);
}

TEST_P(GridTest, ARefusedCellStopsAPasteAfterOneMessage) {
    readC1();
    QString block;
    for (int i = 0; i < 1000; ++i)
        block += u"Producto\tNADA\n"_s;
    QGuiApplication::clipboard()->setText(block);
    goTo(0, 2, 1);
    press(Qt::Key_V, Qt::ControlModifier);
    expectTold({{u"Producto 'NADA' no existe "_s, 64}});
}

TEST_P(GridTest, HostileTextsInEveryCellAreHarmless) {
    readC1();
    const QString hostile[] = {u"'; DELETE FROM producto; --"_s, QString(10000, u'9'), u"%_[]\"😀"_s,
                               QString(QChar(u'\0'))};
    for (const QString& text : hostile) {
        for (int column : {2, 4, 5, 6}) {
            goTo(0, 1, column);
            QGuiApplication::clipboard()->setText(text);
            press(Qt::Key_V, Qt::ControlModifier);
        }
    }
    recorder.take();
    EXPECT_EQ(rows(u"SELECT count(*) FROM producto"_s), QStringList{u"2"_s});
    EXPECT_EQ(products().text(1, 2), u"P1"_s);
}

TEST_P(GridTest, AnEntryInProgressStaysWhileNothingHappens) {
    readC1();
    goTo(0, 1, 6);
    type(u"7,5"_s);
    QTest::qWait(400);
    EXPECT_TRUE(products().isEditing());
}

INSTANTIATE_TEST_SUITE_P(Engines, GridTest, testing::ValuesIn(windowEngines), engineName);
