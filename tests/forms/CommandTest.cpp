// Commands of the main form, from the click to what the user sees and what is stored.
#include "tests/forms/MainFormTest.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class CommandTest : public MainFormTest {};

} // namespace

TEST_P(CommandTest, AClickRunsItsCommandAfterTheEntryInProgressWasStored) {
    readC1();
    controls().XGrid->setFocus();
    controls().XGrid->setRow(1);
    controls().XGrid->setCol(6);
    type(u"7"_s);
    ASSERT_TRUE(controls().XGrid->isEditing());
    click(u"grabar"_s);
    EXPECT_EQ(rows(u"SELECT Porcentaje FROM ComisionesD WHERE tipo = 'Producto'"_s), QStringList{u"7"_s});
    EXPECT_EQ(controls().TxtCodigo->text(), QString());
    EXPECT_EQ(session->audits.size(), 1U);
    EXPECT_EQ(session->audits.front().first, 5);
    expectSilence();
}

TEST_P(CommandTest, ASecondClickBeforeTheTimerReplacesTheFirst) {
    controls().button(u"ayuda").trigger();
    controls().button(u"vprevia").trigger();
    settle();
    EXPECT_EQ(calls, QStringList{u"preview"_s});
}

TEST_P(CommandTest, HelpAboutReportsAndSalespeople) {
    for (const char16_t* item : {u"mnuAyudaTopico", u"mnuAyudaBuscar", u"mnuAyudaUso", u"mnuAcercaDe"})
        choose(QString::fromUtf16(item));
    click(u"vprevia"_s);
    click(u"imprimir"_s);
    EXPECT_EQ(calls, (QStringList{u"Help 138"_s, u"Help -1"_s, u"Help 0"_s, u"About Veltrano Dalvora"_s,
                                  u"preview"_s, u"print"_s}));
    calls.clear();
    readC1();
    click(u"cliente"_s);
    choose(u"mnuAsignar"_s);
    EXPECT_EQ(calls, (QStringList{u"salespeople"_s, u"salespeople"_s}));
}

TEST_P(CommandTest, CloseAndQuitEndTheProgramWithoutAsking) {
    readC1();
    enterCell(*controls().XGrid, 1, 6, u"7"_s);
    choose(u"mnuSalir"_s);
    choose(u"mnuCerrar"_s);
    EXPECT_EQ(calls, (QStringList{u"terminate"_s, u"terminate"_s}));
    expectSilence();
}

TEST_P(CommandTest, CommandsWithoutAnActionSaySo) {
    for (const char16_t* item : {u"mnuLeerPrimero", u"mnuLeerSiguiente", u"mnuBrowser"})
        choose(QString::fromUtf16(item));
    expectTold({{u"Botón no implementado leerprimero"_s, 16},
                {u"Botón no implementado leersiguiente"_s, 16},
                {u"Botón no implementado browser"_s, 16}});
}

TEST_P(CommandTest, SaveNeedsALineBeforeItLooksAtTheDates) {
    controls().button(u"grabar").setEnabled(true);
    click(u"grabar"_s);
    expectTold({{u"Debe ingresar al menos una comisión para poder Guardar"_s, 64}});
    enterCell(*controls().XGrid, 1, 1, u"Todos"_s);
    controls().button(u"grabar").setEnabled(true);
    click(u"grabar"_s);
    expectTold({{u"Debe ingresar Fecha Inicial y Fecha Final para poder guardar"_s, 64}});
}

TEST_P(CommandTest, FirstSavedDayIsTheFourteenthOfMarch1905) {
    enter(*controls().TxtCodigo, u"C9"_s);
    enter(*controls().FecIni, u"13/03/1905"_s);
    enter(*controls().FecFin, u"31/12/2006"_s);
    enterCell(*controls().XGrid, 1, 1, u"Todos"_s);
    click(u"grabar"_s);
    expectTold({{u"Fecha no válida"_s, 64}});
    click(u"limpiar"_s);
    enter(*controls().TxtCodigo, u"C9"_s);
    enter(*controls().FecIni, u"14/03/1905"_s);
    enter(*controls().FecFin, u"31/12/2006"_s);
    enterCell(*controls().XGrid, 1, 1, u"Todos"_s);
    enterCell(*controls().XGrid, 1, 6, u"5"_s);
    enterCell(*controls().XGrid, 1, 7, u"Neto"_s);
    click(u"grabar"_s);
    expectSilence();
    EXPECT_EQ(rows(u"SELECT FechaInicio FROM Comisiones WHERE Codigo = 'C9'"_s),
              QStringList{u"14/03/1905"_s});
    EXPECT_EQ(session->audits.back().first, 6);
}

TEST_P(CommandTest, ARefusedSavePutsTheCursorOnTheFailingCell) {
    readC1();
    controls().SSTab1->setCurrentIndex(2);
    enterCell(*controls().XGrid, 2, 1, u"Todos"_s);
    controls().SSTab1->setCurrentIndex(2);
    click(u"grabar"_s);
    expectTold({{u"Debe ingresar Porcentaje"_s, 48}});
    EXPECT_EQ(controls().SSTab1->currentIndex(), 0);
    EXPECT_EQ(controls().XGrid->row(), 2);
    EXPECT_EQ(controls().XGrid->col(), 6);
    EXPECT_TRUE(table().SysRecordEnabled);
}

TEST_P(CommandTest, DeleteAsksOnlyForAStoredRecord) {
    controls().button(u"eliminar").setEnabled(true);
    click(u"eliminar"_s);
    expectTold({{u"Antes de eliminar debe leer un registro"_s, 48}});
    readC1();
    recorder.answer(ButtonNo);
    click(u"eliminar"_s);
    expectTold({{u"¿ Seguro de eliminar registro ?"_s, 36}});
    EXPECT_TRUE(table().SysRecordFound);
    recorder.answer(ButtonYes);
    click(u"eliminar"_s);
    expectTold({{u"¿ Seguro de eliminar registro ?"_s, 36}, {u"Registro Eliminado"_s, 64}});
    EXPECT_EQ(rows(u"SELECT count(*) FROM ComisionesD"_s), QStringList{u"0"_s});
    EXPECT_EQ(controls().TxtCodigo->text(), QString());
}

TEST_P(CommandTest, CommandsFollowTheRightsAndTheState) {
    EXPECT_FALSE(controls().button(u"grabar").isEnabled());
    EXPECT_FALSE(controls().button(u"eliminar").isEnabled());
    EXPECT_TRUE(controls().menuItem(u"mnuLeer").isEnabled());
    readC1();
    for (const char16_t* key : {u"grabar", u"eliminar", u"cliente"})
        EXPECT_TRUE(controls().button(key).isEnabled());
    for (const char16_t* item : {u"mnuGrabar", u"mnuEliminar", u"mnuModif", u"mnuAsignar"})
        EXPECT_TRUE(controls().menuItem(item).isEnabled());
    EXPECT_FALSE(controls().menuItem(u"mnuLeer").isEnabled());
    EXPECT_TRUE(controls().CheckP->isChecked());
    click(u"limpiar"_s);
    session->rights = u"r---"_s;
    readC1();
    for (const char16_t* key : {u"grabar", u"eliminar", u"cliente"})
        EXPECT_FALSE(controls().button(key).isEnabled());
    for (const char16_t* item : {u"mnuGrabar", u"mnuEliminar", u"mnuModif", u"mnuAsignar"})
        EXPECT_FALSE(controls().menuItem(item).isEnabled());
}

TEST_P(CommandTest, ARightWithdrawnWhileTypingRefusesTheSaveAndLosesNothing) {
    readC1();
    enterCell(*controls().XGrid, 1, 6, u"7"_s);
    session->rights = u"R---"_s;
    click(u"grabar"_s);
    expectTold({{u"Usuario no tiene permiso de escritura"_s, 48}});
    EXPECT_EQ(controls().XGrid->text(1, 6), u"7,00"_s);
    EXPECT_EQ(rows(u"SELECT Porcentaje FROM ComisionesD WHERE tipo = 'Producto'"_s), QStringList{u"5"_s});
}

TEST_P(CommandTest, HostOpensAndAddsRecords) {
    enter(*controls().TxtCodigo, u"NADA"_s);
    form->openRecord(u"NADA"_s, false);
    expectTold({{u"Registro no existe"_s, 64}});
    EXPECT_FALSE(controls().TxtCodigo->isEnabled());
    EXPECT_TRUE(form->isEnabled());
    form->hide();
    form->addRecordQuietly();
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(controls().TxtCodigo->isEnabled());
    EXPECT_EQ(controls().TxtCodigo->text(), QString());
    session->rights = u"----"_s;
    form->System_RecordOpen(u"C1"_s);
    expectTold({{u"Usuario no tiene permiso de lectura"_s, 48}});
    EXPECT_TRUE(controls().TxtCodigo->isEnabled());
}

TEST_P(CommandTest, ClosingAsksBeforeAnEntryIsLost) {
    readC1();
    bool cancel = false;
    form->Form_QueryUnload(cancel, frmMain::ControlBox);
    EXPECT_FALSE(cancel);
    expectSilence();
    controls().XGrid->setFocus();
    controls().XGrid->setRow(1);
    controls().XGrid->setCol(6);
    type(u"7"_s);
    recorder.answer(ButtonNo);
    form->close();
    expectTold({{u"¿ Seguro de salir perdiendo las modificaciones ingresadas ?"_s, 36}});
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(controls().XGrid->text(1, 6), u"7,00"_s);
    bool ended = false;
    QObject::connect(form.get(), &frmMain::unloaded, [&ended] { ended = true; });
    recorder.answer(ButtonYes);
    form->close();
    EXPECT_TRUE(ended);
    EXPECT_FALSE(form->isVisible());
}

TEST_P(CommandTest, ProgressShowsInThePanelAndGoesAway) {
    readC1();
    EXPECT_EQ(controls().StatusBar->text(panelMensaje), QString());
    EXPECT_EQ(controls().StatusBar->text(panelPeriodo), u"01/01/2006 - 31/12/2006"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_P(CommandTest, TheSecondOfTwoUsersIsToldAndStoresNothing) {
    readC1();
    enterCell(*controls().XGrid, 1, 6, u"7"_s);
    execute(u"UPDATE Comisiones SET FechaFinal = '30/06/2006'"_s);
    click(u"grabar"_s);
    expectTold(
        {{u"No se grabó el registro porque ha sido modificado por otro usuario. Debe leer nuevamente."_s,
          64}});
    EXPECT_EQ(rows(u"SELECT Porcentaje FROM ComisionesD WHERE tipo = 'Producto'"_s), QStringList{u"5"_s});
    EXPECT_EQ(controls().XGrid->text(1, 6), u"7,00"_s);
}

INSTANTIATE_TEST_SUITE_P(Engines, CommandTest, testing::ValuesIn(windowEngines), engineName);
