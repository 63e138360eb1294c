#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

const Message badValue{u"Valor inválido(a)"_s, 48};
const Message badPrice{u"Precio inválido(a)"_s, 48};
const Message badPercentage{u"Porcentaje inválido(a)"_s, 48};
const Message softPercentage{u"Porcentaje inválido(a)"_s, 64};
const Message startAboveEnd{u"Inicio de Tramo debe ser menor que Fin de Tramo"_s, 48};
const Message endBelowStart{u"Fin Tramo debe ser mayor que Inicio de Tramo"_s, 48};
const Message badColumn{u"Columna inválida"_s, 16};

class LineAssign : public RecordTest {
protected:
    LineAssign() { table.SysDecimales = 2; }
    DBDetail& detail = table.Details(1);
    DBMonto& monto = table.montos(1);
    DBPrecio& precio = table.Precios(1);
};

} // namespace

TEST_F(LineAssign, TextsAreTrimmedAndCut) {
    detail.setTextValue(1, u"  Familia "_s);
    EXPECT_EQ(detail.SubTipo, u"Familia"_s);
    detail.setTextValue(1, QString(60, u'x'));
    EXPECT_EQ(detail.SubTipo, QString(50, u'x'));
    detail.setTextValue(3, QString(60, u'd'));
    EXPECT_EQ(detail.Descripcion, QString(50, u'd'));
    detail.setTextValue(7, QString(60, u'c'));
    EXPECT_EQ(detail.calculo, QString(50, u'c'));
    monto.setTextValue(5, QString(60, u'c'));
    EXPECT_EQ(monto.calculo, QString(20, u'c'));
    precio.setTextValue(2, QString(60, u'd'));
    EXPECT_EQ(precio.Descripcion, QString(50, u'd'));
    precio.setTextValue(4, QString(60, u'c'));
    EXPECT_EQ(precio.calculo, QString(20, u'c'));
    expectSilence();
}

TEST_F(LineAssign, AnUnknownColumnIsTold) {
    for (const int column : {-1, 0, 8})
        detail.setTextValue(column, u"x"_s);
    expectTold({badColumn, badColumn, badColumn});
    monto.setTextValue(6, u"x"_s);
    precio.setTextValue(5, u"x"_s);
    expectTold({badColumn, badColumn});
    EXPECT_TRUE(detail.SysRecordNull() && monto.SysRecordNull() && precio.SysRecordNull());
}

TEST_F(LineAssign, AnAssignmentForgetsTheLastFailedCheck) {
    detail.SysErrorCol = 6;
    detail.setTextValue(1, u"Todos"_s);
    EXPECT_EQ(detail.SysErrorCol, 0);
}

TEST_F(LineAssign, BracketsTakeTheQuantityDecimals) {
    detail.setTextValue(4, u"1.000,125"_s);
    detail.setTextValue(5, u"2.000,135"_s);
    EXPECT_EQ(detail.InicioTramo, 1000.12);
    EXPECT_EQ(detail.FinTramo, 2000.14);
    EXPECT_EQ(detail.TextValue(4), u"1000,12"_s);
    EXPECT_EQ(detail.TextValue(5), u"2000,14"_s);
}

TEST_F(LineAssign, AnEmptyBracketEntryMeansOne) {
    detail.setTextValue(5, u""_s);
    detail.setTextValue(4, u""_s);
    EXPECT_EQ(detail.InicioTramo, 1);
    EXPECT_EQ(detail.FinTramo, 1);
    expectSilence();
}

TEST_F(LineAssign, WithoutQuantityDecimalsOnlyTheStartOfAnAmountKeepsItsDecimals) {
    table.SysDecimales = 0;
    detail.setTextValue(4, u"2,5"_s);
    EXPECT_EQ(detail.InicioTramo, 2);
    detail.setTextValue(5, u"3,5"_s);
    EXPECT_EQ(detail.FinTramo, 4);
    monto.setTextValue(2, u"2,12345"_s);
    EXPECT_EQ(monto.InicioTramo, 2.12345);
    monto.setTextValue(3, u"3,5"_s);
    EXPECT_EQ(monto.FinTramo, 4);
    table.SysDecimales = 2;
    monto.setTextValue(2, u"2,12345"_s);
    EXPECT_EQ(monto.InicioTramo, 2.12);
}

TEST_F(LineAssign, TheStartMayBeAsLargeAsTheEndButNotLarger) {
    detail.setTextValue(5, u"10"_s);
    detail.setTextValue(4, u"10"_s);
    EXPECT_EQ(detail.InicioTramo, 10);
    expectSilence();
    detail.setTextValue(4, u"10,01"_s);
    EXPECT_EQ(detail.InicioTramo, 10);
    expectTold({startAboveEnd});
}

TEST_F(LineAssign, AnyStartIsTakenWhileThereIsNoEnd) {
    detail.setTextValue(4, u"500"_s);
    monto.setTextValue(2, u"500"_s);
    EXPECT_EQ(detail.InicioTramo, 500);
    EXPECT_EQ(monto.InicioTramo, 500);
    expectSilence();
}

TEST_F(LineAssign, TheEndMayNotLieBelowTheStart) {
    detail.setTextValue(4, u"10"_s);
    detail.setTextValue(5, u"9,99"_s);
    EXPECT_EQ(detail.FinTramo, 0);
    expectTold({endBelowStart});
    detail.setTextValue(5, u"10"_s);
    EXPECT_EQ(detail.FinTramo, 10);
    expectSilence();
    monto.setTextValue(2, u"10"_s);
    monto.setTextValue(3, u"9,99"_s);
    expectTold({endBelowStart});
}

TEST_F(LineAssign, NegativeBracketsAreRefused) {
    detail.setTextValue(4, u"-1"_s);
    expectTold({badValue});
    detail.setTextValue(5, u"-1"_s);
    expectTold({endBelowStart});
    monto.setTextValue(2, u"-0,01"_s);
    expectTold({badValue});
    // A start that was stored negative lets a negative end reach its own check.
    detail.InicioTramo = -5;
    monto.InicioTramo = -5;
    detail.setTextValue(5, u"-1"_s);
    monto.setTextValue(3, u"-1"_s);
    expectTold({badValue, badValue});
    EXPECT_EQ(detail.FinTramo, 0);
}

TEST_F(LineAssign, ABracketThatIsNoNumberIsTold) {
    detail.setTextValue(4, u"abc"_s);
    detail.setTextValue(5, u"abc"_s);
    monto.setTextValue(2, u"1e400"_s);
    expectTold({badValue, badValue, badValue});
}

TEST_F(LineAssign, TheEndOfAnAmountBracketIsCalledAPrice) {
    monto.setTextValue(3, u"abc"_s);
    monto.setTextValue(3, QString(10000, u'7'));
    expectTold({badPrice, badPrice});
    EXPECT_EQ(monto.FinTramo, 0);
}

TEST_F(LineAssign, APercentageLiesBetween0And100) {
    for (const auto& [entry, value] : {std::pair{u"0"_s, 0.0}, std::pair{u"100"_s, 100.0},
                                       std::pair{u"12,345"_s, 12.34}, std::pair{u""_s, 1.0}}) {
        detail.setTextValue(6, entry);
        monto.setTextValue(4, entry);
        precio.setTextValue(3, entry);
        EXPECT_EQ(detail.Porcentaje, value);
        EXPECT_EQ(monto.Porcentaje, value);
        EXPECT_EQ(precio.Porcentaje, value);
    }
    expectSilence();
}

TEST_F(LineAssign, APercentageOutOfRangeIsInformationInAProductLineAndAWarningElsewhere) {
    for (const QString& entry : {u"150"_s, u"100,01"_s, u"-0,01"_s}) {
        detail.setTextValue(6, entry);
        expectTold({softPercentage});
        monto.setTextValue(4, entry);
        precio.setTextValue(3, entry);
        expectTold({badPercentage, badPercentage});
    }
    EXPECT_TRUE(detail.SysRecordNull() && monto.SysRecordNull() && precio.SysRecordNull());
}

TEST_F(LineAssign, APercentageThatIsNoNumberIsAWarning) {
    for (const QString& entry : {u"abc"_s, u"1e400"_s, u"10%"_s, QString(QChar(0))}) {
        detail.setTextValue(6, entry);
        monto.setTextValue(4, entry);
        precio.setTextValue(3, entry);
        expectTold({badPercentage, badPercentage, badPercentage});
    }
}

TEST_F(LineAssign, AnAssignmentSaysWhetherItTookTheEntry) {
    EXPECT_TRUE(detail.setTextValue(1, u"Familia"_s));
    EXPECT_FALSE(detail.setTextValue(2, u"X"_s));
    EXPECT_TRUE(detail.setTextValue(2, u""_s));
    EXPECT_TRUE(detail.setTextValue(4, u"5"_s));
    EXPECT_FALSE(detail.setTextValue(5, u"4"_s));
    EXPECT_TRUE(detail.setTextValue(6, u"5"_s));
    EXPECT_FALSE(detail.setTextValue(6, u"101"_s));
    EXPECT_FALSE(monto.setTextValue(9, u""_s));
}

TEST_F(LineAssign, ARunTimeErrorIsToldAndLeavesTheFieldAsItWas) {
    // A message box that cannot be shown is the one error that can strike here.
    class Broken final : public MessagePresenter {
    public:
        explicit Broken(MessageRecorder& then) : m_then(then) {}
        qint16 show(const QString&, int, const QString&) override {
            installMessagePresenter(&m_then);
            throw RunTimeError(7, u"Memoria insuficiente"_s);
        }

    private:
        MessageRecorder& m_then;
    } broken(recorder);
    detail.Porcentaje = 5;
    installMessagePresenter(&broken);
    detail.setTextValue(6, u"abc"_s);
    expectTold({{u"Error al asignar valor a campo de detalle\n7 - Memoria insuficiente"_s, 16}});
    EXPECT_EQ(detail.Porcentaje, 5);
    installMessagePresenter(&broken);
    EXPECT_FALSE(precio.Validate());
    expectTold({{u"Error al validar campo de detalle\n7 - Memoria insuficiente"_s, 16}});
}
