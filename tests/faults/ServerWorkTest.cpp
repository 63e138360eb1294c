// The server goes away while a list, a report or the salespeople are on screen.
#include "forms/report/FO_ViewReport.h"
#include "forms/vendedor/FM_Vendedor.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/grid/XGrid.h"
#include "platform/reportengine/viewer/ReportViewer.h"
#include "tests/faults/ServerProgram.h"
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <iostream>

namespace dalvora::test {

namespace {

using quorvane::report::LayoutRun;

constexpr Blow blows[] = {Blow::BackendKilled, Blow::ServerStopped, Blow::NetworkCut};

class ServerWorkOnce : public ServerProgram {
protected:
    /// Acts on the modal window of this class as soon as it is there, and closes it when it stays.
    template<class Window> void inWindow(const QString& name, const std::function<void(Window&)>& act) {
        QObject::connect(&person, &QTimer::timeout, qApp, [this, name, act] {
            auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
            if (!window || window->objectName() != name)
                return;
            person.stop();
            person.disconnect();
            act(*window);
        });
        person.start(10);
    }
    /// Thousands of codes: more than is on its way at once.
    void storeManyCodes() {
        company.execute(u"INSERT INTO Comisiones (Empresa, Codigo, Descripcion) SELECT '001', 'M' || g, "
                        u"repeat('Descripción ', 4) FROM generate_series(1, 20000) g"_s);
    }
    void storeDocuments(int count) {
        company.execute(
            u"UPDATE tipodocumento SET Clase = 'fac', FactorMonto = 1;"
            u"INSERT INTO ctacte (Empresa, TipoCtaCte, CtaCte, RazonSocial) VALUES ('001', 'CLIENTE', 'X', "
            u"'Cliente');"
            u"INSERT INTO documento (Empresa, TipoDocto, Numero, IdCtaCte, TipoCtaCte, Vendedor, Fecha, "
            u"Emitido, ComisionMonto) SELECT '001', 'FACTURA', 'N' || right('0000' || g, 5), 'X', 'CLIENTE', "
            u"'05', '2006-03-01', 'S', 1 FROM generate_series(1, %1) g"_s.arg(count));
    }
    void installReports() {
        const QString folder = files.programFolder() + u"/reportes/VELTRANO"_s;
        QDir().mkpath(folder);
        ASSERT_TRUE(QFile::copy(QStringLiteral(DALVORA_SOURCE "/reportes/VELTRANO/ComisionesVendedor.rpt"),
                                folder + u"/ComisionesVendedor.rpt"_s));
    }
    void accept(QWidget& selection) {
        QTest::mouseClick(selection.findChild<QPushButton*>(u"coAceptar"_s), Qt::LeftButton);
    }
    /// Previews the report; `act` has the viewer, which is closed afterwards.
    void preview(const std::function<void(FO_ViewReport&)>& act) {
        inWindow<QWidget>(u"frmSelRpt"_s, [this, act](QWidget& selection) {
            inWindow<FO_ViewReport>(u"FO_ViewReport"_s, [act](FO_ViewReport& viewer) {
                act(viewer);
                viewer.findChild<QAction*>(u"arcSalir"_s)->trigger();
            });
            accept(selection);
        });
        program.click(u"vprevia"_s);
        person.stop();
        person.disconnect();
    }
    static bool laidOut(FO_ViewReport& viewer) {
        return QTest::qWaitFor([&] { return !viewer.viewer().layoutRun().isRunning(); }, 60'000);
    }

    QTimer person;
};

class ServerWork : public ServerWorkOnce, public testing::WithParamInterface<Blow> {};

} // namespace

TEST_P(ServerWork, AListThatIsBeingReadClosesWithItsMessageAndOpensAgain) {
    storeManyCodes();
    ASSERT_TRUE(program.start());
    program.click(u"limpiar"_s);
    program.controls().TxtCodigo->setFocus();
    inWindow<QWidget>(u"LookupWindow"_s, [this](QWidget&) { strike(GetParam()); });
    program.press(Qt::Key_F8);
    const QString text = toldStarting(u"Error al procesar consulta CodigosComision@"_s);
    EXPECT_TRUE(text.contains(u"\n\n3709 - "_s)) << qPrintable(text);
    std::cout << "  told: " << text.toStdString() << '\n';
    EXPECT_EQ(program.controls().TxtCodigo->text(), QString());
    mend();
    program.click(u"limpiar"_s);
    inWindow<QWidget>(u"LookupWindow"_s, [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    program.press(Qt::Key_F8);
    expectSilence();
    EXPECT_EQ(program.controls().TxtCodigo->text(), u"C1"_s);
    EXPECT_TRUE(program.table().SysRecordFound);
}

// What is on screen has all its rows.
TEST_P(ServerWork, AReportOnScreenStaysWholeAndTheNextOneIsToldAtMostOnce) {
    installReports();
    storeDocuments(500);
    ASSERT_TRUE(program.start());
    preview([this](FO_ViewReport& viewer) {
        strike(GetParam());
        ASSERT_TRUE(laidOut(viewer));
        EXPECT_EQ(viewer.viewer().layoutRun().state(), LayoutRun::State::Complete);
        EXPECT_EQ(viewer.viewer().notice(), QString());
    });
    expectSilence();
    mend();
    // A loss that was noticed when the reading ended has been made good by now; any other is told here.
    bool shown = false;
    preview([&shown](FO_ViewReport&) { shown = true; });
    if (!shown) {
        EXPECT_EQ(told(), (Message{u"Error al ejecutar ProcessReport (3709)"_s, MessageError}));
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    preview([](FO_ViewReport& viewer) {
        ASSERT_TRUE(laidOut(viewer));
        EXPECT_EQ(viewer.viewer().layoutRun().state(), LayoutRun::State::Complete);
    });
    expectSilence();
}

TEST_P(ServerWork, AReportThatCannotBeginIsToldAndTheNextOneWorks) {
    installReports();
    storeDocuments(500);
    ASSERT_TRUE(program.start());
    strike(GetParam());
    inWindow<QWidget>(u"frmSelRpt"_s, [this](QWidget& selection) { accept(selection); });
    program.click(u"vprevia"_s);
    EXPECT_EQ(told(), (Message{u"Error al ejecutar ProcessReport (3709)"_s, MessageError}));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    mend();
    bool shown = false;
    preview([&shown](FO_ViewReport&) { shown = true; });
    EXPECT_TRUE(shown);
    expectSilence();
}

// Each salesperson is a change of its own: those before the blow are done, and the list says which.
TEST_P(ServerWork, AssigningTellsStopsThereAndCanBeDoneForTheRest) {
    company.execute(u"INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Descripcion) SELECT '001', "
                    u"'GEN_VENDEDOR', '1' || g, 'Vendedor ' || g FROM generate_series(1, 4) g"_s);
    readC1();
    program.click(u"cliente"_s);
    auto* form = qobject_cast<FM_Vendedor*>(QApplication::activeWindow());
    ASSERT_NE(form, nullptr);
    const auto mark = [&](std::initializer_list<int> marked) {
        auto* view = form->controls().XGrid->findChild<QTableView*>();
        for (const int row : marked)
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                              view->visualRect(view->model()->index(row - 1, 1)).center());
    };
    const auto assign = [&] { QTest::mouseClick(form->controls().CmdAsignar, Qt::LeftButton); };
    const auto assigned = [&] {
        return company.value(
            u"SELECT count(*) FROM gen_tabcod WHERE Tipo = 'gen_vendedor' AND Texto = 'C1'"_s);
    };
    mark({1, 2, 3});
    strikeAtStatement(2, GetParam());
    assign();
    const std::vector<Message> messages = recorder.take();
    ASSERT_FALSE(messages.empty());
    for (const Message& message : messages) {
        EXPECT_EQ(message.style, MessageError);
        std::cout << "  told: " << message.text.toStdString() << '\n';
    }
    mend();
    program.context().Connection->setStatementObserver({});
    EXPECT_EQ(assigned(), u"1"_s);
    form->Refresh();
    recorder.take(); // a list that was read over the lost connection
    form->Refresh();
    expectSilence();
    ASSERT_EQ(form->controls().XGrid->rows(), 5);
    EXPECT_EQ(form->controls().XGrid->text(1, 3), u"C1"_s);
    EXPECT_EQ(form->controls().XGrid->text(2, 3), QString());
    mark({2, 3});
    assign();
    expectSilence();
    EXPECT_EQ(assigned(), u"3"_s);
}

TEST_F(ServerWorkOnce, AReportWhoseRowsBreakOffSaysThatItIsIncompleteAndTheNextOneIsWhole) {
    installReports();
    storeDocuments(15000);
    ASSERT_TRUE(program.start());
    relay.cutInAnswer("N09000");
    preview([](FO_ViewReport& viewer) {
        ASSERT_TRUE(laidOut(viewer));
        EXPECT_EQ(viewer.viewer().layoutRun().state(), LayoutRun::State::Failed);
        EXPECT_TRUE(viewer.viewer().notice().contains(u"Se perdió la conexión"_s))
            << qPrintable(viewer.viewer().notice());
        std::cout << "  the viewer's notice: " << viewer.viewer().notice().toStdString() << '\n';
    });
    expectSilence();
    preview([](FO_ViewReport& viewer) {
        ASSERT_TRUE(laidOut(viewer));
        EXPECT_EQ(viewer.viewer().layoutRun().state(), LayoutRun::State::Complete);
        EXPECT_EQ(viewer.viewer().notice(), QString());
    });
    expectSilence();
}

INSTANTIATE_TEST_SUITE_P(Blows, ServerWork, testing::ValuesIn(blows), blowName);

} // namespace dalvora::test
