// Writing the scheme into the marked salespeople, also when something goes wrong.
#include "tests/forms/vendedor/VendedorTest.h"

namespace dalvora::test {

class SalespeopleAssign : public VendedorTest {
protected:
    void SetUp() override { openSilently(); }
    void mark(std::initializer_list<int> marked) {
        for (const int row : marked)
            clickCell(row, SalespeopleList::Codigo);
    }
    QStringList stored() {
        return rows(u"select codigo, texto from gen_tabcod where empresa = '01' and tipo = 'gen_vendedor' "
                    "order by codigo"_s);
    }
    void failAt(int statement, const QString& text, int number = quorvane::ErrorDiskFull) {
        fail.statements = 0;
        fail.atStatement = statement;
        fail.error = quorvane::RunTimeError(number, text);
    }
};

TEST_P(SalespeopleAssign, WithoutAMarkNothingIsWritten) {
    clickButton(controls().CmdAsignar);
    expectTold({{u"Debe seleccionar vendedores para asignarles la comisión"_s, 64}});
    EXPECT_EQ(statements, QStringList());
}

TEST_P(SalespeopleAssign, WritesTheMarkedRowsAndReadsTheListAgain) {
    loadScheme(u"C1"_s);
    mark({2, 4});
    clickButton(controls().CmdAsignar);
    expectSilence();
    EXPECT_EQ(
        statements,
        (QStringList{
            u"update gen_tabcod set texto= 'C1' Where empresa = '01' and codigo = '12' and tipo='Gen_vendedor' "_s,
            u"update gen_tabcod set texto= 'C1' Where empresa = '01' and codigo = '14' and tipo='Gen_vendedor' "_s,
            u"select * from gen_tabcod where tipo = 'gen_vendedor'  and empresa = '01' "_s}));
    EXPECT_EQ(shown(), (QStringList{u"11|Ana Núñez|VIEJA"_s, u"12|Luis Díaz|C1"_s, u"123|Eva Ríos|"_s,
                                    u"14|Juan O'Higgins|C1"_s, u"15|Rosa Paz|VIEJA"_s}));
    EXPECT_EQ(form->list().markedCount(), 0);
    EXPECT_EQ(grid().row(), 1);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(session->audits.size(), 0U);
}

TEST_P(SalespeopleAssign, OtherCompaniesAndOtherTablesOfCodesStayAsTheyAre) {
    loadScheme(u"C1"_s);
    mark({1});
    controls().menuItem(u"It_Integra").trigger();
    EXPECT_EQ(rows(u"select texto from gen_tabcod where codigo = '11' order by empresa, tipo"_s),
              (QStringList{u"C1"_s, u"ZONA"_s, u"OTRA"_s}));
}

TEST_P(SalespeopleAssign, AnEmptySchemeCodeIsWrittenAsItStands) {
    mark({1, 5});
    grid().setFocus();
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(stored(), (QStringList{u"11|"_s, u"12|"_s, u"123|"_s, u"14|"_s, u"15|"_s}));
}

TEST_P(SalespeopleAssign, TheSchemeIsTheOneLoadedAtThatMoment) {
    loadScheme(u"C1"_s);
    mark({1});
    loadScheme(u"C2"_s);
    clickButton(controls().CmdAsignar);
    EXPECT_EQ(grid().text(1, 3), u"C2"_s);
    EXPECT_EQ(panel(panelMensaje), u"Comisión: C2"_s);
}

TEST_P(SalespeopleAssign, QuotesOfTheSalespersonAndTheCompanyAreDoubled) {
    execute(u"update gen_tabcod set codigo = 'O''H' where empresa = '01' and codigo = '11'"_s);
    execute(u"insert into gen_tabcod (Empresa, Tipo, Codigo) values ('0''2', 'gen_vendedor', 'Z')"_s);
    form->Refresh();
    loadScheme(u"C1"_s);
    clickCell(5, 1);
    ASSERT_EQ(grid().text(5, 1), u"O'H"_s);
    statements.clear();
    clickButton(controls().CmdAsignar);
    EXPECT_TRUE(statements.value(0).contains(u"codigo = 'O''H'"_s));
    EXPECT_EQ(grid().text(5, 3), u"C1"_s);
    clickCell(1, 1);
    session->company = u"0'2"_s;
    statements.clear();
    clickButton(controls().CmdAsignar);
    EXPECT_TRUE(statements.value(0).contains(u"empresa = '0''2' "_s));
}

TEST_P(SalespeopleAssign, ASchemeCodeWithAQuoteFailsWithItsMessageAndNothingIsDone) {
    const QString before = wholeDatabase();
    for (const QString& code :
         {u"A'B"_s, u"x', descripcion='y"_s, u"x' --"_s, u"x'' ', valor1='9"_s, u"'"_s}) {
        context.Table->setTextValue(2, code);
        if (context.Table->Codigo() != code)
            continue; // longer than a code can be
        mark({1, 2});
        clickButton(controls().CmdAsignar);
        expectTold({{u"El código de comisión «%1» tiene una comilla y no se puede asignar"_s.arg(code), 16}});
        EXPECT_EQ(wholeDatabase(), before) << code.toStdString();
        EXPECT_EQ(marks(), u"-----"_s) << "the list was read again";
    }
    loadScheme(u"A'B"_s);
    ASSERT_EQ(context.Table->Codigo(), u"A'B"_s);
}

TEST_P(SalespeopleAssign, AnErrorInTheMiddleLeavesTheRowsBeforeItWritten) {
    loadScheme(u"C1"_s);
    mark({1, 2, 3});
    failAt(2, u"Disco lleno"_s);
    clickButton(controls().CmdAsignar);
    expectTold({{u"Disco lleno"_s, 16}});
    EXPECT_EQ(stored(), (QStringList{u"11|C1"_s, u"12|"_s, u"123|"_s, u"14|"_s, u"15|VIEJA"_s}));
    EXPECT_EQ(statements.size(), 3) << "two updates and the list again";
    EXPECT_EQ(grid().text(1, 3), u"C1"_s) << "the list shows what was written";
    EXPECT_EQ(form->list().markedCount(), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_P(SalespeopleAssign, AnotherProgramsLockIsToldAndTheFormStaysUsable) {
    loadScheme(u"C1"_s);
    mark({1});
    {
        quorvane::Connection other;
        other.open(context.Connection->connectString());
        other.beginTrans();
        other.execute(u"update gen_tabcod set descripcion = 'en curso' where tipo = 'gen_vendedor'"_s);
        clickButton(controls().CmdAsignar);
        const auto told = recorder.take();
        ASSERT_EQ(told.size(), 1U);
        EXPECT_EQ(told[0].style, 16);
        EXPECT_EQ(grid().text(1, 3), u"VIEJA"_s);
        other.rollbackTrans();
    }
    mark({1});
    clickButton(controls().CmdAsignar);
    expectSilence();
    EXPECT_EQ(grid().text(1, 3), u"C1"_s);
}

TEST_P(SalespeopleAssign, AConnectionLostWhileReadingIsToldAndTheNextReadReconnects) {
    failAt(1, u"Se perdió la conexión"_s, quorvane::ErrorConnectionLost);
    fail.atRow = 3;
    controls().menuItem(u"mnuRefrescar").trigger();
    expectTold({{u"Se perdió la conexión"_s, 16}});
    EXPECT_EQ(shown(), (QStringList{u"11|Ana Núñez|VIEJA"_s, u"12|Luis Díaz|"_s})) << "what was read stays";
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(panel(panelMensaje), u"Comisión: "_s);
    fail.heal();
    controls().menuItem(u"mnuRefrescar").trigger();
    expectSilence();
    EXPECT_EQ(grid().rows(), 6);
}

TEST_P(SalespeopleAssign, AConnectionLostWhileAssigningIsToldAndTheListComesOverANewOne) {
    loadScheme(u"C1"_s);
    mark({1, 2});
    failAt(2, u"Se perdió la conexión"_s, quorvane::ErrorConnectionLost);
    clickButton(controls().CmdAsignar);
    expectTold({{u"Se perdió la conexión"_s, 16}});
    EXPECT_EQ(grid().rows(), 6);
    EXPECT_EQ(grid().text(1, 3), u"C1"_s);
    EXPECT_EQ(grid().text(2, 3), QString());
}

TEST_P(SalespeopleAssign, ASalespersonDeletedByAnotherUserIsPassedOver) {
    loadScheme(u"C1"_s);
    mark({1, 2});
    execute(u"delete from gen_tabcod where empresa = '01' and codigo = '11' and tipo = 'gen_vendedor'"_s);
    clickButton(controls().CmdAsignar);
    expectSilence();
    EXPECT_EQ(stored(), (QStringList{u"12|C1"_s, u"123|"_s, u"14|"_s, u"15|VIEJA"_s}));
    EXPECT_EQ(grid().rows(), 5);
}

TEST_P(SalespeopleAssign, AMissingTableIsToldWhileReading) {
    execute(u"alter table gen_tabcod rename to otra"_s);
    controls().menuItem(u"mnuRefrescar").trigger();
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].style, 16);
    EXPECT_EQ(grid().rows(), 1);
}

INSTANTIATE_TEST_SUITE_P(Engines, SalespeopleAssign, testing::ValuesIn(windowEngines), engineName);

} // namespace dalvora::test
