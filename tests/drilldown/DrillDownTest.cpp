#include "reports/drilldown/DrillDown.h"
#include "tests/data/RecordFixture.h"
#include "tests/drilldown/FakeSurroundings.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

const QString report = u"ComisionesVENDEDOR"_s;

class Drill : public RecordTest {
protected:
    void storeDocument() {
        database.answer(u"FROM TipoDocumento "_s, {u"tipodocto"_s}, {{u"FACTURA"_s}, {u"FACX"_s}});
        database.answer(u"FROM documento "_s, {u"idCtaCte"_s}, {{u"VINET"_s}});
        database.answer(u"FROM Documento "_s, {u"Emitido"_s}, {{u"S"_s}});
    }
    static std::vector<ClickedField> line(const QString& type, const QString& number) {
        return {{u"Field1"_s, u"01"_s}, {u"field10"_s, type}, {u"Field2"_s, u"x"_s}, {u"FIELD6"_s, number}};
    }
    QStringList sent() { return fake.take().filter(u"LinkExecute="_s); }

    FakeSurroundings fake;
    DrillDown drillDown{table, fake, fake.surroundings()};
};

} // namespace

TEST_F(Drill, AClickedLineOpensItsDocument) {
    storeDocument();
    drillDown.documentClicked(report, line(u"FAC"_s, u"10248"_s));
    expectCalls({u"SELECT TOP 1 tipodocto FROM TipoDocumento WHERE empresa = '01' And "
                 u"tipodocto LIKE 'FAC%'"_s,
                 u"SELECT TOP 1 idCtaCte FROM documento WHERE empresa = '01' And TipoDocto='FACTURA' And "
                 u"Numero='10248'  "_s,
                 u"SELECT TOP 1 Emitido FROM Documento WHERE empresa = '01' And TipoDocto='FACTURA' And "
                 u"IdCtaCte='VINET' And Numero='10248'"_s});
    EXPECT_EQ(sent(), QStringList{u"LinkExecute=EMPRESA=01;TIPODOCTO=FACTURA;CTACTE=VINET;DOCTOINI=10248;"
                                  u"DOCTOFIN=10248;EMISION=;ACCION=V;FORMATO=;EMITIDO=S;"
                                  u"TIPOCTACTE=$TIPOCTACTE$"_s});
    EXPECT_EQ(table.NavegaReportTag, u"Lorbadeno"_s);
    EXPECT_EQ(table.NavegaReportCap, u"Emisión de Documentos"_s);
    expectSilence();
}

TEST_F(Drill, TheRequestGoesToTheDocumentProgram) {
    fake.onConnect = [](int attempt) { return attempt == 1 ? 282 : 0; };
    drillDown.OpenDocument(u"1"_s, u"FACTURA"_s, u"VINET"_s, u"S"_s);
    EXPECT_EQ(fake.take().mid(0, 7),
              QStringList({u"pointer 11"_s, u"LinkTimeout=50"_s, u"LinkMode=0"_s,
                           u"LinkTopic=Emisión de Documentos|Lorbadeno"_s, u"LinkMode=0"_s, u"LinkMode=2"_s,
                           u"open Lorbadeno.Exe in C:\\ as 1"_s}));
}

TEST_F(Drill, OnlySalespersonReportsAreFollowed) {
    EXPECT_TRUE(DrillDown::follows(u"Vendedor"_s));
    EXPECT_TRUE(DrillDown::follows(u"resumen por vendedor 2"_s));
    EXPECT_FALSE(DrillDown::follows(u"ListaCodigos"_s));
    EXPECT_FALSE(DrillDown::follows(u""_s));
    drillDown.documentClicked(u"ListaCodigos"_s, line(u"FAC"_s, u"1"_s));
    expectCalls({});
    EXPECT_EQ(fake.take(), QStringList());
}

TEST_F(Drill, AClickBesideTheLinesDoesNothing) {
    for (const int fields : {0, 1, 2})
        drillDown.documentClicked(report, std::vector<ClickedField>(fields, {u"Field10"_s, u"FAC"_s}));
    expectCalls({});
    EXPECT_EQ(fake.take(), QStringList());
    expectSilence();
}

TEST_F(Drill, ALineWithoutTheTwoFieldsAsksForNothingNamed) {
    drillDown.documentClicked(report, {{u"a"_s, u"1"_s}, {u"b"_s, u"2"_s}, {u"c"_s, u"3"_s}});
    EXPECT_EQ(sent(), QStringList{u"LinkExecute=EMPRESA=01;TIPODOCTO=;CTACTE=;DOCTOINI=;DOCTOFIN=;EMISION=;"
                                  u"ACCION=V;FORMATO=;EMITIDO=;TIPOCTACTE=$TIPOCTACTE$"_s});
}

TEST_F(Drill, AQuoteInTheTypeIsDoubledTwice) {
    drillDown.documentClicked(report, line(u"F'C"_s, u"1"_s));
    EXPECT_EQ(database.take().front(), u"SELECT TOP 1 tipodocto FROM TipoDocumento WHERE empresa = '01' And "
                                       u"tipodocto LIKE 'F''''C%'"_s);
}

TEST_F(Drill, ValuesThatReadLikePlaceholdersAreReplacedInOrder) {
    drillDown.OpenDocument(u"$ctacte$"_s, u"$numero$"_s, u"C"_s, u"$TIPO$"_s);
    EXPECT_EQ(sent(), QStringList{u"LinkExecute=EMPRESA=01;TIPODOCTO=C;CTACTE=C;DOCTOINI=C;DOCTOFIN=C;"
                                  u"EMISION=;ACCION=V;FORMATO=;EMITIDO=$TIPO$;TIPOCTACTE=$TIPOCTACTE$"_s});
}

TEST_F(Drill, ALostDatabaseIsToldAndNothingIsSent) {
    plan.atStatement = 2;
    plan.error = RunTimeError(quorvane::ErrorConnectionLost, u"Se perdió la conexión"_s);
    drillDown.documentClicked(report, line(u"FAC"_s, u"1"_s));
    expectTold({{u"Error al buscar documento\n3709 - Se perdió la conexión"_s, 16}});
    EXPECT_EQ(fake.take(), QStringList());
    plan.heal();
    drillDown.documentClicked(report, line(u"FAC"_s, u"1"_s));
    EXPECT_EQ(sent().size(), 1);
}

TEST_F(Drill, AClickWhileADocumentIsBeingOpenedIsDropped) {
    int clicks = 0;
    TopicSurroundings surroundings = fake.surroundings();
    DrillDown* inner = nullptr;
    surroundings.yield = [&] {
        ++clicks;
        EXPECT_TRUE(inner->isBusy());
        inner->documentClicked(report, line(u"FAC"_s, u"2"_s));
    };
    DrillDown outer(table, fake, surroundings);
    inner = &outer;
    fake.onConnect = [](int attempt) { return attempt == 1 ? 282 : 0; };
    outer.documentClicked(report, line(u"FAC"_s, u"1"_s));
    EXPECT_EQ(clicks, 20000);
    EXPECT_FALSE(outer.isBusy());
    EXPECT_EQ(sent().size(), 1);
    outer.documentClicked(report, line(u"FAC"_s, u"2"_s));
    EXPECT_EQ(sent().size(), 1);
}
