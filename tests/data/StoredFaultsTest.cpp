#include "tests/data/StoredFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

const Message modifiedByOther{
    u"No se grabó el registro porque ha sido modificado por otro usuario. Debe leer "
    u"nuevamente."_s,
    64};

class StoredFaults : public StoredTest {
protected:
    StoredFaults() {
        first.begin(u"C1"_s);
        first.addDetail(u"A1"_s);
        first.addDetail(u"A2"_s);
        first.addMonto(u"FAC"_s);
        first.addPrecio(u"MAY"_s);
        EXPECT_TRUE(first.table.DBWrite(true));
        EXPECT_TRUE(first.read(u"C1"_s));
        EXPECT_TRUE(second.read(u"C1"_s));
        before = stored();
    }
    /// A change of every kind: period, update, changed code, removal, new line.
    static void changeEverything(Program& program) {
        program.table.setTextValue(6, u"30/06/2006"_s);
        program.table.Details(1).setTextValue(6, u"6"_s);
        program.table.Details(2).Producto = u"B2"_s;
        program.table.MontosRemove(1);
        program.addPrecio(u"MIN"_s);
    }

    Program first{database};
    Program second{database};
    QStringList before;
};

} // namespace

TEST_P(StoredFaults, TheSecondSaveAfterAChangedPeriodIsRefusedAndStoresNothing) {
    first.table.setTextValue(5, u"01/02/2006"_s);
    ASSERT_TRUE(first.table.DBWrite(true));
    recorder.take();
    const QStringList afterFirst = stored();
    ASSERT_NE(afterFirst, before);
    second.table.setTextValue(3, u"otra"_s);
    second.table.Details(1).setTextValue(6, u"99"_s);
    second.table.MontosRemove(1);
    second.addPrecio(u"MIN"_s);
    EXPECT_FALSE(second.table.DBWrite(true));
    expectTold({modifiedByOther});
    EXPECT_EQ(stored(), afterFirst);
    EXPECT_TRUE(second.table.SysRecordEnabled);
    EXPECT_TRUE(second.table.hasUnsavedChanges());
}

TEST_P(StoredFaults, ASaveAfterADeletionByAnotherUserIsRefused) {
    ASSERT_TRUE(first.table.DBDelete());
    EXPECT_FALSE(second.table.DBWrite(true));
    expectTold({modifiedByOther});
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(StoredFaults, ADeletionAfterAChangedPeriodIsRefused) {
    first.table.setTextValue(5, u"01/02/2006"_s);
    ASSERT_TRUE(first.table.DBWrite());
    const QStringList afterFirst = stored();
    EXPECT_FALSE(second.table.DBDelete());
    expectTold(
        {{u"No se eliminó el registro porque ha sido modificado por otro usuario. Debe leer nuevamente."_s,
          48}});
    EXPECT_EQ(stored(), afterFirst);
}

TEST_P(StoredFaults, AHeaderThatAnotherUserCreatedMeanwhileIsTold) {
    Program third(database);
    third.begin(u"C9"_s);
    first.begin(u"C9"_s);
    third.addMonto(u"FAC"_s);
    first.addMonto(u"BOL"_s);
    ASSERT_TRUE(third.table.DBWrite(true));
    const QStringList afterThird = stored();
    EXPECT_FALSE(first.table.DBWrite(true));
    expectTold({{u"Error al grabar registro\nYa existe un registro con esas características"_s, 16}});
    EXPECT_EQ(stored(), afterThird);
}

TEST_P(StoredFaults, ALineThatIsThereTwiceIsToldWithItsPosition) {
    first.addMonto(u"FAC"_s);
    EXPECT_FALSE(first.table.DBWrite(true));
    expectTold(
        {{u"Error al grabar registro (Línea 2)\nYa existe un registro con esas características"_s, 16}});
    EXPECT_EQ(first.table.Grilla, 2);
    EXPECT_EQ(first.table.SysErrorRow, 2);
    EXPECT_EQ(stored(), before);
    first.table.montos(2).setTextValue(4, u"6"_s);
    EXPECT_TRUE(first.table.DBWrite(true));
}

TEST_P(StoredFaults, AFaultAtAnyStatementStoresNothingAndTheNextSaveStoresAll) {
    changeEverything(second);
    ASSERT_TRUE(second.table.DBWrite());
    const QStringList after = stored();
    ASSERT_NE(after, before);
    // Header, carried period, and for the lines three of products, one of amounts and one of price lists.
    constexpr int statements = 7;
    for (int fault = 1; fault <= statements; ++fault) {
        const TestDatabase fresh(GetParam());
        Program program(fresh);
        program.begin(u"C1"_s);
        program.addDetail(u"A1"_s);
        program.addDetail(u"A2"_s);
        program.addMonto(u"FAC"_s);
        program.addPrecio(u"MAY"_s);
        ASSERT_TRUE(program.table.DBWrite(true));
        ASSERT_TRUE(program.read(u"C1"_s));
        changeEverything(program);
        program.plan.statements = 0;
        program.plan.atStatement = fault;
        EXPECT_FALSE(program.table.DBWrite()) << fault;
        EXPECT_EQ(recorder.take().size(), 1U);
        EXPECT_EQ(stored(fresh), before) << fault;
        program.plan.heal();
        EXPECT_TRUE(program.table.DBWrite());
        EXPECT_EQ(program.plan.statements, statements);
        EXPECT_EQ(stored(fresh), after) << fault;
    }
}

TEST_P(StoredFaults, AFaultAtTheCommitStoresNothingAndTheNextSaveStoresAll) {
    changeEverything(first);
    first.plan.onCommit = true;
    EXPECT_FALSE(first.table.DBWrite());
    expectTold({{u"Error al grabar registro\n61 - Disco lleno"_s, 16}});
    EXPECT_EQ(stored(), before);
    first.plan.heal();
    EXPECT_TRUE(first.table.DBWrite());
    EXPECT_NE(stored(), before);
}

TEST_P(StoredFaults, AConnectionLostInTheMiddleStoresNothingAndTheNextSaveStoresAll) {
    changeEverything(first);
    first.plan.statements = 0;
    first.plan.atStatement = 4;
    first.plan.error = RunTimeError(quorvane::ErrorConnectionLost, u"Conexión perdida"_s);
    EXPECT_FALSE(first.table.DBWrite());
    EXPECT_EQ(recorder.take().size(), 1U);
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(first.table.DBWrite());
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"concepto = 'B2'"_s), 1);
    expectSilence();
}

TEST_P(StoredFaults, AnotherProgramsLockIsToldAndTheNextSaveStoresAll) {
    Program waiting(database, 50);
    ASSERT_TRUE(waiting.read(u"C1"_s));
    waiting.table.Details(1).setTextValue(6, u"6"_s);
    first.connection.beginTrans();
    first.connection.execute(u"update Comisiones set descripcion = 'en curso' where codigo = 'C1'"_s);
    EXPECT_FALSE(waiting.table.DBWrite(true));
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].text.startsWith(u"Error al grabar registro\n1222 - "_s))
        << told[0].text.toStdString();
    EXPECT_TRUE(waiting.table.SysRecordEnabled);
    first.connection.rollbackTrans();
    EXPECT_TRUE(waiting.table.DBWrite(true));
    EXPECT_EQ(countStored(u"ComisionesD"_s, u"concepto = 'A1' and porcentaje = 6"_s), 1);
}

TEST_P(StoredFaults, ATableThatIsGoneIsTold) {
    first.connection.execute(u"drop table ComisionesD"_s);
    EXPECT_FALSE(second.read(u"C1"_s));
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].text.startsWith(u"Error al leer registro\n"_s));
    EXPECT_EQ(told[0].style, 16);
}

INSTANTIATE_TEST_SUITE_P(Engines, StoredFaults, testing::ValuesIn(allEngines), engineName);
