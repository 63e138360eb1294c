// Preview and print, from the command to the viewer and the printer.
#include "data/SessionContext.h"
#include "forms/report/PrinterDialog.h"
#include "forms/report/ReportCommands.h"
#include "forms/report/ReportPresenter.h"
#include "tests/forms/report/ReportFormTest.h"
#include <QPrintDialog>
#include <QPrinter>

using namespace dalvora;
using namespace dalvora::test;

namespace {

class Commands : public ReportFormTest, public ReportPresenter, public PrinterDialog {
protected:
    void SetUp() override {
        define(u"A Lista"_s);
        define(u"B Vendedor"_s);
        start();
        context.Table.reset(&table);
        storeHeader();
    }
    void TearDown() override {
        [[maybe_unused]] auto* kept = context.Table.release(); // the fixture's own
    }
    void show(quorvane::report::Report& report) override {
        shown << report.title();
        EXPECT_FALSE(hasHourGlass());
    }
    PrinterChoice show(QWidget* owner, int pages) override {
        EXPECT_EQ(owner, &window);
        asked << pages;
        if (printerError)
            throw *printerError;
        return choice;
    }

    void accept() {
        onceShown([this] { click("coAceptar"); });
    }
    void cancel() {
        onceShown([this] { click("coCancelar"); });
    }
    void preview() {
        commands.PreviewReport();
        EXPECT_FALSE(hasHourGlass());
    }
    void print() {
        commands.PrintReport();
        EXPECT_FALSE(hasHourGlass());
    }
    bool printed() { return QFile::exists(output); }
    void failNext(int statement, const RunTimeError& error) {
        reportPlan.statements = 0;
        reportPlan.atStatement = statement;
        reportPlan.error = error;
    }

    QWidget window;
    QStringList shown;
    QList<int> asked;
    QString output = folder.filePath(u"salida.pdf"_s);
    PrinterChoice choice{u"PDF"_s, QString(), output, 1, 1, 1};
    std::optional<RunTimeError> printerError;
    SessionContext context;
    ReportCommands commands{{context, *this, *this, *this, window, folder.path()}};
};

} // namespace

TEST_F(Commands, SelectTellsWhatWasChosen) {
    QString name;
    bool isChosen = false;
    accept();
    commands.SelectReport(name, isChosen);
    EXPECT_EQ(name, u"A Lista"_s);
    EXPECT_TRUE(isChosen);
    cancel();
    commands.SelectReport(name, isChosen);
    EXPECT_EQ(name, QString());
    EXPECT_FALSE(isChosen);
}

TEST_F(Commands, PreviewShowsTheChosenReport) {
    storeRows();
    onceShown([this] {
        select(1);
        enter("FecIni", u"01/07/1997"_s);
        click("coAceptar");
    });
    preview();
    EXPECT_EQ(shown, QStringList{u"COMISIONES"_s});
    EXPECT_EQ(table.reportName, u"B Vendedor"_s);
    EXPECT_TRUE(reports.take().front().endsWith(u" and fecha >= '01/07/1997'"_s));
    expectSilence();
}

TEST_F(Commands, ACancelledSelectionDoesNothing) {
    table.reportName = u"antes"_s;
    cancel();
    preview();
    cancel();
    print();
    EXPECT_EQ(table.reportName, u"antes"_s);
    EXPECT_TRUE(reports.take().empty());
    EXPECT_TRUE(shown.isEmpty() && asked.isEmpty());
    expectSilence();
}

TEST_F(Commands, PreviewTellsTheNumberOfAnError) {
    onceShown([this] {
        QFile::remove(definitions() + u"/A Lista.rpt"_s);
        click("coAceptar");
    });
    preview();
    expectTold({{u"Error al ejecutar ProcessReport (53)"_s, 16}});
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(Commands, PreviewWithoutRowsIsToldOnce) {
    accept();
    preview();
    expectTold({{u"No existen Comisiones para el código y rango de fechas indicado"_s, 16}});
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(Commands, PreviewGoesOnWithoutItsHeading) {
    storeRows();
    failNext(2, RunTimeError(3709, u"Se perdió la conexión"_s));
    accept();
    preview();
    expectTold({{u"Error al leer variables UnBound (3709)"_s, 0}});
    EXPECT_EQ(shown.size(), 1);
}

TEST_F(Commands, PrintsTheChosenPagesOnTheChosenPrinter) {
    storeRows(std::vector<Row>(200, Row{u"07"_s, 1.0}));
    choice.first = 2;
    choice.last = 3;
    accept();
    print();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_GE(asked.first(), 3) << "all pages can be chosen";
    QFile document(output);
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    EXPECT_TRUE(document.readAll().contains("/Count 2"));
    expectSilence();
}

TEST_F(Commands, ACancelledPrinterDialogIsNoError) {
    storeRows();
    printerError = RunTimeError(32755, u"Se seleccionó Cancelar"_s);
    accept();
    print();
    EXPECT_FALSE(printed());
    expectSilence();
}

TEST_F(Commands, APrinterThatIsNotThereIsTold) {
    storeRows();
    choice = {QString(), u"Láser"_s, QString(), 1, 1, 1};
    accept();
    print();
    expectTold({{u"Error al imprimir reporte\n482 - No se encontró la impresora «Láser»"_s, 16}});
}

TEST_F(Commands, AConnectionLostWhilePrintingIsTold) {
    storeRows();
    failNext(1, RunTimeError(3709, u"Se perdió la conexión"_s));
    reportPlan.atRow = 2;
    accept();
    print();
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_FALSE(printed());
    expectTold({{u"Error al imprimir reporte\n3709 - Se perdió la conexión"_s, 16}});
}

TEST_F(Commands, AFailedRunPrintsTheReportBefore) {
    reports.answer(u"from comisiones c"_s, {u"vendedor"_s, u"ComisionMonto"_s}, {{u"07"_s, 1.0}});
    accept();
    preview();
    ASSERT_EQ(shown.size(), 1);
    onceShown([this] {
        select(1);
        click("coAceptar");
    });
    print();
    EXPECT_EQ(recorder.take().size(), 1U) << "there are no documents";
    EXPECT_EQ(asked.size(), 1);
    EXPECT_TRUE(printed());
}

TEST_F(Commands, WithoutAnyReportPrintingEndsWithTheMessageOfItsRun) {
    accept();
    print();
    expectTold({{u"No existen Comisiones para el código y rango de fechas indicado"_s, 16}});
    EXPECT_TRUE(asked.isEmpty());
    onceShown([this] {
        write(u"A Lista.rpt"_s, u"<report"_s);
        click("coAceptar");
    });
    print();
    expectTold({{u"Error al imprimir reporte\n91 - Variable de objeto no establecida"_s, 16}});
    EXPECT_TRUE(asked.isEmpty());
}

TEST_F(Commands, TheSystemsDialogPrintsIntoAFileWithoutAPrinter) {
#ifdef Q_OS_WIN
    GTEST_SKIP() << "here the dialog is no window of the toolkit's";
#endif
    SystemPrinterDialog dialog;
    QTimer::singleShot(0, qApp, [this] {
        auto* system = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(system, nullptr);
        for (auto* line : system->findChildren<QLineEdit*>())
            if (line->objectName() == u"filename")
                line->setText(output);
        system->accept();
    });
    const PrinterChoice made = dialog.show(&window, 7);
    EXPECT_EQ(made.driver, u"PDF"_s);
    EXPECT_EQ(made.port, output);
    EXPECT_EQ(made.copies, 1);
    EXPECT_EQ(made.first, 1);
    EXPECT_EQ(made.last, 7);
    QTimer::singleShot(0, qApp, [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject(); });
    try {
        dialog.show(&window, 7);
        FAIL() << "not cancelled";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 32755);
    }
}
