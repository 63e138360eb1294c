// The server goes away before, in the middle of and right after a save of the running program.
#include "platform/quorvane32/core/Connection.h"
#include "tests/faults/ServerProgram.h"
#include <iostream>

namespace dalvora::test {

namespace {

constexpr Blow blows[] = {Blow::BackendKilled, Blow::ServerStopped, Blow::NetworkCut};

class ServerSave : public ServerProgram, public testing::WithParamInterface<Blow> {
protected:
    void SetUp() override {
        readC1();
        changeOneCell();
        program.enterCell(*program.controls().XGrid2, 1, 4, u"9"_s);
        before = program.screen();
    }
    /// The user is told of the operation, nothing of it is stored, and every entry is on screen.
    void expectToldAndKept() {
        const QString text = toldStarting(u"Error al grabar registro"_s);
        EXPECT_TRUE(text.contains(u"\n3709 - "_s)) << qPrintable(text);
        EXPECT_EQ(program.screen(), before);
        EXPECT_TRUE(program.table().hasUnsavedChanges());
        std::cout << "  told: " << text.toStdString() << '\n';
    }
    void expectNothingStored() {
        EXPECT_EQ(states.storedRows(company), states.rows(1));
        EXPECT_EQ(audited(5), u"0"_s);
    }
    void expectTheSameSaveToWork() {
        program.context().Connection->setStatementObserver({});
        program.click(u"grabar"_s);
        expectSilence();
        EXPECT_EQ(changedCells(), u"1"_s);
        EXPECT_EQ(company.value(u"SELECT Porcentaje FROM ComisionesD WHERE Tipo = 'Monto'"_s), u"9"_s);
        EXPECT_EQ(audited(5), u"1"_s);
        EXPECT_EQ(program.controls().TxtCodigo->text(), QString()) << "a new record is begun";
        std::cout << "  the same save, the server being back: stored once\n";
    }

    QStringList before;
};

} // namespace

TEST_P(ServerSave, BeforeTheSave) {
    strike(GetParam());
    program.click(u"grabar"_s);
    expectToldAndKept();
    mend();
    expectNothingStored();
    expectTheSameSaveToWork();
}

TEST_P(ServerSave, InTheMiddleOfTheSave) {
    strikeAtStatement(2, GetParam());
    program.click(u"grabar"_s);
    expectToldAndKept();
    mend();
    expectNothingStored();
    expectTheSameSaveToWork();
}

TEST_P(ServerSave, RightAfterTheSave) {
    program.click(u"grabar"_s);
    expectSilence();
    strike(GetParam());
    mend();
    EXPECT_EQ(changedCells(), u"1"_s);
    program.read(u"C1"_s);
    std::cout << "  the next read: " << toldStarting(u"Error al leer registro\n3709 - "_s).toStdString()
              << '\n';
    program.click(u"limpiar"_s);
    program.read(u"C1"_s);
    expectSilence();
    EXPECT_EQ(program.controls().XGrid->text(1, 6), u"77,00"_s);
    EXPECT_EQ(audited(5), u"1"_s);
}

TEST_P(ServerSave, ADeletionInItsMiddle) {
    program.click(u"limpiar"_s);
    program.read(u"C1"_s);
    recorder.take();
    strikeAtStatement(2, GetParam());
    program.click(u"eliminar"_s);
    const std::vector<Message> messages = recorder.take();
    ASSERT_EQ(messages.size(), 2U) << "the question and the answer: " << testing::PrintToString(messages);
    EXPECT_TRUE(messages[1].text.startsWith(u"Error al eliminar registro\n3709 - "_s))
        << qPrintable(messages[1].text);
    mend();
    program.context().Connection->setStatementObserver({});
    expectNothingStored();
    program.click(u"eliminar"_s);
    EXPECT_EQ(recorder.take().back(), (Message{u"Registro Eliminado"_s, MessageInformation}));
    EXPECT_EQ(states.storedRows(company), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Blows, ServerSave, testing::ValuesIn(blows), blowName);

namespace {

/// The last word of a save, the commit, is under way when the network breaks.
class LostCommit : public ServerProgram {
protected:
    void SetUp() override {
        readC1();
        changeOneCell();
        before = program.screen();
    }
    void expectUnknown() {
        const QString text = toldStarting(u"Error al grabar registro\n3709 - "_s);
        EXPECT_TRUE(text.contains(u"no se sabe si quedaron guardados"_s)) << qPrintable(text);
        EXPECT_EQ(program.screen(), before);
        EXPECT_TRUE(program.table().hasUnsavedChanges());
        std::cout << "  told: " << text.toStdString() << '\n';
    }
    /// Reads anew, giving up what is on screen; the percentage of the first line that the user sees then.
    QString readAgain() {
        program.click(u"limpiar"_s);
        recorder.take();
        program.read(u"C1"_s);
        expectSilence();
        return program.controls().XGrid->text(1, 6);
    }

    QStringList before;
};

} // namespace

TEST_F(LostCommit, WhoseAnswerIsLostWasStoredAndTheNextReadShowsIt) {
    relay.cutAfter("COMMIT");
    program.click(u"grabar"_s);
    expectUnknown();
    EXPECT_EQ(readAgain(), u"77,00"_s);
    EXPECT_EQ(changedCells(), u"1"_s);
}

TEST_F(LostCommit, ThatNeverArrivesStoredNothingAndTheNextReadShowsIt) {
    const QString old = program.controls().XGrid->text(1, 6);
    ASSERT_EQ(old, u"77,00"_s);
    relay.cutBefore("COMMIT");
    program.click(u"grabar"_s);
    expectUnknown();
    EXPECT_NE(readAgain(), u"77,00"_s);
    EXPECT_EQ(changedCells(), u"0"_s);
    EXPECT_EQ(states.storedRows(company), states.rows(1));
}

// Who does not read first and saves again stores the same once more: nothing doubles.
TEST_F(LostCommit, CanSimplyBeSavedAgain) {
    relay.cutAfter("COMMIT");
    program.click(u"grabar"_s);
    expectUnknown();
    program.click(u"grabar"_s);
    expectSilence();
    EXPECT_EQ(changedCells(), u"1"_s);
    EXPECT_EQ(states.storedRows(company).size(), states.rows(1).size());
}

} // namespace dalvora::test
