#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

const Message startQuestion{u"Fecha de inicio ha sido modificada, esto puede provocar inconsistencias\n"
                            u"en los movimientos de documentos.  ¿Desea Continuar?"_s,
                            36};
const Message endQuestion{u"Fecha final ha sido modificada, esto puede provocar inconsistencias\n"
                          u"en los movimientos de documentos.  ¿Desea Continuar?"_s,
                          36};

class RecordValidate : public RecordTest {
protected:
    void read() {
        storeHeader();
        readStored();
    }
    static void complete(DBMonto& line) { static_cast<MontoValues&>(line) = {u"FAC"_s, 0, 10, 5, u"Neto"_s}; }
};

} // namespace

TEST_F(RecordValidate, ANewEmptyRecordIsValid) {
    table.SysErrorCol = table.SysErrorRow = table.SysErrorTable = table.Grilla = 9;
    EXPECT_TRUE(table.Validate());
    EXPECT_EQ(table.SysErrorCol, 0);
    EXPECT_EQ(table.SysErrorRow, 0);
    EXPECT_EQ(table.SysErrorTable, 0);
    EXPECT_EQ(table.Grilla, 0);
    expectSilence();
}

TEST_F(RecordValidate, ARecordJustReadAsksNothing) {
    read();
    EXPECT_TRUE(table.Validate(true));
    EXPECT_FALSE(table.SysRecordModified);
    EXPECT_EQ(table.SysErrorTable, -1);
    expectSilence();
}

TEST_F(RecordValidate, EveryHeaderRuleRunsAgain) {
    storeHeader(150);
    readStored();
    EXPECT_FALSE(table.Validate(true));
    EXPECT_EQ(table.SysErrorCol, 4);
    EXPECT_EQ(table.SysErrorTable, 0);
    expectTold({{u"Procentaje inválido(a)"_s, 64}});
}

TEST_F(RecordValidate, AnEndBeforeTheStartIsFoundByTheStartsRule) {
    table.setTextValue(5, u"01/06/2006"_s);
    table.setTextValue(6, u"01/01/2006"_s);
    EXPECT_FALSE(table.Validate());
    EXPECT_EQ(table.SysErrorCol, 5);
    expectTold({{u"Fecha Inicial no pude ser superior a Fecha Final"_s, 48}});
}

TEST_F(RecordValidate, AChangedStartDateIsAskedAboutOnce) {
    read();
    table.setTextValue(5, u"02/01/2006"_s);
    EXPECT_FALSE(table.SysRecordModified);
    EXPECT_TRUE(table.Validate(true));
    EXPECT_TRUE(table.SysRecordModified);
    EXPECT_EQ(table.SysErrorCol, 0);
    expectTold({startQuestion});
}

TEST_F(RecordValidate, NoToAChangedStartDateEndsTheCheckThere) {
    read();
    table.setTextValue(5, u"02/01/2006"_s);
    table.setTextValue(6, u"30/12/2006"_s);
    recorder.answer(ButtonNo);
    EXPECT_FALSE(table.Validate(true));
    EXPECT_EQ(table.SysErrorCol, 5);
    EXPECT_EQ(table.SysErrorTable, 0);
    EXPECT_TRUE(table.SysRecordModified);
    expectTold({startQuestion});
}

TEST_F(RecordValidate, BothChangedDatesAreAskedAboutInTurn) {
    read();
    table.setTextValue(5, u"02/01/2006"_s);
    table.setTextValue(6, u"30/12/2006"_s);
    recorder.answer(ButtonYes);
    recorder.answer(ButtonNo);
    EXPECT_FALSE(table.Validate());
    EXPECT_EQ(table.SysErrorCol, 6);
    expectTold({startQuestion, endQuestion});
    EXPECT_TRUE(table.Validate());
    EXPECT_EQ(table.SysErrorCol, 6) << "a confirmed date keeps its column until the lines are checked";
}

TEST_F(RecordValidate, AnswersOtherThanYesCountAsNo) {
    read();
    table.setTextValue(6, u"30/12/2006"_s);
    recorder.answer(ButtonOk);
    EXPECT_FALSE(table.Validate());
    expectTold({endQuestion});
}

TEST_F(RecordValidate, DatesOfANewRecordAreNotAskedAbout) {
    table.setTextValue(2, u"NUEVO"_s);
    ASSERT_TRUE(table.DBRead());
    table.SaveDates();
    table.setTextValue(5, u"01/01/2006"_s);
    table.setTextValue(6, u"31/12/2006"_s);
    EXPECT_TRUE(table.Validate(true));
    expectSilence();
}

TEST_F(RecordValidate, LinesAreOnlyCheckedWhenAskedFor) {
    table.montos(1).calculo = u"Neto"_s;
    EXPECT_TRUE(table.Validate());
    expectSilence();
    EXPECT_FALSE(table.Validate(true));
}

TEST_F(RecordValidate, AnInvalidSecondAmountLineIsPointedAt) {
    complete(table.montos(1));
    complete(table.MontosAdd());
    table.montos(2).Porcentaje = 0;
    EXPECT_FALSE(table.Validate(true));
    EXPECT_EQ(table.Grilla, 2);
    EXPECT_EQ(table.SysErrorTable, 1);
    EXPECT_EQ(table.SysErrorRow, 2);
    EXPECT_EQ(table.SysErrorCol, 4);
    expectTold({{u"Debe ingresar Porcentaje"_s, 48}});
}

TEST_F(RecordValidate, EmptyLinesAreCountedButNotChecked) {
    table.DetailsAdd();
    table.DetailsAdd().SubTipo = u"Familia"_s;
    EXPECT_FALSE(table.Validate(true));
    EXPECT_EQ(table.Grilla, 1);
    EXPECT_EQ(table.SysErrorRow, 3);
    EXPECT_EQ(table.SysErrorCol, 2);
}

TEST_F(RecordValidate, PriceListLinesAreCheckedLast) {
    static_cast<PrecioValues&>(table.Precios(1)) = {u"MAY"_s, u""_s, 5, u""_s};
    EXPECT_FALSE(table.Validate(true));
    EXPECT_EQ(table.Grilla, 3);
    EXPECT_EQ(table.SysErrorRow, 1);
    EXPECT_EQ(table.SysErrorCol, 4);
    table.montos(1).Documento = u"FAC"_s;
    EXPECT_FALSE(table.Validate(true));
    EXPECT_EQ(table.Grilla, 2);
}

TEST_F(RecordValidate, AHeaderErrorForgetsTheLineOfAnEarlierOne) {
    table.montos(1).Documento = u"FAC"_s;
    EXPECT_FALSE(table.Validate(true));
    EXPECT_EQ(table.Grilla, 2);
    table.setTextValue(5, u"01/06/2006"_s);
    table.setTextValue(6, u"01/01/2006"_s);
    EXPECT_FALSE(table.Validate(true));
    EXPECT_EQ(table.Grilla, 0);
    EXPECT_EQ(table.SysErrorTable, 0);
}

TEST_F(RecordValidate, ACompleteRecordPasses) {
    static_cast<DetailValues&>(table.Details(1)) = {u"Todos"_s, u""_s, u""_s, 0, 0, 5, u"Neto"_s};
    complete(table.montos(1));
    static_cast<PrecioValues&>(table.Precios(1)) = {u""_s, u""_s, 5, u"Total"_s};
    EXPECT_TRUE(table.Validate(true));
    EXPECT_EQ(table.SysErrorTable, -1);
    EXPECT_EQ(table.SysErrorRow, 0);
    EXPECT_EQ(table.SysErrorCol, 0);
    EXPECT_EQ(table.Grilla, 0);
    expectSilence();
}

TEST_F(RecordValidate, ARunTimeErrorIsToldAndFails) {
    class Broken final : public MessagePresenter {
    public:
        explicit Broken(MessageRecorder& then) : m_then(then) {}
        qint16 show(const QString&, int, const QString&) override {
            installMessagePresenter(&m_then);
            throw RunTimeError(7, u"Memoria insuficiente"_s);
        }

    private:
        MessageRecorder& m_then;
    } broken(recorder);
    read();
    table.setTextValue(5, u"02/01/2006"_s);
    installMessagePresenter(&broken);
    EXPECT_FALSE(table.Validate());
    expectTold({{u"Error al validar campo\n7 - Memoria insuficiente"_s, 16}});
}
