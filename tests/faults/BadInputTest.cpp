// What nobody should enter: one message each, the old value back, and the scheme as it was.
#include "tests/faults/ProgramFixture.h"
#include <QApplication>
#include <QClipboard>

namespace dalvora::test {

namespace {

/// Column of the product grid.
enum Column : int { Type = 1, Code, Text, Start, End, Percentage, Calculation };

const QString long_ = QString(10'000, u'x');
const QString strange[] = {
    u"O'Brien; \"x\" % _ -- \\ / * ? # @ $Codigo$"_s,
    u"a\0b\x01\x7f\u200b\u202e"_s,
    u"😀👩‍👩‍👧‍👦 𝔘 ñÑ áÁ"_s,
    u"<b>&amp;</b>\t\r\n"_s,
    long_,
    QString(10'000, QChar(0xD83D)), // half of a surrogate pair
};

class BadInput : public ProgramFixture {
protected:
    void SetUp() override {
        readC1();
        before = program.screen();
    }
    /// The entry is refused with one message and the scheme stays as it was.
    void expectRefused(quorvane::XGrid& grid, int column, const QString& text, const Message& message) {
        program.enterCell(grid, 1, column, text);
        EXPECT_EQ(told(), message) << qPrintable(text.left(40));
        program.press(Qt::Key_Escape);
        EXPECT_EQ(program.screen(), before) << qPrintable(text.left(40));
    }
    void paste(QWidget& control, const QString& text) {
        QApplication::clipboard()->setText(text);
        program.form().activateWindow();
        control.setFocus();
        program.press(Qt::Key_A, Qt::ControlModifier);
        program.press(Qt::Key_V, Qt::ControlModifier);
        program.press(Qt::Key_Tab);
    }
    void pasteBlock(quorvane::XGrid& grid, int row, int column, const QString& text) {
        QApplication::clipboard()->setText(text);
        program.showTabOf(grid);
        grid.setFocus();
        grid.setRow(row);
        grid.setCol(column);
        program.press(Qt::Key_V, Qt::ControlModifier);
    }
    quorvane::XGrid& products() { return *program.controls().XGrid; }

    QStringList before;
};

} // namespace

TEST_F(BadInput, NumbersThatAreNone) {
    const Message noPercentage{u"Porcentaje inválido(a)"_s, MessageWarning};
    const Message tooMuch{u"Porcentaje inválido(a)"_s, MessageInformation};
    for (const QString& text : {u"abc"_s, u"1,2,3"_s, u"--5"_s, u"0x10"_s, u"1e400"_s, u"5%"_s, u"∞"_s,
                                u"NaN"_s, u"１２"_s, u"1e"_s})
        expectRefused(products(), Percentage, text, noPercentage);
    for (const QString& text : {u"100,01"_s, u"-0,01"_s, u"1e300"_s, u"-1"_s})
        expectRefused(products(), Percentage, text, tooMuch);
    const Message noValue{u"Valor inválido(a)"_s, MessageWarning};
    for (const QString& text : {u"doce"_s, u"1e400"_s, u"-1e400"_s, u"-1"_s})
        expectRefused(products(), Start, text, noValue);
    expectRefused(products(), Start, u"1e300"_s,
                  {u"Inicio de Tramo debe ser menor que Fin de Tramo"_s, MessageWarning});
    expectRefused(products(), End, u"doce"_s, noValue);
    expectRefused(*program.controls().XGrid2, 3, u"doce"_s, {u"Precio inválido(a)"_s, MessageWarning});
    EXPECT_EQ(states.storedRows(company), states.rows(1));
}

TEST_F(BadInput, DatesThatAreNone) {
    program.click(u"limpiar"_s);
    program.enter(*program.controls().FecIni, u"01/06/2006"_s);
    program.enter(*program.controls().FecFin, u"30/06/2006"_s);
    for (const QString& text : {u"31/02/2006"_s, u"29/02/2005"_s, u"00/01/2006"_s, u"01/13/2006"_s,
                                u"01/01/10000"_s, u"01/01/0099"_s, u"ayer"_s, u"1e400"_s, u"2006-02-30"_s})
        for (QLineEdit* date : {static_cast<QLineEdit*>(program.controls().FecIni),
                                static_cast<QLineEdit*>(program.controls().FecFin)}) {
            const QString shown = date->text();
            program.enter(*date, text);
            EXPECT_EQ(told().text, u"Fecha Final inválido(a)"_s) << qPrintable(text);
            EXPECT_EQ(date->text(), shown) << qPrintable(text);
        }
    EXPECT_EQ(program.table().TextValue(5), u"01/06/2006"_s);
    EXPECT_EQ(program.table().TextValue(6), u"30/06/2006"_s);
}

TEST_F(BadInput, StrangeAndEndlessTextsPastedIntoEveryHeaderField) {
    program.click(u"limpiar"_s);
    for (const QString& text : strange) {
        paste(*program.controls().TxtCodigo, text);
        paste(*program.controls().TxtGlosa, text);
        EXPECT_LE(program.table().Codigo().size(), 20);
        EXPECT_LE(program.table().Descripcion().size(), 50);
        EXPECT_EQ(program.controls().TxtCodigo->text(), program.table().Codigo());
        EXPECT_EQ(program.controls().TxtGlosa->text(), program.table().Descripcion());
        expectSilence();
        for (QWidget* date : {static_cast<QWidget*>(program.controls().FecIni),
                              static_cast<QWidget*>(program.controls().FecFin)}) {
            paste(*date, text);
            EXPECT_LE(recorder.take().size(), 1U);
        }
        EXPECT_EQ(program.table().TextValue(5), QString());
        EXPECT_EQ(program.table().TextValue(6), QString());
    }
}

TEST_F(BadInput, StrangeAndEndlessTextsPastedIntoEveryCell) {
    for (quorvane::XGrid* grid : program.controls().grids())
        for (int column = 1; column < grid->cols(); ++column)
            for (const QString& text : strange) {
                pasteBlock(*grid, 1, column, text);
                EXPECT_LE(recorder.take().size(), 1U);
                EXPECT_LE(grid->text(1, column).size(), 50) << column;
            }
    // Whatever has been taken, what is stored is still there and can be read again.
    EXPECT_EQ(states.storedRows(company), states.rows(1));
    program.click(u"limpiar"_s);
    program.read(u"C1"_s);
    EXPECT_EQ(program.screen(), before);
}

TEST_F(BadInput, ATableOfRaggedRowsFillsWhatItHas) {
    const int last = products().rows() - 1;
    pasteBlock(products(), last, Type,
               u"Producto\tP1\t\t9000\t9009\t5\tNeto\tsobra\ttambién\nProducto\n\nProducto\tP2\t\t1\n"_s);
    recorder.take();
    EXPECT_EQ(products().text(last, Code), u"P1"_s);
    EXPECT_EQ(products().text(last, Percentage), u"5,00"_s);
    for (int row = 1; row < last; ++row)
        EXPECT_EQ(products().text(row, Code), before[6 + (row - 1) * (products().cols() - 1) + Code - 1]);
    EXPECT_EQ(states.storedRows(company), states.rows(1));
}

TEST_F(BadInput, AHugeTableIsTakenWhole) {
    const int last = products().rows() - 1;
    pasteBlock(products(), last, Type, u"Todos\t\t\t1\t2\t3\tNeto\n"_s.repeated(2'000));
    expectSilence();
    EXPECT_GE(products().rows(), last + 2'000);
    EXPECT_EQ(products().text(last + 1'999, Percentage), u"3,00"_s);
    EXPECT_EQ(states.storedRows(company), states.rows(1));
}

} // namespace dalvora::test
