#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class RecordDocuments : public RecordTest {};

} // namespace

TEST_F(RecordDocuments, TheTypeIsTheFirstThatBeginsWithTheText) {
    database.answer(u"FROM TipoDocumento "_s, {u"tipodocto"_s}, {{u"FACEXP"_s}, {u"FACTURA"_s}});
    EXPECT_EQ(table.GetFORMATOTIPODOCUMENTO(u"FAC"_s), u"FACEXP"_s);
    expectCalls({u"SELECT TOP 1 tipodocto FROM TipoDocumento WHERE empresa = '01' And "
                 u"tipodocto LIKE 'FAC%'"_s});
}

TEST_F(RecordDocuments, TheAccountIsThatOfTheFirstDocument) {
    database.answer(u"FROM documento "_s, {u"idCtaCte"_s}, {{u"VINET"_s}});
    EXPECT_EQ(table.GetCTACTE(u"FACTURA"_s, u"10248"_s), u"VINET"_s);
    expectCalls({u"SELECT TOP 1 idCtaCte FROM documento WHERE empresa = '01' And "
                 u"TipoDocto='FACTURA' And Numero='10248'  "_s});
}

TEST_F(RecordDocuments, TheIssuedFlagIsThatOfTheVeryDocument) {
    database.answer(u"FROM Documento "_s, {u"Emitido"_s}, {{u"S"_s}});
    EXPECT_EQ(table.GetDocEmitido(u"FACTURA"_s, u"VINET"_s, u"10248"_s), u"S"_s);
    expectCalls({u"SELECT TOP 1 Emitido FROM Documento WHERE empresa = '01' And "
                 u"TipoDocto='FACTURA' And IdCtaCte='VINET' And Numero='10248'"_s});
}

TEST_F(RecordDocuments, QuotesAreDoubledInEveryPlace) {
    table.SysEmpresa = u"0'1"_s;
    table.GetFORMATOTIPODOCUMENTO(u"F'C"_s);
    table.GetCTACTE(u"F'C"_s, u"1'2"_s);
    table.GetDocEmitido(u"F'C"_s, u"O'NEIL"_s, u"1'2"_s);
    expectCalls({u"SELECT TOP 1 tipodocto FROM TipoDocumento WHERE empresa = '0''1' And "
                 u"tipodocto LIKE 'F''C%'"_s,
                 u"SELECT TOP 1 idCtaCte FROM documento WHERE empresa = '0''1' And "
                 u"TipoDocto='F''C' And Numero='1''2'  "_s,
                 u"SELECT TOP 1 Emitido FROM Documento WHERE empresa = '0''1' And "
                 u"TipoDocto='F''C' And IdCtaCte='O''NEIL' And Numero='1''2'"_s});
}

TEST_F(RecordDocuments, WhatIsNotFoundIsEmptyAndNull) {
    EXPECT_EQ(table.GetFORMATOTIPODOCUMENTO(u"FAC"_s), QString());
    EXPECT_EQ(table.GetCTACTE(u"FACTURA"_s, u"1"_s), QString());
    EXPECT_EQ(table.GetDocEmitido(u"FACTURA"_s, u"VINET"_s, u"1"_s), QString());
    database.answer(u"FROM Documento "_s, {u"Emitido"_s}, {{Value(Value::Null())}});
    EXPECT_EQ(table.GetDocEmitido(u"FACTURA"_s, u"VINET"_s, u"1"_s), QString());
    expectSilence();
}

TEST_F(RecordDocuments, TheDatabasesErrorsGoToTheCaller) {
    plan.atStatement = 1;
    EXPECT_THROW(table.GetFORMATOTIPODOCUMENTO(u"FAC"_s), RunTimeError);
    expectSilence();
}
