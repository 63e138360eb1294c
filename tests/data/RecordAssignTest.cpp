#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

const Message badPercentage{u"Procentaje inválido(a)"_s, 64};
const Message badDate{u"Fecha Final inválido(a)"_s, 48};
const Message startAfterEnd{u"Fecha Inicial no pude ser superior a Fecha Final"_s, 48};
const Message endBeforeStart{u"Fecha Final no pude ser anterior a Fecha Inical"_s, 48};

class RecordAssign : public RecordTest {
protected:
    /// Assigns and gives the column's text after it; the refusal is the caller's to expect.
    QString assigned(int column, const QString& text) {
        table.setTextValue(column, text);
        return table.TextValue(column);
    }
};

} // namespace

TEST_F(RecordAssign, TheCompanyIsNotAssignable) {
    EXPECT_EQ(assigned(1, u"99"_s), u""_s);
    EXPECT_EQ(table.SysErrorCol, 0);
    expectSilence();
}

TEST_F(RecordAssign, AnUnknownColumnIsTold) {
    for (const int column : {7, 0, -1}) {
        EXPECT_EQ(assigned(column, u"x"_s), u""_s);
        EXPECT_EQ(table.SysErrorCol, column);
        expectTold({{u"Columna inválida"_s, 16}});
    }
}

TEST_F(RecordAssign, CodeAndDescriptionAreTrimmedAndCut) {
    EXPECT_EQ(assigned(2, u"  C1  "_s), u"C1"_s);
    EXPECT_EQ(assigned(2, QString(25, u'c')), QString(20, u'c'));
    EXPECT_EQ(assigned(3, QString(60, u'd')), QString(50, u'd'));
    EXPECT_EQ(assigned(3, u" '; drop -- 100% 😀 "_s), u"'; drop -- 100% 😀"_s);
    EXPECT_EQ(assigned(3, QString(49, u'd') + u"😀"_s), QString(49, u'd'));
    EXPECT_EQ(table.SysErrorCol, 0);
    expectSilence();
}

TEST_F(RecordAssign, APercentageIsAtMost100AndMayBeNegative) {
    EXPECT_EQ(assigned(4, u"100"_s), u"100"_s);
    EXPECT_EQ(assigned(4, u"-5"_s), u"-5"_s);
    EXPECT_EQ(assigned(4, u"12,345"_s), u"12,34"_s);
    EXPECT_EQ(table.SysErrorCol, 0);
    expectSilence();
}

TEST_F(RecordAssign, APercentageAbove100IsRefused) {
    table.setTextValue(4, u"10"_s);
    for (const QString& entry : {u"100,01"_s, u"100,001"_s, u"1e300"_s}) {
        EXPECT_EQ(assigned(4, entry), u"10"_s);
        EXPECT_EQ(table.SysErrorCol, 4);
        expectTold({badPercentage});
    }
}

TEST_F(RecordAssign, APercentageThatIsNoNumberIsAnError) {
    table.setTextValue(4, u"10"_s);
    for (const QString& entry : {u""_s, u"abc"_s, u"1;2"_s, QString(10000, u'9')}) {
        EXPECT_EQ(assigned(4, entry), u"10"_s);
        EXPECT_EQ(table.SysErrorCol, 4);
        expectTold({{u"Error al asignar valor a campo\n13 - No coinciden los tipos"_s, 16}});
    }
    EXPECT_EQ(assigned(4, u"1e400"_s), u"10"_s);
    EXPECT_EQ(table.SysErrorCol, 4);
    expectTold({{u"Error al asignar valor a campo\n6 - Desbordamiento"_s, 16}});
}

TEST_F(RecordAssign, DatesAreShownInTheRegionalForm) {
    EXPECT_EQ(assigned(5, u"1-6-06"_s), u"01/06/2006"_s);
    EXPECT_EQ(assigned(6, u"30.6.2006"_s), u"30/06/2006"_s);
    EXPECT_EQ(table.FECHAINICIO(), Date::fromYmd(2006, 6, 1));
    EXPECT_EQ(table.FechaFinal(), Date::fromYmd(2006, 6, 30));
    EXPECT_EQ(assigned(5, u""_s), u""_s);
    EXPECT_TRUE(table.FECHAINICIO().isEmpty());
    expectSilence();
}

TEST_F(RecordAssign, ATextThatIsNoDateIsToldAsTheEndDateInBothColumns) {
    for (const int column : {5, 6})
        for (const QString& entry : {u"31/02/2006"_s, u"01/01/10000"_s, u"hoy"_s, QString(10000, u'1')}) {
            EXPECT_EQ(assigned(column, entry), u""_s);
            EXPECT_EQ(table.SysErrorCol, column);
            expectTold({badDate});
        }
}

TEST_F(RecordAssign, AnyStartDateIsTakenWhileThereIsNoEndDate) {
    EXPECT_EQ(assigned(5, u"01/01/2007"_s), u"01/01/2007"_s);
    EXPECT_EQ(table.SysErrorCol, 0);
    expectSilence();
}

TEST_F(RecordAssign, AStartDateAfterTheEndDateIsRefused) {
    table.setTextValue(6, u"31/12/2006"_s);
    EXPECT_EQ(assigned(5, u"01/01/2007"_s), u""_s);
    EXPECT_EQ(table.SysErrorCol, 5);
    expectTold({startAfterEnd});
    EXPECT_EQ(assigned(5, u"31/12/2006"_s), u"31/12/2006"_s);
    EXPECT_EQ(table.SysErrorCol, 0);
}

TEST_F(RecordAssign, TheVeryFirstEndDateMayLieBeforeTheStartDate) {
    table.setTextValue(5, u"01/06/2006"_s);
    EXPECT_EQ(assigned(6, u"01/01/2006"_s), u"01/01/2006"_s);
    expectSilence();
    EXPECT_EQ(assigned(6, u"02/01/2006"_s), u"01/01/2006"_s);
    EXPECT_EQ(table.SysErrorCol, 6);
    expectTold({endBeforeStart});
    EXPECT_EQ(assigned(6, u"01/06/2006"_s), u"01/06/2006"_s);
    EXPECT_EQ(table.SysErrorCol, 0);
}

TEST_F(RecordAssign, EmptyDatesFollowTheSameRules) {
    table.setTextValue(5, u"01/06/2006"_s);
    table.setTextValue(6, u"30/06/2006"_s);
    EXPECT_EQ(assigned(6, u""_s), u"30/06/2006"_s);
    expectTold({endBeforeStart});
    table.setTextValue(5, u""_s);
    EXPECT_EQ(assigned(6, u""_s), u""_s);
    expectSilence();
}

TEST_F(RecordAssign, APeriodTakenAtOnceMarksTheRecordAsModified) {
    table.setTextValue(5, u"01/01/2006"_s);
    table.setTextValue(6, u"31/12/2006"_s);
    table.SaveDates();
    table.setPeriod(Date::fromYmd(2007, 1, 1), Date::fromYmd(2007, 12, 31));
    EXPECT_EQ(table.TextValue(5), u"01/01/2007"_s);
    EXPECT_EQ(table.TextValue(6), u"31/12/2007"_s);
    EXPECT_TRUE(table.SysRecordModified);
    EXPECT_TRUE(table.hasUnsavedChanges());
    EXPECT_EQ(table.save_FechaInicio(), Date::fromYmd(2006, 1, 1));
    expectSilence();
}

TEST_F(RecordAssign, DatesAreClearedAndSavedTogether) {
    table.setTextValue(5, u"01/06/2006"_s);
    table.setTextValue(6, u"30/06/2006"_s);
    table.SaveDates();
    EXPECT_EQ(table.save_FechaInicio(), Date::fromYmd(2006, 6, 1));
    EXPECT_EQ(table.save_FechaFinal(), Date::fromYmd(2006, 6, 30));
    table.ClearDates();
    EXPECT_TRUE(table.FECHAINICIO().isEmpty() && table.FechaFinal().isEmpty());
    EXPECT_TRUE(table.save_FechaInicio().isEmpty() && table.save_FechaFinal().isEmpty());
}
