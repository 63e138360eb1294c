// Two users with the same scheme on screen, each in a program of his own over one database.
#include "tests/faults/ProgramFixture.h"
#include <QFile>

namespace dalvora::test {

namespace {

const Message changedByAnother{
    u"No se grabó el registro porque ha sido modificado por otro usuario. Debe leer nuevamente."_s,
    MessageInformation};
const Message notDeleted{
    u"No se eliminó el registro porque ha sido modificado por otro usuario. Debe leer nuevamente."_s,
    MessageWarning};

class TwoPrograms : public EveryEngine {
protected:
    void SetUp() override {
        readC1();
        // One process has one look: the second program goes without a style, and warns of it.
        ASSERT_TRUE(QFile::remove(plainFiles.styleFile()));
        ASSERT_TRUE(second.start());
        EXPECT_EQ(told().style, MessageWarning);
        second.read(u"C1"_s);
        ASSERT_TRUE(second.table().SysRecordFound);
        expectSilence();
    }
    /// The first user moves the period, changes lines, and saves.
    void firstSaves() {
        states.change(program.table(), 2);
        program.click(u"grabar"_s);
        EXPECT_EQ(recorder.take().size(), 2U) << "one question for each date";
        ASSERT_EQ(states.storedRows(company), states.rows(2));
    }

    ProgramFiles plainFiles;
    RunningProgram second{company.path(), plainFiles};
};

} // namespace

TEST_P(TwoPrograms, TheSecondSaveAfterAChangedPeriodIsRefusedAndStoresNothing) {
    firstSaves();
    second.enterCell(*second.controls().XGrid, 1, 6, u"77"_s);
    const QStringList before = second.screen();
    second.click(u"grabar"_s);
    EXPECT_EQ(told(), changedByAnother);
    EXPECT_EQ(second.screen(), before);
    EXPECT_EQ(states.storedRows(company), states.rows(2));
    EXPECT_EQ(audited(5), u"1"_s);
    // As the message says: reading again shows what there is now, and that can be saved.
    second.click(u"limpiar"_s);
    second.read(u"C1"_s);
    second.enterCell(*second.controls().XGrid, 1, 6, u"77"_s);
    second.click(u"grabar"_s);
    expectSilence();
    EXPECT_EQ(changedCells(), u"1"_s);
}

TEST_P(TwoPrograms, TheSecondChangeOfThePeriodIsRefusedToo) {
    firstSaves();
    states.change(second.table(), 3);
    second.click(u"grabar"_s);
    const std::vector<Message> messages = recorder.take();
    ASSERT_EQ(messages.size(), 3U);
    EXPECT_EQ(messages[2], changedByAnother);
    EXPECT_EQ(states.storedRows(company), states.rows(2));
}

TEST_P(TwoPrograms, ADeletionAfterAChangedPeriodIsRefused) {
    firstSaves();
    second.click(u"eliminar"_s);
    const std::vector<Message> messages = recorder.take();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[1], notDeleted);
    EXPECT_EQ(states.storedRows(company), states.rows(2));
}

TEST_P(TwoPrograms, ASaveAfterADeletionIsRefused) {
    program.click(u"eliminar"_s);
    recorder.take();
    second.enterCell(*second.controls().XGrid, 1, 6, u"77"_s);
    second.click(u"grabar"_s);
    EXPECT_EQ(told(), changedByAnother);
    EXPECT_EQ(states.storedRows(company), QStringList());
}

// The same new code typed twice: nobody's scheme is written over.
TEST_P(TwoPrograms, TheSecondOfTwoNewSchemesUnderOneKeyIsRefused) {
    for (RunningProgram* one : {&program, &second}) {
        one->click(u"limpiar"_s);
        one->enter(*one->controls().TxtCodigo, u"NUEVO"_s);
        one->enter(*one->controls().TxtGlosa, one == &program ? u"Primero"_s : u"Segundo"_s);
        one->enter(*one->controls().FecIni, u"01/01/2010"_s);
        one->enter(*one->controls().FecFin, u"31/12/2010"_s);
        one->enterCell(*one->controls().XGrid, 1, 1, u"Todos"_s);
        one->enterCell(*one->controls().XGrid, 1, 6, u"5"_s);
        one->enterCell(*one->controls().XGrid, 1, 7, u"Neto"_s);
        expectSilence();
    }
    program.click(u"grabar"_s);
    expectSilence();
    const QStringList before = second.screen();
    second.click(u"grabar"_s);
    EXPECT_EQ(told(), (Message{u"Error al grabar registro\nYa existe un registro con esas características"_s,
                               MessageError}));
    EXPECT_EQ(second.screen(), before);
    EXPECT_EQ(company.rows(u"SELECT Descripcion FROM Comisiones WHERE Codigo = 'NUEVO'"_s),
              QStringList{u"Primero"_s});
    EXPECT_EQ(company.value(u"SELECT count(*) FROM ComisionesD WHERE Codigo = 'NUEVO'"_s), u"1"_s);
}

TEST_P(TwoPrograms, SavesOfDifferentSchemesDoNotDisturbEachOther) {
    const SchemeStates other(u"C2"_s, 30);
    other.store(company, 1);
    second.click(u"limpiar"_s);
    second.read(u"C2"_s);
    other.change(second.table(), 2);
    firstSaves();
    second.click(u"grabar"_s);
    EXPECT_EQ(recorder.take().size(), 2U);
    EXPECT_EQ(other.storedRows(company), other.rows(2));
    EXPECT_EQ(states.storedRows(company), states.rows(2));
}

INSTANTIATE_TEST_SUITE_P(Engines, TwoPrograms, testing::ValuesIn(windowEngines), engineName);

} // namespace dalvora::test
