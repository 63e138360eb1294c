// The form that selects a report, as a person uses it.
#include "tests/forms/report/ReportFormTest.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class SelRpt : public ReportFormTest {
protected:
    void SetUp() override {
        define(u"A Codigos"_s, {u"Listado de Codigos"_s});
        define(u"B Vendedor"_s, {u"Comisiones por vendedor"_s});
        define(u"C Nada"_s, {u"Resumen"_s});
        define(u"D Ambos"_s, {u"CODIGOS POR VENDEDOR"_s});
    }
    QString show(std::function<void()> act) {
        EXPECT_TRUE(table.DBInitialize());
        frmSelRpt selection(table, *this, folder.path());
        onceShown(std::move(act));
        QString name = u"before"_s;
        selection.FormShow(name);
        return name;
    }
    void expectInvalid() { expectTold({{u"Fecha no válida"_s, 64}}); }
};

} // namespace

TEST_F(SelRpt, HasItsCaptionsAndTheReportsInListOrder) {
    show([this] {
        EXPECT_EQ(form->windowTitle(), u"Selección de Reporte"_s);
        EXPECT_EQ(control<QGroupBox>("fraSel").title(), u"Reportes"_s);
        EXPECT_EQ(control<QGroupBox>("Frame1").title(), u"Rango de fechas"_s);
        EXPECT_EQ(control<QLabel>("Label5").text(), u"Fecha Inicio"_s);
        EXPECT_EQ(control<QLabel>("Label6").text(), u"Fecha Final"_s);
        EXPECT_EQ(control<QLabel>("LbComision").text(), u"Codigo Comision"_s);
        EXPECT_EQ(control<QPushButton>("coAceptar").text(), u"&Aceptar"_s);
        EXPECT_EQ(control<QPushButton>("coCancelar").text(), u"&Cancelar"_s);
        EXPECT_EQ(control<quorvane::XDate>("FecIni").mask(), u"short date"_s);
        EXPECT_EQ(control<quorvane::XDate>("FecFin").mask(), u"short date"_s);
        const auto& list = control<QComboBox>("cboReporte");
        EXPECT_FALSE(list.isEditable());
        QStringList names;
        for (int i = 0; i < list.count(); ++i)
            names << list.itemText(i);
        EXPECT_EQ(names, (QStringList{u"A Codigos"_s, u"B Vendedor"_s, u"C Nada"_s, u"D Ambos"_s}));
        EXPECT_EQ(list.currentIndex(), 0);
    });
    EXPECT_TRUE(stayedOpen);
    expectSilence();
}

TEST_F(SelRpt, GivesTheChosenNameBack) {
    EXPECT_EQ(show([this] {
                  select(2);
                  click("coAceptar");
              }),
              u"C Nada"_s);
    EXPECT_FALSE(stayedOpen);
    EXPECT_TRUE(table.FechaIniFiltro.isEmpty());
    EXPECT_TRUE(table.FechaFinFiltro.isEmpty());
    EXPECT_EQ(table.FiltroCodComisiones, QString());
    expectSilence();
}

TEST_F(SelRpt, AnEmptyFolderGivesNothingToChoose) {
    table.ProgramName = u"OTRO"_s;
    EXPECT_EQ(show([this] {
                  EXPECT_EQ(control<QComboBox>("cboReporte").count(), 0);
                  click("coAceptar");
              }),
              QString());
    EXPECT_FALSE(stayedOpen);
}

TEST_F(SelRpt, TheTitleShowsAndHidesTheCode) {
    show([this] {
        EXPECT_TRUE(codeShown());
        select(1);
        EXPECT_FALSE(codeShown());
        select(2);
        EXPECT_FALSE(codeShown()) << "neither word: as it was";
        select(3);
        EXPECT_TRUE(codeShown()) << "both words: shown";
        select(2);
        EXPECT_TRUE(codeShown());
    });
}

TEST_F(SelRpt, TheFormKeepsItsShapeWhenTheCodeGoes) {
    show([this] {
        const QSize before = form->size();
        select(1);
        QCoreApplication::processEvents();
        EXPECT_EQ(form->size(), before);
    });
}

TEST_F(SelRpt, ALongNameDoesNotWidenTheForm) {
    QSize usual;
    show([&] { usual = form->size(); });
    const QString longName = QString(200, u'M');
    define(longName, {u"Listado de Codigos"_s});
    show([&] {
        EXPECT_EQ(form->size(), usual);
        auto& list = control<QComboBox>("cboReporte");
        list.setCurrentText(longName);
        EXPECT_EQ(list.currentText(), longName);
        EXPECT_EQ(list.toolTip(), longName) << "what does not fit can be read";
    });
}

TEST_F(SelRpt, ControlsStandInOneColumn) {
    show([this] {
        const auto left = [this](const char* name) { return control(name).mapTo(form, QPoint()).x(); };
        const auto right = [&](const char* name) { return left(name) + control(name).width(); };
        EXPECT_EQ(left("Label5"), left("cboReporte"));
        EXPECT_EQ(left("LbComision"), left("cboReporte"));
        EXPECT_EQ(right("coCodigo"), right("cboReporte"));
        EXPECT_EQ(right("coCancelar"), right("fraSel"));
    });
}

TEST_F(SelRpt, ADateIsAcceptedWithEnter) {
    EXPECT_EQ(show([this] {
                  enter("FecFin", u"1-7-97"_s);
                  QTest::keyClick(&control("FecFin"), Qt::Key_Return);
              }),
              u"A Codigos"_s);
    EXPECT_FALSE(stayedOpen);
    EXPECT_EQ(table.FechaFinFiltro, Date::fromYmd(1997, 7, 1));
}

TEST_F(SelRpt, BlanksAndTheDayZeroAreNoDate) {
    table.FechaIniFiltro = table.FechaFinFiltro = Date::fromYmd(1997, 7, 1);
    EXPECT_EQ(show([this] {
                  enter("FecIni", u"  "_s);
                  enter("FecFin", u"30/12/1899"_s);
                  click("coAceptar");
              }),
              u"A Codigos"_s);
    EXPECT_TRUE(table.FechaIniFiltro.isEmpty());
    EXPECT_TRUE(table.FechaFinFiltro.isEmpty());
    expectSilence();
}

TEST_F(SelRpt, DaysBeforeTheCountAreRefused) {
    show([this] {
        enter("FecIni", u"29/12/1899"_s);
        click("coAceptar");
        expectInvalid();
    });
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(table.FechaIniFiltro.serial(), -1);
}

TEST_F(SelRpt, FiltersGoToTheRecordAsEntered) {
    EXPECT_EQ(show([this] {
                  enter("FecIni", u"1/7/97"_s);
                  enter("FecFin", u"30/09/1997"_s);
                  enter("TxtCodComision", u" c1 "_s);
                  QTest::keyClick(&control("TxtCodComision"), Qt::Key_Return);
              }),
              u"A Codigos"_s)
        << "Enter accepts";
    EXPECT_EQ(table.FechaIniFiltro, Date::fromYmd(1997, 7, 1));
    EXPECT_EQ(table.FechaFinFiltro, Date::fromYmd(1997, 9, 30));
    EXPECT_EQ(table.FiltroCodComisiones, u" c1 "_s);
}

TEST_F(SelRpt, EmptyEntriesAndBlanksTakeTheFiltersAway) {
    table.FechaIniFiltro = table.FechaFinFiltro = Date::fromYmd(1997, 7, 1);
    table.FiltroCodComisiones = u"C1"_s;
    show([this] {
        enter("TxtCodComision", u"   "_s);
        click("coAceptar");
    });
    EXPECT_TRUE(table.FechaIniFiltro.isEmpty());
    EXPECT_TRUE(table.FechaFinFiltro.isEmpty());
    EXPECT_EQ(table.FiltroCodComisiones, QString());
}

TEST_F(SelRpt, FirstAcceptedDayIsTheFourteenthOfMarch1905) {
    EXPECT_EQ(show([this] {
                  enter("FecIni", u"14/03/1905"_s);
                  enter("FecFin", u"14/03/1905"_s);
                  click("coAceptar");
              }),
              u"A Codigos"_s);
    EXPECT_FALSE(stayedOpen);
    expectSilence();
}

TEST_F(SelRpt, ARefusedStartStaysInTheRecordAndTheCloseBoxChoosesTheReport) {
    EXPECT_EQ(show([this] {
                  enter("FecIni", u"13/03/1905"_s);
                  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
                  click("coAceptar");
                  EXPECT_FALSE(hasHourGlass());
                  EXPECT_TRUE(control("FecIni").hasFocus());
                  expectInvalid();
              }),
              u"A Codigos"_s);
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(table.FechaIniFiltro, Date::fromYmd(1905, 3, 13));
}

TEST_F(SelRpt, ARefusedEndKeepsTheFormOpen) {
    show([this] {
        enter("FecIni", u"01/01/1997"_s);
        enter("FecFin", u"13/03/1905"_s);
        click("coAceptar");
        EXPECT_TRUE(control("FecFin").hasFocus());
        expectInvalid();
        enter("FecFin", u"31/12/1997"_s);
        click("coAceptar");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_EQ(table.FechaFinFiltro, Date::fromYmd(1997, 12, 31));
    expectSilence();
}

TEST_F(SelRpt, WhatIsNoDateIsRefusedAndChoosesNothing) {
    table.FechaIniFiltro = Date::fromYmd(1997, 7, 1);
    EXPECT_EQ(show([this] {
                  enter("FecIni", u"31/02/1997"_s);
                  click("coAceptar");
                  EXPECT_TRUE(control("FecIni").hasFocus());
                  expectInvalid();
              }),
              QString());
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(table.FechaIniFiltro, Date::fromYmd(1997, 7, 1));
}

TEST_F(SelRpt, CancelAndEscapeChooseNothingEvenAfterARefusedDate) {
    for (const bool byKey : {false, true}) {
        EXPECT_EQ(show([this, byKey] {
                      enter("FecFin", u"13/03/1905"_s);
                      click("coAceptar");
                      if (byKey)
                          QTest::keyClick(form, Qt::Key_Escape);
                      else
                          click("coCancelar");
                  }),
                  QString());
        EXPECT_FALSE(stayedOpen);
        expectInvalid();
    }
}

TEST_F(SelRpt, ClosingAtOnceChoosesNothing) {
    EXPECT_EQ(show([] {}), QString());
    EXPECT_TRUE(stayedOpen);
}

TEST_F(SelRpt, TheLookupFillsTheCode) {
    chosen = QStringList{u"GENERAL"_s, u"Esquema general"_s};
    show([this] {
        click("coCodigo");
        EXPECT_EQ(control<QLineEdit>("TxtCodComision").text(), u"GENERAL"_s);
        EXPECT_TRUE(control("TxtCodComision").hasFocus());
        chosen.clear();
        control("FecIni").setFocus();
        enter("TxtCodComision", u"OTRO"_s);
        click("coCodigo");
        EXPECT_EQ(control<QLineEdit>("TxtCodComision").text(), u"OTRO"_s)
            << "nothing chosen, nothing changed";
    });
    EXPECT_EQ(lookups,
              (QStringList{u"CodigosComision@DALVORA.qry#01"_s, u"CodigosComision@DALVORA.qry#01"_s}));
}

TEST_F(SelRpt, ADamagedDefinitionIsToldOnceAndTheFormGoesOn) {
    write(u"A Codigos.rpt"_s, u"<report title="_s);
    EXPECT_EQ(show([this] {
                  const auto told = recorder.take();
                  ASSERT_EQ(told.size(), 1U);
                  EXPECT_TRUE(told.front().text.startsWith(
                      u"Error al leer la definición del reporte A Codigos\n321 - "_s));
                  EXPECT_TRUE(told.front().text.contains(u"A Codigos.rpt"_s));
                  EXPECT_EQ(told.front().style, 16);
                  select(1);
                  EXPECT_FALSE(codeShown());
                  click("coAceptar");
              }),
              u"B Vendedor"_s);
    expectSilence();
}

TEST_F(SelRpt, ADefinitionThatHasGoneIsTold) {
    show([this] {
        QFile::remove(definitions() + u"/B Vendedor.rpt"_s);
        select(1);
        const auto told = recorder.take();
        ASSERT_EQ(told.size(), 1U);
        EXPECT_TRUE(
            told.front().text.startsWith(u"Error al leer la definición del reporte B Vendedor\n53 - "_s));
        EXPECT_TRUE(codeShown()) << "as it was";
    });
}
