#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

using Audits = std::vector<std::pair<int, QString>>;

class RecordWriteFail : public RecordTest {
protected:
    /// A stored record with one stored amount line and two new ones behind it, the second one empty.
    RecordWriteFail() {
        storeHeader();
        storeLines(u"Monto"_s, {lineRow(u"FAC"_s, u""_s, 0, 1, 5)});
        table.setTextValue(2, u"C1"_s);
        table.DBRead();
        table.SaveDates();
        table.montos(1).setTextValue(4, u"6"_s);
        table.MontosAdd().setTextValue(5, u"Neto"_s);
        database.take();
        session.audits.clear();
        plan.statements = 0;
    }
    /// The write fails, is rolled back, and the record stays loaded with its changes.
    void expectFailure(const Message& message) {
        EXPECT_FALSE(table.DBWrite());
        expectTold({message});
        EXPECT_FALSE(connection.inTransaction());
        EXPECT_TRUE(table.SysRecordEnabled);
        EXPECT_TRUE(table.hasUnsavedChanges());
        EXPECT_EQ(table.montos(1).Porcentaje, 6);
        EXPECT_EQ(table.montos(1).Save.Porcentaje, 5);
        EXPECT_EQ(session.audits, Audits());
    }
};

} // namespace

TEST_F(RecordWriteFail, AFailingHeaderIsToldWithoutALine) {
    plan.atStatement = 1;
    expectFailure({u"Error al grabar registro\n61 - Disco lleno"_s, 16});
    expectCalls({u"begin"_s, u"rollback"_s});
    EXPECT_EQ(table.SysErrorTable, 0);
}

TEST_F(RecordWriteFail, AFailingUpdateIsToldWithItsLine) {
    plan.atStatement = 2;
    expectFailure({u"Error al grabar registro (Línea 1)\n61 - Disco lleno"_s, 16});
    EXPECT_EQ(table.SysErrorTable, 1);
    EXPECT_EQ(table.SysErrorRow, 1);
    EXPECT_EQ(table.Grilla, 2);
}

TEST_F(RecordWriteFail, AFailingInsertIsToldWithItsLineEmptyOnesCounted) {
    plan.atStatement = 3;
    expectFailure({u"Error al grabar registro (Línea 3)\n61 - Disco lleno"_s, 16});
    EXPECT_EQ(table.SysErrorRow, 3);
    EXPECT_EQ(database.take().back(), u"rollback"_s);
}

TEST_F(RecordWriteFail, AFailingDeleteIsToldWithTheCountOfTheKindBefore) {
    table.DetailsAdd(1).setTextValue(1, u"Todos"_s);
    table.MontosRemove(3);
    table.montos(1).Documento = u"BOL"_s;
    plan.atStatement = 3; // header, product insert, amount delete
    EXPECT_FALSE(table.DBWrite());
    expectTold({{u"Error al grabar registro (Línea %1)\n61 - Disco lleno"_s.arg(table.DetailsCount()), 16}});
}

TEST_F(RecordWriteFail, ADuplicateKeyIsToldInPlainWords) {
    plan.error = RunTimeError(2627, u"UNIQUE constraint failed"_s);
    plan.atStatement = 3;
    expectFailure(
        {u"Error al grabar registro (Línea 3)\nYa existe un registro con esas características"_s, 16});
}

TEST_F(RecordWriteFail, ADuplicateHeaderIsToldInPlainWords) {
    plan.error = RunTimeError(2627, u"UNIQUE constraint failed"_s);
    plan.atStatement = 1;
    table.SysRecordFound = false;
    expectFailure({u"Error al grabar registro\nYa existe un registro con esas características"_s, 16});
}

TEST_F(RecordWriteFail, OtherNativeErrorsKeepTheirOwnText) {
    plan.error = RunTimeError(1222, u"La base de datos está ocupada"_s);
    plan.onBegin = true;
    expectFailure({u"Error al grabar registro\n1222 - La base de datos está ocupada"_s, 16});
    expectCalls({});
}

TEST_F(RecordWriteFail, AFailingCommitIsAFailedWrite) {
    plan.onCommit = true;
    expectFailure({u"Error al grabar registro\n61 - Disco lleno"_s, 16});
    EXPECT_EQ(database.take().back(), u"rollback"_s);
}

TEST_F(RecordWriteFail, AFailingRollbackChangesNothingInWhatIsTold) {
    plan.atStatement = 2;
    plan.onRollback = true;
    expectFailure({u"Error al grabar registro (Línea 1)\n61 - Disco lleno"_s, 16});
    database.affect(u"UPDATE Comisiones "_s, 0);
    plan.atStatement = 0;
    expectFailure({u"No se grabó el registro porque ha sido modificado por otro usuario. Debe leer "
                   u"nuevamente."_s,
                   64});
}

TEST_F(RecordWriteFail, ALostConnectionFailsTheWholeWriteAndTheNextOneGoesWell) {
    plan.error = RunTimeError(quorvane::ErrorConnectionLost, u"Conexión perdida"_s);
    plan.atStatement = 2;
    expectFailure({u"Error al grabar registro (Línea 1)\n3709 - Conexión perdida"_s, 16});
    EXPECT_TRUE(table.DBWrite());
    EXPECT_EQ(database.take().back(), u"commit"_s);
    expectSilence();
}

TEST_F(RecordWriteFail, AFailingAuditLeavesACommittedWriteDone) {
    session.auditError = RunTimeError(61, u"Disco lleno"_s);
    EXPECT_TRUE(table.DBWrite());
    EXPECT_FALSE(table.SysRecordEnabled);
    EXPECT_FALSE(table.hasUnsavedChanges());
    expectSilence();
}

TEST_F(RecordWriteFail, RightsThatCannotBeAskedForAreToldAndNothingIsWritten) {
    session.rightsError = RunTimeError(91, u"Variable de objeto no establecida"_s);
    expectFailure({u"Error al grabar registro\n91 - Variable de objeto no establecida"_s, 16});
    expectCalls({});
}

TEST_F(RecordWriteFail, ASecondTryAfterAFailureWritesEverything) {
    table.montos(1).Documento = u"BOL"_s;
    plan.atStatement = 3; // header, delete of the old row, insert of the new one
    EXPECT_FALSE(table.DBWrite());
    expectTold({{u"Error al grabar registro (Línea 1)\n61 - Disco lleno"_s, 16}});
    EXPECT_FALSE(table.montos(1).SysRecordFound);
    database.take();
    EXPECT_TRUE(table.DBWrite());
    QStringList begins;
    for (const QString& call : database.take())
        begins += call.section(u' ', 0, 1);
    EXPECT_EQ(begins, (QStringList{u"begin"_s, u"UPDATE Comisiones"_s, u"DELETE FROM"_s, u"INSERT INTO"_s,
                                   u"INSERT INTO"_s, u"commit"_s}));
}

TEST_F(RecordWriteFail, EveryPossibleStatementFailureRollsBackAndIsTold) {
    for (int statement = 1; statement <= 3; ++statement) {
        plan.heal();
        plan.atStatement = statement;
        EXPECT_FALSE(table.DBWrite());
        EXPECT_EQ(recorder.take().size(), 1U);
        EXPECT_EQ(database.take().back(), u"rollback"_s);
    }
    plan.heal();
    EXPECT_TRUE(table.DBWrite());
}
