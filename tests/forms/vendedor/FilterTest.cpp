// What is typed into the filter, and what it can and cannot do.
#include "tests/forms/vendedor/VendedorTest.h"

namespace dalvora::test {

class SalespeopleFilter : public VendedorTest {
protected:
    void SetUp() override {
        openSilently();
        // Reads with the write-ahead log leave no trace in the tables; what the tables hold is compared.
        before = wholeDatabase();
    }
    void expectUsable() {
        filter(u"12"_s);
        expectSilence();
        EXPECT_EQ(shown(), (QStringList{u"12|Luis Díaz|"_s, u"123|Eva Ríos|"_s}));
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
    QString before;
};

TEST_P(SalespeopleFilter, AllAreReadWithTheStatementToTheLetter) {
    filter(u""_s);
    EXPECT_EQ(statements,
              QStringList{u"select * from gen_tabcod where tipo = 'gen_vendedor'  and empresa = '01' "_s});
}

TEST_P(SalespeopleFilter, APrefixListsTheCodesThatBeginWithIt) {
    filter(u"12"_s);
    EXPECT_EQ(shown(), (QStringList{u"12|Luis Díaz|"_s, u"123|Eva Ríos|"_s}));
    EXPECT_EQ(statements,
              QStringList{u"select * from gen_tabcod where tipo = 'gen_vendedor'  and empresa = '01' "
                          "and codigo like '12%' "_s});
}

TEST_P(SalespeopleFilter, BlanksAroundItDoNotCount) {
    filter(u"  12 "_s);
    EXPECT_TRUE(statements.value(0).endsWith(u"and codigo like '12%' "_s));
    filter(u"   "_s);
    EXPECT_EQ(grid().rows(), 6);
    EXPECT_TRUE(statements.value(1).endsWith(u"and empresa = '01' "_s));
}

TEST_P(SalespeopleFilter, ItsTextEntersUnchanged) {
    filter(u"$EMPRESA$"_s);
    EXPECT_TRUE(statements.value(0).endsWith(u"and codigo like '$EMPRESA$%' "_s));
    filter(u"%3"_s);
    EXPECT_EQ(shown(), QStringList{u"123|Eva Ríos|"_s});
}

TEST_P(SalespeopleFilter, ALonelyQuoteIsAnErrorAndTheFormStaysUsable) {
    filter(u"O'Higgins"_s);
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].style, 16);
    EXPECT_FALSE(told[0].text.isEmpty());
    EXPECT_EQ(grid().rows(), 1);
    EXPECT_EQ(panel(panelMensaje), u"Comisión: "_s);
    expectUsable();
}

TEST_P(SalespeopleFilter, TheCompanyCodeStandsAsItIs) {
    session->company = u"0'1"_s;
    filter(u""_s);
    EXPECT_TRUE(statements.value(0).contains(u"empresa = '0'1'"_s));
    EXPECT_EQ(recorder.take().size(), 1U);
    session->company = u"01"_s;
    expectUsable();
}

TEST_P(SalespeopleFilter, NothingTypedCanChangeOrDestroyAnything) {
    const QStringList attempts{
        u"'; delete from gen_tabcod; --"_s,
        u"'; delete from gen_tabcod where '%' = '"_s,
        u"'; drop table gen_tabcod; --"_s,
        u"'; update gen_tabcod set texto = 'x' where '' = '"_s,
        u"'; insert into gen_tabcod (empresa) values ('99'); --"_s,
        u"'; attach 'otra.db' as otra; --"_s,
        u"'; pragma writable_schema = 1; --"_s,
        u"'; vacuum; --"_s,
        u"'; create table x (a); --"_s,
        u"';delete/**/from/**/gen_tabcod;--"_s,
        u"'\u00A0;\u00A0drop table gen_tabcod;--"_s,
        u"' union select 1,2,3,4,5,6,7; delete from gen_tabcod --"_s,
        u"' union delete from gen_tabcod returning * --"_s,
        u"' and exists (delete from gen_tabcod) --"_s,
        u"' into outfile 'x' --"_s,
        u"' union select * into copia from gen_tabcod --"_s,
        u"'; begin exclusive; --"_s,
        u"'; commit; --"_s,
        u"' /* "_s,
        u"' union select load_extension('x'),2,3,4,5,6,7 --"_s,
        u"\\'; drop table gen_tabcod; --"_s,
        u"''; drop table gen_tabcod; --"_s,
        u"[;drop table gen_tabcod;--"_s,
        u"\";drop table gen_tabcod;--"_s,
    };
    for (const QString& attempt : attempts) {
        filter(attempt);
        for (const Message& told : recorder.take())
            EXPECT_EQ(told.style, 16) << attempt.toStdString();
        EXPECT_EQ(wholeDatabase(), before) << attempt.toStdString();
        EXPECT_FALSE(context.Connection->inTransaction());
    }
    expectUsable();
    // The database can still be written: nothing was left open or locked.
    execute(u"update gen_tabcod set texto = '' where empresa = '01' and codigo = '12'"_s);
}

TEST_P(SalespeopleFilter, RowsOfOthersThatATrickListsAreNotWritten) {
    loadScheme(u"C1"_s);
    filter(u"' or 1=1 --"_s);
    expectSilence();
    ASSERT_GT(grid().rows(), 6);
    grid().setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    clickButton(controls().cmdSeleccinar);
    clickButton(controls().CmdAsignar);
    EXPECT_EQ(rows(u"select distinct texto from gen_tabcod where empresa = '01' and tipo = 'gen_vendedor'"_s),
              QStringList{u"C1"_s});
    EXPECT_EQ(rows(u"select texto from gen_tabcod where empresa = '02' or tipo = 'gen_zona' order by 1"_s),
              (QStringList{u"OTRA"_s, u"ZONA"_s}));
}

INSTANTIATE_TEST_SUITE_P(Engines, SalespeopleFilter, testing::ValuesIn(windowEngines), engineName);

} // namespace dalvora::test
