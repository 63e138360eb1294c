// The header controls, the lookup of codes, the form for dates and the resize rule.
#include "forms/frmPeriodo.h"
#include "tests/forms/MainFormTest.h"
#include <QApplication>
#include <QPushButton>

using namespace dalvora;
using namespace dalvora::test;

namespace {

class HeaderTest : public MainFormTest {
protected:
    /// Answers the modal form for dates once it is open.
    void answerPeriod(const QString& start, const QString& end, const char* button) {
        QTimer::singleShot(0, [=, this] {
            auto* dialog = qobject_cast<frmPeriodo*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            shown = dialog->findChild<QLineEdit*>(u"txt_FechaIni"_s)->text() + u' ' +
                    dialog->findChild<QLineEdit*>(u"txt_FechaFin"_s)->text();
            dialog->findChild<QLineEdit*>(u"txt_FechaIni"_s)->setText(start);
            dialog->findChild<QLineEdit*>(u"txt_FechaFin"_s)->setText(end);
            QTest::mouseClick(dialog->findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
            if (dialog->isVisible()) {
                stayedOpen = true;
                QTest::mouseClick(dialog->findChild<QPushButton*>(u"coCancelar"_s), Qt::LeftButton);
            }
        });
        controls().menuItem(u"mnuModif").trigger();
    }
    QString shown;
    bool stayedOpen = false;
};

} // namespace

TEST_P(HeaderTest, ControlsShowTheRecordsFormOfAnEntry) {
    enter(*controls().TxtCodigo, u"  x1 "_s);
    EXPECT_EQ(controls().TxtCodigo->text(), u"x1"_s);
    enter(*controls().TxtGlosa, QString(60, u'd'));
    EXPECT_EQ(controls().TxtGlosa->text(), QString(50, u'd'));
    enter(*controls().FecIni, u"5-3-06"_s);
    EXPECT_EQ(controls().FecIni->text(), u"05/03/2006"_s);
    expectSilence();
}

TEST_P(HeaderTest, ARefusedDateGivesOneMessageAndTheOldTextBack) {
    enter(*controls().FecIni, u"31/02/2006"_s);
    expectTold({{u"Fecha Final inválido(a)"_s, 48}});
    EXPECT_EQ(controls().FecIni->text(), QString());
    enter(*controls().FecFin, u"1/1/10000"_s);
    expectTold({{u"Fecha Final inválido(a)"_s, 48}});
}

TEST_P(HeaderTest, LeavingTheCodeOffersToSaveWhateverTheRights) {
    session->rights = u"R---"_s;
    enter(*controls().TxtCodigo, u"NUEVO"_s);
    EXPECT_TRUE(controls().button(u"grabar").isEnabled());
}

TEST_P(HeaderTest, OnlyTheEndDateReads) {
    enter(*controls().TxtCodigo, u"C1"_s);
    enter(*controls().FecIni, u"01/06/2006"_s);
    EXPECT_FALSE(table().SysRecordEnabled);
    enter(*controls().FecFin, u"30/06/2006"_s);
    EXPECT_TRUE(table().SysRecordFound);
    EXPECT_EQ(controls().FecIni->text(), u"01/01/2006"_s);
    EXPECT_EQ(controls().FecFin->text(), u"31/12/2006"_s);
    EXPECT_EQ(controls().TxtGlosa->text(), u"Esquema uno"_s);
    EXPECT_FALSE(controls().TxtCodigo->isEnabled());
    EXPECT_FALSE(controls().FecIni->isEnabled());
}

TEST_P(HeaderTest, LeavingTheCodeReadsWhenTheDatesAreThere) {
    enter(*controls().FecIni, u"01/01/2006"_s);
    enter(*controls().FecFin, u"31/12/2006"_s);
    EXPECT_FALSE(table().SysRecordEnabled);
    enter(*controls().TxtCodigo, u"c1"_s);
    EXPECT_TRUE(table().SysRecordFound);
    EXPECT_EQ(controls().TxtCodigo->text(), u"C1"_s);
}

TEST_P(HeaderTest, AClickOnTheCodeReadsToo) {
    enter(*controls().FecIni, u"01/01/2006"_s);
    enter(*controls().FecFin, u"31/12/2006"_s);
    controls().TxtCodigo->setFocus();
    type(u"C1"_s);
    QTest::mouseClick(controls().TxtCodigo, Qt::LeftButton);
    EXPECT_TRUE(table().SysRecordFound);
}

TEST_P(HeaderTest, LookupReadsTheChosenScheme) {
    chosen = {u"C1"_s, u"Esquema uno"_s, u"01/01/2006"_s, u"31/12/2006"_s};
    controls().TxtCodigo->setFocus();
    press(Qt::Key_F8);
    EXPECT_EQ(calls, QStringList{u"CodigosComision@DALVORA.qry#01"_s});
    EXPECT_TRUE(table().SysRecordFound);
    EXPECT_EQ(controls().XGrid->rows(), 3);
    EXPECT_FALSE(controls().coCodigo->isEnabled());
    expectSilence();
}

TEST_P(HeaderTest, CancelledLookupChangesNothing) {
    enter(*controls().TxtCodigo, u"ZZ"_s);
    QTest::mouseClick(controls().coCodigo, Qt::LeftButton);
    EXPECT_EQ(controls().TxtCodigo->text(), u"ZZ"_s);
    EXPECT_FALSE(table().SysRecordEnabled);
}

TEST_P(HeaderTest, LookupWithARecordLoadedAsksBeforeAnEntryIsLost) {
    execute(
        u"INSERT INTO Comisiones VALUES ('01', 'C2', 'Esquema dos', '01/01/2005', '31/12/2005', 0, 'N')"_s);
    readC1();
    enterCell(*controls().XGrid, 1, 6, u"7"_s);
    chosen = {u"C2"_s, u"Esquema dos"_s, u"01/01/2005"_s, u"31/12/2005"_s};
    recorder.answer(ButtonNo);
    QTest::mouseClick(controls().coCodigo, Qt::LeftButton);
    expectTold({{u"¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?"_s, 36}});
    EXPECT_EQ(controls().TxtCodigo->text(), u"C1"_s);
    EXPECT_EQ(controls().XGrid->text(1, 6), u"7,00"_s);
    recorder.answer(ButtonYes);
    QTest::mouseClick(controls().coCodigo, Qt::LeftButton);
    EXPECT_EQ(table().Codigo(), u"C2"_s);
    EXPECT_EQ(controls().TxtCodigo->text(), u"C2"_s);
    EXPECT_EQ(controls().FecIni->text(), u"01/01/2005"_s);
    EXPECT_FALSE(controls().CheckP->isChecked());
}

TEST_P(HeaderTest, PeriodFormMovesBothDatesAtOnce) {
    readC1();
    answerPeriod(u"01/01/2007"_s, u"30/06/2007"_s, "coAceptar");
    EXPECT_EQ(shown, u"01/01/2006 31/12/2006"_s);
    EXPECT_FALSE(stayedOpen);
    EXPECT_EQ(controls().FecIni->text(), u"01/01/2007"_s);
    EXPECT_EQ(controls().FecFin->text(), u"30/06/2007"_s);
    EXPECT_TRUE(table().SysRecordModified);
    expectSilence();
    recorder.answer(ButtonYes);
    recorder.answer(ButtonYes);
    click(u"grabar"_s);
    EXPECT_EQ(recorder.take().size(), 2U);
    EXPECT_EQ(
        rows(u"SELECT FechaInicio, FechaFinal FROM ComisionesD"_s),
        (QStringList{u"01/01/2007|30/06/2007"_s, u"01/01/2007|30/06/2007"_s, u"01/01/2007|30/06/2007"_s}));
}

TEST_P(HeaderTest, PeriodFormGivenUpChangesNothing) {
    readC1();
    answerPeriod(u"01/01/2007"_s, u"30/06/2007"_s, "coCancelar");
    EXPECT_EQ(controls().FecIni->text(), u"01/01/2006"_s);
    EXPECT_FALSE(table().SysRecordModified);
}

TEST_P(HeaderTest, PeriodFormRefusesWhatIsNoPeriod) {
    readC1();
    answerPeriod(u"31/02/2007"_s, u"30/06/2007"_s, "coAceptar");
    EXPECT_TRUE(stayedOpen);
    expectTold({{u"Fecha Final inválido(a)"_s, 48}});
    answerPeriod(u"01/07/2007"_s, u"30/06/2007"_s, "coAceptar");
    expectTold({{u"Fecha Inicial no pude ser superior a Fecha Final"_s, 48}});
    EXPECT_EQ(controls().FecIni->text(), u"01/01/2006"_s);
}

TEST_P(HeaderTest, FormSnapsBackToItsStartSizeAndSharesOutMore) {
    const QSize start = form->size();
    form->resize(start - QSize(200, 200));
    EXPECT_EQ(form->size(), start);
    form->resize(start + QSize(150, 120));
    EXPECT_EQ(controls().Frame1->width(), form->width() - 33);
    EXPECT_EQ(controls().SSTab1->width(), form->width() - 33);
    for (quorvane::XGrid* grid : controls().grids()) {
        EXPECT_EQ(grid->width(), controls().SSTab1->width() - 33);
        EXPECT_EQ(grid->height(), controls().SSTab1->height() - 54);
    }
    const int innerHeight = form->height() - form->menuWidget()->height();
    EXPECT_EQ(controls().SSTab1->height(), innerHeight - controls().Frame1->height() - 133);
}

TEST_P(HeaderTest, OldOptionOfAmountsHidesTheProducts) {
    controls().Opt_Monto->click();
    EXPECT_TRUE(controls().XGrid->isHidden());
    EXPECT_FALSE(controls().XGrid2->isHidden());
}

TEST_P(HeaderTest, HostileTextsInTheHeaderAreHarmless) {
    const QString odd = u"'; DROP TABLE Comisiones; --%_\"😀"_s;
    enter(*controls().TxtCodigo, odd);
    enter(*controls().TxtGlosa, odd + QString(10000, u'x'));
    enter(*controls().FecIni, u"01/01/2007"_s);
    enter(*controls().FecFin, u"31/12/2007"_s);
    EXPECT_TRUE(table().SysRecordEnabled);
    EXPECT_FALSE(table().SysRecordFound);
    expectSilence();
    EXPECT_EQ(rows(u"SELECT count(*) FROM Comisiones"_s), QStringList{u"1"_s});
}

TEST_P(HeaderTest, TabGoesThroughANewSchemeBeforeItIsRead) {
    controls().TxtCodigo->setFocus();
    for (const QString& entry : {u"NUEVO"_s, u"Esquema nuevo"_s, u"01/01/2007"_s, u"31/12/2007"_s}) {
        type(entry);
        press(Qt::Key_Tab);
    }
    EXPECT_TRUE(table().SysRecordEnabled);
    EXPECT_EQ(table().Codigo(), u"NUEVO"_s);
    EXPECT_EQ(table().Descripcion(), u"Esquema nuevo"_s);
    EXPECT_EQ(controls().StatusBar->text(panelPeriodo), u"01/01/2007 - 31/12/2007"_s);
}

TEST_P(HeaderTest, ALookupByAReaderOffersNoSave) {
    session->rights = u"R---"_s;
    chosen = {u"C1"_s, u"Esquema uno"_s, u"01/01/2006"_s, u"31/12/2006"_s};
    controls().TxtCodigo->setFocus();
    press(Qt::Key_F8);
    EXPECT_TRUE(table().SysRecordFound);
    EXPECT_FALSE(controls().button(u"grabar").isEnabled());
}

TEST_P(HeaderTest, ARightClickOnTheCodeDoesNotRead) {
    enter(*controls().FecIni, u"01/01/2006"_s);
    enter(*controls().FecFin, u"31/12/2006"_s);
    controls().TxtCodigo->setFocus();
    type(u"C1"_s);
    QTest::mouseRelease(controls().TxtCodigo, Qt::RightButton);
    EXPECT_FALSE(table().SysRecordEnabled);
}

TEST_P(HeaderTest, ALookupReplacesEnteredLinesOnlyWhenTold) {
    enterCell(*controls().XGrid, 1, 1, u"Todos"_s);
    chosen = {u"C1"_s, u"Esquema uno"_s, u"01/01/2006"_s, u"31/12/2006"_s};
    recorder.answer(ButtonNo);
    QTest::mouseClick(controls().coCodigo, Qt::LeftButton);
    expectTold({{u"¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?"_s, 36}});
    EXPECT_EQ(controls().XGrid->text(1, 1), u"Todos"_s);
    EXPECT_FALSE(table().SysRecordEnabled);
}

TEST_P(HeaderTest, CompletingTheKeyKeepsEnteredLinesUnlessTold) {
    enterCell(*controls().XGrid, 1, 1, u"Todos"_s);
    enter(*controls().TxtCodigo, u"C1"_s);
    enter(*controls().FecIni, u"01/01/2006"_s);
    recorder.answer(ButtonNo);
    enter(*controls().FecFin, u"31/12/2006"_s);
    expectTold({{u"¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?"_s, 36}});
    EXPECT_EQ(controls().XGrid->text(1, 1), u"Todos"_s);
    recorder.answer(ButtonYes);
    controls().TxtCodigo->setFocus();
    press(Qt::Key_Tab);
    recorder.take();
    EXPECT_TRUE(table().SysRecordFound);
}

INSTANTIATE_TEST_SUITE_P(Engines, HeaderTest, testing::ValuesIn(windowEngines), engineName);
