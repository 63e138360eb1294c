// Two people work on one scheme, one step after the other: what docs/many-users.md tells.
#include "tests/load/LoadCompany.h"
#include "tests/support/MessageRecorder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;

class TwoPeople : public testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override {
        make(ana, u"31/12/2006"_s);
        ASSERT_TRUE(ana.table().DBWrite(true));
    }

    /// Enters a new scheme of 2006 with two amount lines.
    void make(LoadProgram& program, const QString& end) {
        DBTable& table = program.table();
        ASSERT_TRUE(program.read(u"C1"_s));
        table.SysRecordFound = false;
        table.carga_inicio();
        table.ClearDates();
        table.setTextValue(6, end);
        table.setTextValue(5, end == u"31/12/2006" ? u"01/01/2006"_s : u"01/01/2007"_s);
        addLine(table, u"D1"_s);
        addLine(table, u"D2"_s);
    }
    static void addLine(DBTable& table, const QString& document) {
        DBMonto& line = table.MontosAdd(table.MontosCount());
        line.setTextValue(1, document);
        line.setTextValue(4, u"5"_s);
        line.setTextValue(5, u"Neto"_s);
    }
    void bothRead() {
        ASSERT_TRUE(ana.read(u"C1"_s));
        ASSERT_TRUE(luis.read(u"C1"_s));
        recorder.take();
    }
    void describeAndSave(LoadProgram& program, const QString& text) {
        program.table().setTextValue(3, text);
        EXPECT_TRUE(program.table().DBWrite(true));
    }
    /// What is stored: the descriptions, then each line as document and percentage.
    QStringList stored() {
        QStringList texts;
        for (const char16_t* sql :
             {u"SELECT Descripcion, '' AS Valor FROM Comisiones WHERE Codigo = 'C1' ORDER BY FechaInicio",
              u"SELECT Concepto, Porcentaje FROM ComisionesD ORDER BY FechaInicio, Concepto"})
            for (auto row = ana.connection().openRecordset(QString::fromUtf16(sql)); !row.eof();
                 row.moveNext())
                texts << (row.value(0).toText({}) + u' ' + row.value(1).toText({})).trimmed();
        return texts;
    }
    void expectOneMessage(const QString& text) {
        const auto told = recorder.take();
        ASSERT_EQ(told.size(), 1U);
        EXPECT_EQ(told[0].text, text);
    }

    MessageRecorder recorder;
    LoadCompany company{GetParam(), 2, 300};
    LoadProgram ana{company.profileFolder(0)};
    LoadProgram luis{company.profileFolder(1)};
};

TEST_P(TwoPeople, WhoeverComesAfterAChangeOfThePeriodIsRefusedUntilHeReads) {
    bothRead();
    ana.table().setTextValue(6, u"30/06/2006"_s);
    describeAndSave(ana, u"de Ana"_s);
    recorder.take();
    luis.table().setTextValue(3, u"de Luis"_s);
    for (int attempt = 0; attempt < 2; ++attempt) {
        EXPECT_FALSE(luis.table().DBWrite(true));
        expectOneMessage(u"No se grabó el registro porque ha sido modificado por otro usuario. "
                         u"Debe leer nuevamente."_s);
    }
    EXPECT_EQ(luis.table().Descripcion(), u"de Luis"_s);
    EXPECT_FALSE(luis.table().DBDelete());
    expectOneMessage(u"No se eliminó el registro porque ha sido modificado por otro usuario. "
                     u"Debe leer nuevamente."_s);
    EXPECT_EQ(stored(), (QStringList{u"de Ana"_s, u"D1 5"_s, u"D2 5"_s}));
    ASSERT_TRUE(luis.read(u"C1"_s));
    describeAndSave(luis, u"de Luis"_s);
    EXPECT_EQ(stored()[0], u"de Luis"_s);
}

TEST_P(TwoPeople, WhoeverComesAfterADeletionIsRefused) {
    bothRead();
    EXPECT_TRUE(ana.table().DBDelete());
    EXPECT_FALSE(luis.table().DBWrite(true));
    expectOneMessage(u"No se grabó el registro porque ha sido modificado por otro usuario. "
                     u"Debe leer nuevamente."_s);
    EXPECT_FALSE(luis.table().DBDelete());
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(TwoPeople, LinesThatOnlyOneChangedAreAsHeLeftThem) {
    bothRead();
    ana.table().montos(1).setTextValue(4, u"11"_s);
    luis.table().montos(2).setTextValue(4, u"22"_s);
    describeAndSave(ana, u"de Ana"_s);
    describeAndSave(luis, u"de Luis"_s);
    EXPECT_EQ(stored(), (QStringList{u"de Luis"_s, u"D1 11"_s, u"D2 22"_s}));
    EXPECT_TRUE(recorder.take().empty());
}

TEST_P(TwoPeople, TheEarlierChangeOfALineStaysUnderTheLaterHeader) {
    bothRead();
    ana.table().montos(1).setTextValue(4, u"11"_s);
    luis.table().montos(1).setTextValue(4, u"22"_s);
    describeAndSave(ana, u"de Ana"_s);
    describeAndSave(luis, u"de Luis"_s);
    EXPECT_EQ(stored(), (QStringList{u"de Luis"_s, u"D1 11"_s, u"D2 5"_s}));
    EXPECT_TRUE(recorder.take().empty());
}

TEST_P(TwoPeople, ALineThatTheLaterOneGaveAnotherCodeIsThereTwice) {
    bothRead();
    ana.table().montos(1).setTextValue(4, u"11"_s);
    luis.table().montos(1).setTextValue(1, u"D3"_s);
    describeAndSave(ana, u"de Ana"_s);
    describeAndSave(luis, u"de Luis"_s);
    EXPECT_EQ(stored(), (QStringList{u"de Luis"_s, u"D1 11"_s, u"D2 5"_s, u"D3 5"_s}));
}

TEST_P(TwoPeople, MakingTheSameSchemeTwiceIsADuplicate) {
    make(luis, u"31/12/2006"_s);
    recorder.take();
    EXPECT_FALSE(luis.table().DBWrite(true));
    expectOneMessage(u"Error al grabar registro\nYa existe un registro con esas características"_s);
}

TEST_P(TwoPeople, TwoPeriodsOfACodeShareTheirLinesFateAtADeletion) {
    make(luis, u"31/12/2007"_s);
    describeAndSave(luis, u"2007"_s);
    EXPECT_EQ(stored().size(), 6);
    ASSERT_TRUE(ana.read(u"C1"_s));
    EXPECT_TRUE(ana.table().DBDelete());
    EXPECT_EQ(stored().size(), 1) << "the other header alone";
}

TEST_P(TwoPeople, WhoeverIsInTheWayOfALockIsToldAndMaySaveAgain) {
    bothRead();
    luis.connection().beginTrans();
    luis.connection().execute(u"UPDATE Comisiones SET Acumulable = Acumulable"_s);
    ana.table().setTextValue(3, u"de Ana"_s);
    EXPECT_FALSE(ana.table().DBWrite(true));
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0].text.toStdString(),
                testing::StartsWith("Error al grabar registro\n1222 - Otro programa está usando"));
    luis.connection().rollbackTrans();
    EXPECT_TRUE(ana.table().DBWrite(true));
    EXPECT_EQ(stored()[0], u"de Ana"_s);
}

INSTANTIATE_TEST_SUITE_P(Engines, TwoPeople, testing::Values(TestEngine::Sqlite, TestEngine::PostgreSql),
                         engineName);

} // namespace
