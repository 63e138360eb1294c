#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

using Audits = std::vector<std::pair<int, QString>>;

class RecordDelete : public RecordTest {
protected:
    void read() {
        storeHeader();
        readStored();
    }
};

} // namespace

TEST_F(RecordDelete, HeaderAndLinesGoInOneTransaction) {
    read();
    EXPECT_TRUE(table.DBDelete());
    expectCalls({
        u"begin"_s,
        u"DELETE FROM Comisiones WHERE Empresa = '01' and Codigo = 'C1'  "
        u"and fechaInicio = '01/01/2006' and fechaFinal = '31/12/2006' "_s,
        u"DELETE FROM ComisionesD WHERE Empresa = '01' and Codigo = 'C1'  "_s,
        u"commit"_s,
    });
    expectSilence();
}

TEST_F(RecordDelete, ADeletedRecordIsNoLongerLoadedButKeepsItsFields) {
    read();
    ASSERT_TRUE(table.DBDelete());
    EXPECT_FALSE(table.SysRecordEnabled);
    EXPECT_TRUE(table.SysRecordFound);
    EXPECT_EQ(table.Codigo(), u"C1"_s);
    EXPECT_EQ(table.DetailsCount(), 1);
    EXPECT_EQ(session.audits, (Audits{{4, u":COMISION:C1"_s}}));
}

TEST_F(RecordDelete, TheEndDateGoesInItsRegionalForm) {
    regional = {u'.', u',', u'-'};
    read();
    ASSERT_TRUE(table.DBDelete());
    EXPECT_EQ(database.take().at(1), u"DELETE FROM Comisiones WHERE Empresa = '01' and Codigo = 'C1'  "
                                     u"and fechaInicio = '01/01/2006' and fechaFinal = '31-12-2006' "_s);
}

TEST_F(RecordDelete, QuotesInCodeAndCompanyAreDoubled) {
    table.SysEmpresa = u"O'1"_s;
    read();
    table.setTextValue(2, u"C'1"_s);
    ASSERT_TRUE(table.DBDelete());
    EXPECT_EQ(database.take().at(2),
              u"DELETE FROM ComisionesD WHERE Empresa = 'O''1' and Codigo = 'C''1'  "_s);
}

TEST_F(RecordDelete, WithoutTheDeleteLetterNothingIsDeletedWhateverTheState) {
    const Message refusal{u"Usuario no tiene permiso de eliminación"_s, 48};
    session.rights = u"RWX-"_s;
    EXPECT_FALSE(table.DBDelete());
    expectTold({refusal});
    read();
    EXPECT_FALSE(table.DBDelete());
    expectTold({refusal});
    expectCalls({});
}

TEST_F(RecordDelete, NothingLoadedIsTold) {
    read();
    table.DBClear();
    EXPECT_FALSE(table.DBDelete());
    expectTold({{u"Antes de eliminar debe leer un registro"_s, 48}});
    expectCalls({});
}

TEST_F(RecordDelete, ANewRecordIsTold) {
    table.setTextValue(2, u"NUEVO"_s);
    ASSERT_TRUE(table.DBRead());
    database.take();
    EXPECT_FALSE(table.DBDelete());
    expectTold({{u"Registro aún no ha sido grabado"_s, 48}});
    expectCalls({});
}

TEST_F(RecordDelete, AHeaderThatIsNoLongerThereRefusesTheDeletion) {
    read();
    database.affect(u"DELETE FROM Comisiones "_s, 0);
    EXPECT_FALSE(table.DBDelete());
    expectTold({{u"No se eliminó el registro porque ha sido modificado por otro usuario. Debe leer "
                 u"nuevamente."_s,
                 48}});
    const auto calls = database.take();
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_EQ(calls[0], u"begin"_s);
    EXPECT_EQ(calls[2], u"rollback"_s);
    EXPECT_TRUE(table.SysRecordEnabled);
    EXPECT_EQ(session.audits, Audits());
}

TEST_F(RecordDelete, AnErrorRollsBackAndIsTold) {
    read();
    for (const int statement : {1, 2}) {
        plan.heal();
        plan.atStatement = statement;
        EXPECT_FALSE(table.DBDelete());
        expectTold({{u"Error al eliminar registro\n61 - Disco lleno"_s, 16}});
        EXPECT_EQ(database.take().back(), u"rollback"_s);
        EXPECT_FALSE(connection.inTransaction());
        EXPECT_TRUE(table.SysRecordEnabled);
    }
}

TEST_F(RecordDelete, AFailingCommitIsAFailedDeletion) {
    read();
    plan.onCommit = true;
    EXPECT_FALSE(table.DBDelete());
    expectTold({{u"Error al eliminar registro\n61 - Disco lleno"_s, 16}});
    EXPECT_EQ(database.take().back(), u"rollback"_s);
    EXPECT_TRUE(table.SysRecordEnabled);
}

TEST_F(RecordDelete, ABeginThatFailsIsTold) {
    read();
    plan.onBegin = true;
    EXPECT_FALSE(table.DBDelete());
    expectTold({{u"Error al eliminar registro\n61 - Disco lleno"_s, 16}});
    expectCalls({});
}

TEST_F(RecordDelete, AFailingAuditLeavesACommittedDeletionDone) {
    read();
    session.auditError = RunTimeError(61, u"Disco lleno"_s);
    EXPECT_TRUE(table.DBDelete());
    EXPECT_FALSE(table.SysRecordEnabled);
    expectSilence();
}

TEST_F(RecordDelete, ClearingKeepsHeaderFieldsAndPriceListLinesOnly) {
    storeLines(u"Precio"_s, {lineRow(u"MAY"_s, u""_s, 0, 0, 4)});
    read();
    table.SysRecordModified = true;
    EXPECT_TRUE(table.DBClear());
    EXPECT_FALSE(table.SysRecordEnabled || table.SysRecordFound || table.SysRecordModified);
    EXPECT_EQ(table.DetailsCount(), 0);
    EXPECT_EQ(table.MontosCount(), 0);
    EXPECT_EQ(table.PreciosCount(), 2);
    EXPECT_EQ(table.Codigo(), u"C1"_s);
    EXPECT_EQ(table.TextValue(5), u"01/01/2006"_s);
    table.DetailsAdd();
    EXPECT_EQ(table.DetailsCount(), 1);
}

TEST_F(RecordDelete, ClearingForgetsRemovedLinesButThoseOfPriceLists) {
    storeLines(u"Producto"_s, {lineRow(u"A"_s, u""_s, 0, 0, 4)});
    storeLines(u"Precio"_s, {lineRow(u"MAY"_s, u""_s, 0, 0, 4)});
    read();
    table.DetailsRemove(1);
    table.DBClear();
    EXPECT_FALSE(table.hasUnsavedChanges());
    table.PreciosRemove(1);
    table.DBClear();
    EXPECT_TRUE(table.hasUnsavedChanges());
    table.carga_inicio();
    EXPECT_FALSE(table.hasUnsavedChanges());
}

TEST_F(RecordDelete, ClearingForgetsTheKeyTextOfTheAudit) {
    read();
    readStored();
    table.DBClear();
    table.setTextValue(2, u"C9"_s);
    ASSERT_TRUE(table.DBWrite());
    EXPECT_EQ(session.audits, (Audits{{6, u":COMISION:C9"_s}}));
}
