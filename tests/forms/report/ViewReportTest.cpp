// The viewer form: its controls, its size, and a click on a line down to the request to the document program.
#include "data/SessionContext.h"
#include "forms/main/StatusPanels.h"
#include "forms/report/FO_ViewReport.h"
#include "platform/reportengine/viewer/ReportViewer.h"
#include "tests/drilldown/FakeSurroundings.h"
#include "tests/reports/ReportFixture.h"
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

using namespace dalvora;
using namespace dalvora::test;
using quorvane::report::ReportViewer;

namespace {

constexpr auto lineFields =
    uR"(<field name="Field1" column="vendedor" left="0" top="0" width="20" height="5"/>
<field name="FIELD10" column="TipoDocto" left="25" top="0" width="30" height="5"/>
<field name="field6" column="Correlativo" left="60" top="0" width="30" height="5"/>
<field name="Field8" column="ComisionMonto" left="95" top="0" width="30" height="5" decimals="2"/>)";
constexpr auto columns = uR"(<column name="vendedor" type="text"/><column name="TipoDocto" type="text"/>
<column name="Correlativo" type="text"/><column name="ComisionMonto" type="number"/>)";

class ViewReport : public ReportTest {
protected:
    void SetUp() override {
        context.Table.reset(&table);
        context.Session.reset(&session);
    }
    void TearDown() override {
        form.reset();
        // Both are the fixture's own.
        [[maybe_unused]] auto* keptTable = context.Table.release();
        [[maybe_unused]] auto* keptSession = context.Session.release();
    }

    /// The form over a filled report of that name, laid out.
    void load(const QString& name, const QString& details = QString::fromUtf16(lineFields)) {
        DefinitionText text;
        text.columns = QString::fromUtf16(columns);
        text.details = details;
        define(name, text);
        start();
        const QStringList names{u"vendedor"_s, u"TipoDocto"_s, u"Correlativo"_s, u"ComisionMonto"_s};
        const std::vector<Row> rows{{u"07"_s, u"FAC"_s, u"10248"_s, 12.5},
                                    {u"08"_s, u"NCR"_s, u"77"_s, -3.0}};
        reports.answer(u"tipodocumento td"_s, names, rows);
        reports.answer(u"from comisiones c"_s, names, rows);
        storeHeader();
        ASSERT_EQ(process(name), 0);
        form = std::make_unique<FO_ViewReport>(context, fake, fake.surroundings());
        form->viewer().setReportSource(report());
        form->ShowReport();
        database.take();
    }
    void show() {
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return !form->viewer().layoutRun().isRunning(); }));
        QTest::qWait(1);
    }
    void storeDocument() {
        database.answer(u"FROM TipoDocumento "_s, {u"tipodocto"_s}, {{u"FACTURA"_s}});
        database.answer(u"FROM documento "_s, {u"idCtaCte"_s}, {{u"VINET"_s}});
        database.answer(u"FROM Documento "_s, {u"Emitido"_s}, {{u"S"_s}});
    }
    /// Where a text stands on the first page.
    QPoint placeOf(const QString& text) {
        quorvane::report::PageView& view = form->viewer().pageView();
        for (const quorvane::report::PlacedText& placed : view.pages()->page(0)->texts)
            if (placed.text == text)
                return view.toViewport(view.geometryOfPages().toPixels({0, placed.rect}, view.scroll()))
                    .center();
        ADD_FAILURE() << qPrintable(text);
        return {};
    }
    void click(const QPoint& place) {
        QTest::mouseClick(form->viewer().pageView().viewport(), Qt::LeftButton, {}, place);
    }
    QStringList sent() { return fake.take().filter(u"LinkExecute="_s); }
    QAction& item(const char* name) { return *form->findChild<QAction*>(QLatin1String(name)); }

    FakeSurroundings fake;
    SessionContext context;
    std::unique_ptr<FO_ViewReport> form;
};

} // namespace

TEST_F(ViewReport, HasItsCaptionMenuAndPanels) {
    load(u"ListaCodigos"_s);
    show();
    EXPECT_EQ(form->windowTitle(), u"Visualiza Reportes"_s);
    auto* menu = form->findChild<QMenu*>(u"mnuArchivo"_s);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->title(), u"&Archivo"_s);
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_EQ(menu->actions()[0], &item("arcImpresora"));
    EXPECT_EQ(item("arcImpresora").text(), u"&Configurar Impresora ..."_s);
    EXPECT_TRUE(item("arcRaya0").isSeparator());
    EXPECT_EQ(item("arcSalir").text(), u"&Salir"_s);
    EXPECT_EQ(form->findChild<StatusPanel*>(u"EMPRESA"_s)->toolTip(), u"Empresa del usuario conectado"_s);
    EXPECT_EQ(form->findChild<StatusPanel*>(u"EMPRESA"_s)->text(), session.CompanyName());
    EXPECT_NE(form->findChild<StatusPanel*>(u"MENSAJE"_s), nullptr);
    EXPECT_EQ(form->findChild<StatusPanel*>(u"PERIODO"_s), nullptr);
    EXPECT_TRUE(form->findChild<QLineEdit*>(u"txtDDE"_s)->isHidden());
}

TEST_F(ViewReport, ShowsTheReportInItsSizeOnPaper) {
    load(u"ListaCodigos"_s);
    show();
    EXPECT_DOUBLE_EQ(form->viewer().pageView().zoom(), 1);
    EXPECT_EQ(form->viewer().pageView().pages()->count(), 1);
    EXPECT_EQ(form->findChild<StatusPanel*>(u"MENSAJE"_s)->text(), u"1 página"_s);
}

TEST_F(ViewReport, TheViewerFillsTheFormDownToTheStatusBar) {
    load(u"ListaCodigos"_s);
    show();
    for (const QSize size : {QSize(700, 500), QSize(1200, 900)}) {
        form->resize(size);
        QTest::qWait(1);
        auto* viewer = form->findChild<ReportViewer*>(u"CRViewer1"_s);
        const int menu = form->menuBar()->height();
        EXPECT_EQ(viewer->mapTo(form.get(), QPoint(0, 0)), QPoint(0, menu));
        EXPECT_EQ(viewer->width(), form->width());
        EXPECT_EQ(viewer->height(), form->height() - menu - form->statusBar()->height());
    }
}

TEST_F(ViewReport, AClickOnALineOfASalespersonReportOpensItsDocument) {
    load(u"comisionesVENDEDOR"_s);
    storeDocument();
    show();
    click(placeOf(u"10248"_s));
    EXPECT_EQ(sent(), QStringList{u"LinkExecute=EMPRESA=01;TIPODOCTO=FACTURA;CTACTE=VINET;DOCTOINI=10248;"
                                  u"DOCTOFIN=10248;EMISION=;ACCION=V;FORMATO=;EMITIDO=S;"
                                  u"TIPOCTACTE=$TIPOCTACTE$"_s});
    EXPECT_EQ(table.NavegaReportTag, u"Lorbadeno"_s);
}

TEST_F(ViewReport, ThePointerShowsThatALineCanBeClicked) {
    load(u"comisionesVENDEDOR"_s);
    show();
    QWidget* surface = form->viewer().pageView().viewport();
    const auto shapeAt = [&](const QPoint& place) {
        QMouseEvent move(QEvent::MouseMove, place, surface->mapToGlobal(place), Qt::NoButton, {}, {});
        QApplication::sendEvent(surface, &move);
        return surface->cursor().shape();
    };
    EXPECT_EQ(shapeAt(placeOf(u"10248"_s)), Qt::PointingHandCursor);
    EXPECT_EQ(shapeAt({3, surface->height() - 3}), Qt::ArrowCursor);
}

TEST_F(ViewReport, LinesOfOtherReportsCannotBeFollowed) {
    load(u"ListaCodigos"_s);
    storeDocument();
    show();
    EXPECT_FALSE(form->viewer().pageView().linesClickable());
    click(placeOf(u"10248"_s));
    EXPECT_EQ(sent(), QStringList());
    expectCalls({});
}

TEST_F(ViewReport, AClickBesideTheLinesDoesNothing) {
    load(u"comisionesVENDEDOR"_s);
    storeDocument();
    show();
    click({3, 3});
    click(placeOf(u"77"_s) + QPoint(0, 200));
    EXPECT_EQ(sent(), QStringList());
    expectCalls({});
}

TEST_F(ViewReport, ALineOfTwoFieldsIsNotFollowed) {
    load(u"comisionesVENDEDOR"_s,
         uR"(<field name="Field10" column="TipoDocto" left="25" top="0" width="30" height="5"/>
<field name="Field6" column="Correlativo" left="60" top="0" width="30" height="5"/>)"_s);
    storeDocument();
    show();
    click(placeOf(u"10248"_s));
    EXPECT_EQ(sent(), QStringList());
    expectCalls({});
}

TEST_F(ViewReport, IsModalUntilItIsLeft) {
    load(u"ListaCodigos"_s);
    bool wasModal = false;
    QTimer::singleShot(50, form.get(), [&] {
        wasModal = QApplication::activeModalWidget() == form.get();
        item("arcSalir").trigger();
    });
    form->showModal();
    EXPECT_TRUE(wasModal);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ViewReport, ThePrinterIsSetUpOverTheForm) {
    load(u"ListaCodigos"_s);
    QWidget* owner = nullptr;
    quorvane::report::ViewerDialogs dialogs;
    dialogs.choosePrinter = [&owner](QWidget* window, const QString&) {
        owner = window;
        return std::optional(u"No existe"_s);
    };
    form->viewer().setDialogs(dialogs);
    item("arcImpresora").trigger();
    EXPECT_EQ(owner, form.get());
    // The report prints there from now on.
    try {
        report().printOut(false, 1, 1, 1);
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.description().contains(u"No existe"_s));
    }
}

TEST_F(ViewReport, StaysWhileADocumentIsBeingOpened) {
    load(u"comisionesVENDEDOR"_s);
    storeDocument();
    TopicSurroundings surroundings = fake.surroundings();
    bool closed = true;
    surroundings.yield = [&] { closed = form->close(); };
    form = std::make_unique<FO_ViewReport>(context, fake, surroundings);
    form->viewer().setReportSource(report());
    form->ShowReport();
    fake.onConnect = [](int attempt) { return attempt == 1 ? 282 : 0; };
    show();
    click(placeOf(u"10248"_s));
    EXPECT_FALSE(closed);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->close());
}
