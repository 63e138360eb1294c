#include "platform/reportengine/viewer/PrinterSetup.h"
#include "tests/reportengine_viewer/ViewerFixture.h"
#include <QFile>
#include <QFileInfo>
#include <QListWidget>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace quorvane::report;

namespace {

class Output : public test::ViewerFixture {
protected:
    void SetUp() override {
        dialogs.saveFile = [this](QWidget*, const ViewerDialogs::FileQuestion& question) {
            asked = question;
            return answer;
        };
        dialogs.print = [this](QWidget*, QPrinter& printer, ViewerDialogs::Pages& pages, int current) {
            offered = pages;
            currentPage = current;
            printer.setOutputFileName(folder.filePath(u"printed.pdf"_s));
            pages = {2, 3};
            return prints;
        };
        dialogs.choosePrinter = [this](QWidget*, const QString& before) {
            chosenBefore << before;
            return std::optional(u"Láser 2"_s);
        };
        dialogs.openFile = [this](const QString& path) {
            opened = path;
            return opens;
        };
        viewer->setDialogs(dialogs);
    }
    void exportTo(const char* command, const QString& name) {
        answer = folder.filePath(name);
        trigger(command);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !viewer->notice().isEmpty(); }, 30000));
    }
    QByteArray begin(const QString& name, int bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
        return file.read(bytes);
    }

    QTemporaryDir folder;
    ViewerDialogs dialogs;
    ViewerDialogs::FileQuestion asked;
    ViewerDialogs::Pages offered;
    QString answer;
    QStringList chosenBefore;
    QString opened;
    int currentPage = 0;
    bool prints = true;
    bool opens = true;
};

} // namespace

TEST_F(Output, TheThreeFormatsAreWritten) {
    open(500);
    exportTo("exportPdf", u"a.pdf"_s);
    EXPECT_EQ(begin(u"a.pdf"_s, 5), "%PDF-");
    EXPECT_EQ(asked.filter, u"Documento PDF (*.pdf)"_s);
    EXPECT_TRUE(asked.suggestion.endsWith(u"VENTAS POR VENDEDOR.pdf"_s));
    exportTo("exportXlsx", u"a.xlsx"_s);
    EXPECT_EQ(begin(u"a.xlsx"_s, 2), "PK");
    exportTo("exportCsv", u"a.csv"_s);
    EXPECT_TRUE(begin(u"a.csv"_s, 200).contains("monto") || begin(u"a.csv"_s, 200).contains("Monto"));
    EXPECT_TRUE(viewer->notice().startsWith(u"Se exportó a "_s));
}

TEST_F(Output, AWrittenFileCanBeOpenedFromTheNotice) {
    open(50);
    exportTo("exportPdf", u"a.pdf"_s);
    QTest::mouseClick(&part<QPushButton>("noticeButton"), Qt::LeftButton);
    EXPECT_EQ(opened, folder.filePath(u"a.pdf"_s));
    opens = false;
    QTest::mouseClick(&part<QPushButton>("noticeButton"), Qt::LeftButton);
    EXPECT_TRUE(viewer->notice().startsWith(u"No hay un programa"_s));
}

TEST_F(Output, ACancelledDialogWritesNothing) {
    open(50);
    answer.clear();
    trigger("exportPdf");
    QTest::qWait(20);
    EXPECT_EQ(viewer->notice(), u""_s);
    prints = false;
    trigger("print");
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(u"printed.pdf"_s)));
}

TEST_F(Output, AFolderThatIsNotThereIsTold) {
    open(50);
    exportTo("exportPdf", u"missing/a.pdf"_s);
    EXPECT_TRUE(viewer->notice().startsWith(u"Exportar a PDF: "_s)) << qPrintable(viewer->notice());
    EXPECT_TRUE(action("exportPdf").isEnabled());
}

TEST_F(Output, AnExportWaitsForThePagesThatAreMissing) {
    show(200000, true); // more than a machine lays out in the time of an event
    ASSERT_TRUE(QTest::qWaitFor([this] { return view().geometryOfPages().count() > 0; }));
    ASSERT_FALSE(view().pages()->complete());
    exportTo("exportCsv", u"a.csv"_s);
    EXPECT_TRUE(view().pages()->complete());
    QFile file(folder.filePath(u"a.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_GE(file.readAll().count('\n'), 200000);
}

TEST_F(Output, AStoppedExportLeavesNoFile) {
    open(20000);
    QTimer::singleShot(0, viewer.get(), [this] {
        QObject::connect(viewer.get(), &ReportViewer::statusChanged, viewer.get(),
                         [this](const QString& text) {
                             if (text.contains(u"página"_s))
                                 press(Qt::Key_Escape, {}, viewer.get());
                         });
        answer = folder.filePath(u"a.pdf"_s);
        trigger("exportPdf");
    });
    ASSERT_TRUE(QTest::qWaitFor([this] { return !viewer->notice().isEmpty(); }, 30000));
    EXPECT_TRUE(viewer->notice().contains(u"se detuvo"_s)) << qPrintable(viewer->notice());
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(u"a.pdf"_s)));
}

TEST_F(Output, TheDialogsPagesArePrinted) {
    open(500);
    trigger("next");
    press(Qt::Key_P, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return QFileInfo::exists(folder.filePath(u"printed.pdf"_s)); }));
    EXPECT_EQ(offered.first, 1);
    EXPECT_EQ(offered.last, view().pages()->count());
    EXPECT_EQ(currentPage, 2);
}

TEST_F(Output, CommandsOfferTheirKeysAndNames) {
    open(50);
    for (const char* name : {"print", "copy", "first", "previous", "next", "last", "zoomOut", "zoomIn",
                             "fitWidth", "fitPage", "find", "panel"}) {
        EXPECT_FALSE(action(name).toolTip().isEmpty()) << name;
        EXPECT_FALSE(action(name).icon().isNull()) << name;
        const auto& button = part<QToolButton>(qPrintable(u"button_"_s + QLatin1StringView(name)));
        EXPECT_FALSE(button.accessibleName().isEmpty()) << name;
    }
    EXPECT_TRUE(action("print").toolTip().contains(u"Ctrl+P"_s));
}

TEST_F(Output, ThePrinterThatWasChosenIsOfferedAgain) {
    open(50);
    viewer->printerSetup(viewer.get());
    viewer->printerSetup(viewer.get());
    EXPECT_EQ(chosenBefore, QStringList({QString(), u"Láser 2"_s}));
}

TEST(PrinterSetup, OffersThePrintersAndMarksTheOneChosenBefore) {
    const std::vector<PrinterEntry> printers{{u"Matriz"_s, u"Epson"_s, u""_s, false},
                                             {u"Láser 1"_s, u""_s, u"Piso 2"_s, true},
                                             {u"Láser 2"_s, u""_s, u""_s, false}};
    EXPECT_EQ(PrinterSetup(printers, u"Láser 2"_s).chosen(), u"Láser 2"_s);
    EXPECT_EQ(PrinterSetup(printers, u""_s).chosen(), u"Láser 1"_s);
    PrinterSetup setup(printers, u"gone"_s);
    setup.show();
    EXPECT_EQ(setup.chosen(), u"Láser 1"_s);
    QTest::keyClick(setup.findChild<QListWidget*>(u"printers"_s), Qt::Key_Up);
    QTest::mouseClick(setup.findChild<QPushButton*>(u"accept"_s), Qt::LeftButton);
    EXPECT_EQ(setup.result(), QDialog::Accepted);
    EXPECT_EQ(setup.chosen(), u"Matriz"_s);
}

TEST(PrinterSetup, WithoutAPrinterThereIsNothingToAccept) {
    PrinterSetup setup({}, {});
    setup.show();
    EXPECT_FALSE(setup.findChild<QPushButton*>(u"accept"_s)->isEnabled());
    EXPECT_EQ(setup.findChild<QLabel*>(u"printersText"_s)->text(),
              u"No hay impresoras instaladas en este equipo."_s);
}
