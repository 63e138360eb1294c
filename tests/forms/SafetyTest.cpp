// Sequences in which an entry could get lost, and faults in the middle of a command.
#include "tests/forms/MainFormTest.h"
#include <QApplication>
#include <QDialog>

using namespace dalvora;
using namespace dalvora::test;

namespace {

class SafetyTest : public MainFormTest {
protected:
    bool closingAsks() {
        recorder.answer(ButtonNo);
        bool cancel = false;
        form->Form_QueryUnload(cancel, frmMain::ControlBox);
        const bool asked = !recorder.take().empty();
        EXPECT_EQ(asked, cancel);
        return asked;
    }
};

} // namespace

TEST_P(SafetyTest, AReadThatFailsBetweenItsQueriesLeavesUsableGrids) {
    readC1();
    execute(u"ALTER TABLE ComisionesD RENAME TO Otra"_s);
    click(u"leer"_s);
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told.front().text.startsWith(u"Error al leer registro\n"_s));
    EXPECT_EQ(controls().XGrid->rows(), table().DetailsCount() + 1);
    enterCell(*controls().XGrid, 1, 1, u"Todos"_s);
    EXPECT_EQ(controls().XGrid->text(1, 1), u"Todos"_s);
    EXPECT_EQ(controls().StatusBar->text(panelMensaje), QString());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_P(SafetyTest, ClosingAsksForEveryKindOfEntry) {
    EXPECT_FALSE(closingAsks());
    controls().TxtGlosa->setFocus();
    type(u"x"_s);
    EXPECT_TRUE(closingAsks());
    click(u"limpiar"_s);
    EXPECT_FALSE(closingAsks());
    controls().FecIni->setFocus();
    type(u"1"_s);
    EXPECT_TRUE(closingAsks());
    click(u"limpiar"_s);
    recorder.take();
    readC1();
    EXPECT_FALSE(closingAsks());
    controls().CheckP->click();
    EXPECT_TRUE(closingAsks());
    controls().CheckP->click();
    EXPECT_FALSE(closingAsks());
}

TEST_P(SafetyTest, ACommandWaitsForTheWindowThatAsksSomething) {
    readC1();
    QDialog question(form.get());
    QTimer::singleShot(0, &question, [&] {
        controls().button(u"limpiar").trigger();
        QTest::qWait(3 * controls().timFocus->interval());
        EXPECT_EQ(table().Codigo(), u"C1"_s);
        question.reject();
    });
    question.exec();
    settle();
    EXPECT_EQ(table().Codigo(), QString());
}

TEST_P(SafetyTest, TheKeyboardComesBackAfterACommand) {
    readC1();
    controls().XGrid->setFocus();
    controls().XGrid->setRow(1);
    controls().XGrid->setCol(6);
    type(u"7"_s);
    click(u"ayuda"_s);
    EXPECT_TRUE(controls().XGrid->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(controls().XGrid->text(1, 6), u"7,00"_s);
    recorder.answer(ButtonNo);
    click(u"eliminar"_s);
    EXPECT_TRUE(controls().XGrid->isAncestorOf(QApplication::focusWidget()));
}

TEST_P(SafetyTest, MissingDatesGetTheFocus) {
    enter(*controls().TxtCodigo, u"C9"_s);
    enter(*controls().FecIni, u"01/01/2007"_s);
    enterCell(*controls().XGrid, 1, 1, u"Todos"_s);
    click(u"grabar"_s);
    expectTold({{u"Debe ingresar Fecha Inicial y Fecha Final para poder guardar"_s, 64}});
    EXPECT_TRUE(controls().FecFin->hasFocus());
}

TEST_P(SafetyTest, AnEndDateBelowTheFirstDayIsRefusedAndGetsTheFocus) {
    enter(*controls().TxtCodigo, u"C9"_s);
    enter(*controls().FecIni, u"01/01/2007"_s);
    enter(*controls().FecFin, u"01/01/1902"_s);
    enterCell(*controls().XGrid, 1, 1, u"Todos"_s);
    controls().FecIni->setEnabled(true);
    controls().FecFin->setEnabled(true);
    click(u"grabar"_s);
    expectTold({{u"Fecha no válida"_s, 64}});
    EXPECT_TRUE(controls().FecFin->hasFocus());
}

TEST_P(SafetyTest, AHostsNewRecordEndsTheEditOfTheOldOne) {
    readC1();
    controls().XGrid->setFocus();
    controls().XGrid->setRow(1);
    controls().XGrid->setCol(6);
    type(u"7"_s);
    form->System_RecordAdd();
    EXPECT_FALSE(controls().XGrid->isEditing());
    EXPECT_EQ(controls().XGrid->text(1, 6), u"0,00"_s);
    EXPECT_EQ(controls().XGrid->text(1, 1), QString());
}

TEST_P(SafetyTest, DeletingRowsWhileACellIsEdited) {
    readC1();
    enterCell(*controls().XGrid, 2, 1, u"Todos"_s);
    controls().XGrid->setFocus();
    controls().XGrid->setRow(2);
    controls().XGrid->setCol(6);
    type(u"7"_s);
    press(Qt::Key_Delete);
    EXPECT_TRUE(controls().XGrid->isEditing());
    press(Qt::Key_Escape);
    recorder.answer(ButtonYes);
    press(Qt::Key_Delete);
    EXPECT_EQ(table().DetailsCount(), 1);
    EXPECT_EQ(controls().XGrid->rows(), 2);
}

TEST_P(SafetyTest, ProgressIsSeenWhileACommandWorks) {
    QStringList seen;
    context.Connection->setStatementObserver([&](const QString& sql) {
        if (sql.contains(u" Comisiones "_s))
            seen << controls().StatusBar->text(panelMensaje);
    });
    readC1();
    recorder.answer(ButtonYes);
    click(u"grabar"_s);
    readC1();
    recorder.answer(ButtonYes);
    click(u"eliminar"_s);
    seen.removeDuplicates();
    EXPECT_EQ(seen, (QStringList{u"Leyendo registro ..."_s, u"Grabando registro ..."_s,
                                 u"Eliminando registro ..."_s}));
    EXPECT_EQ(controls().StatusBar->text(panelMensaje), QString());
}

INSTANTIATE_TEST_SUITE_P(Engines, SafetyTest, testing::ValuesIn(windowEngines), engineName);
