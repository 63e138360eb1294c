// The most salespeople that one read lists.
#include "tests/forms/vendedor/VendedorTest.h"

namespace dalvora::test {

namespace {

const Message limitMessage{
    u"No se pueden leer más CtasCtes\r\nDebe integrar o filtrar para continuar leyendo"_s, 16};

} // namespace

class SalespeopleLimit : public VendedorTest {
protected:
    /// Brings company 01 to this number of salespeople.
    void haveSalespeople(int count) {
        execute(
            u"with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) "
            "insert into gen_tabcod (Empresa, Tipo, Codigo, Descripcion) "
            "select '01', 'gen_vendedor', 'S' || substr(cast(100000 + i as text), 2), 'Vendedor ' || i from n"_s
                .arg(count - 5));
    }
};

TEST_P(SalespeopleLimit, OneLessThanTheLimitIsListedInSilence) {
    haveSalespeople(4999);
    open();
    expectSilence();
    EXPECT_EQ(grid().rows(), 5000);
    EXPECT_EQ(grid().row(), 1);
}

TEST_P(SalespeopleLimit, ExactlyTheLimitIsListedWithTheMessage) {
    haveSalespeople(5000);
    open();
    expectTold({limitMessage});
    EXPECT_EQ(grid().rows(), 5001);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(panel(panelMensaje), u"Comisión: "_s);
}

TEST_P(SalespeopleLimit, MoreThanTheLimitStopsThere) {
    haveSalespeople(5001);
    open();
    expectTold({limitMessage});
    EXPECT_EQ(grid().rows(), 5001);
    EXPECT_EQ(grid().text(5000, 1), u"S04995"_s);
    filter(u"S0500"_s);
    expectSilence();
    EXPECT_EQ(grid().rows(), 1);
    filter(u"S0499"_s);
    EXPECT_EQ(grid().rows(), 8);
}

TEST_P(SalespeopleLimit, AllOfThemAreAssignedAtOnce) {
    haveSalespeople(5001);
    loadScheme(u"C1"_s);
    open();
    recorder.take();
    grid().setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    clickButton(controls().cmdSeleccinar);
    EXPECT_EQ(form->list().markedCount(), 5000);
    clickButton(controls().CmdAsignar);
    expectTold({limitMessage});
    EXPECT_EQ(rows(u"select count(*) from gen_tabcod where texto = 'C1'"_s), QStringList{u"5000"_s});
    EXPECT_EQ(grid().text(5000, 3), u"C1"_s);
}

INSTANTIATE_TEST_SUITE_P(Engines, SalespeopleLimit, testing::ValuesIn(windowEngines), engineName);

} // namespace dalvora::test
