#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/output/Output.h"
#include "tests/report_output/ReferenceImage.h"
#include "tests/report_output/SampleReport.h"
#include "tests/support/MadeBy.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/SmallDisk.h"
#include <QDir>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

using quorvane::test::madeBy;

namespace {

/// The document's lines without the blanks that only place their words.
QStringList linesOf(const QString& pdf) {
    QStringList lines;
    const QString text = QString::fromUtf8(madeBy(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s}));
    for (const QString& line : text.split(u'\n'))
        if (!line.trimmed().isEmpty())
            lines << line.simplified();
    return lines;
}

} // namespace

class PdfOutputTest : public testing::Test {
protected:
    void open(std::vector<Sale> sales) {
        definition = sampleDefinition();
        layout = std::make_unique<Layout>(definition, rowsOf(std::move(sales)));
        source = {layout.get(), sampleContext(definition, 0)};
    }
    void openLong() {
        std::vector<Sale> sales;
        for (int number = 0; number < 400; ++number)
            sales.push_back({u"Vendedor %1"_s.arg(number / 100), Date::fromYmd(1997, 7, 1), u"FACTURA"_s,
                             QString::number(number), u"Cliente"_s, Value(1.5)});
        open(std::move(sales));
    }
    QString path(const QString& name) const { return folder.filePath(name); }
    int errorOf(const std::function<void()>& action, QString& description) {
        try {
            action();
        } catch (const RunTimeError& error) {
            description = error.description();
            return error.number();
        }
        return 0;
    }

    QTemporaryDir folder;
    Definition definition;
    std::unique_ptr<Layout> layout;
    OutputSource source;
};

TEST_F(PdfOutputTest, DocumentHoldsTheTextOfThePage) {
    open(sampleSales());
    ASSERT_TRUE(writePdf(source, path(u"a.pdf"_s), {}));
    const QStringList expected{u"Comercial \"El Sol\" S.A. Ventas por vendedor"_s,
                               u"Fono 2 555 1234"_s,
                               u"Fecha Documento Número Cliente Monto"_s,
                               u"Vendedor Andrés Peña"_s,
                               u"01/07/1997 FACTURA 1001 Muebles Ñuñoa Ltda. 1.234.567,50"_s,
                               u"09/07/1997 NCR 77 N/C Muebles Ñuñoa Ltda. -2.500,25"_s,
                               u"02/08/1997 FACTURA 1002 =SUMA(A1:A9)"_s,
                               u"Total vendedor Andrés Peña 3 documentos 1.232.067,25"_s};
    EXPECT_EQ(linesOf(path(u"a.pdf"_s)).first(expected.size()), expected);
    EXPECT_TRUE(linesOf(path(u"a.pdf"_s)).last().contains(u"Página 1 de 1"_s));
}

TEST_F(PdfOutputTest, PageLooksLikeItsReference) {
    open(sampleSales());
    ASSERT_TRUE(writePdf(source, path(u"a.pdf"_s), {}));
    madeBy(u"pdftoppm"_s, {u"-r"_s, u"80"_s, u"-png"_s, u"-singlefile"_s, path(u"a.pdf"_s), path(u"a"_s)});
    EXPECT_TRUE(looksLikeReference(QImage(path(u"a.png"_s)), u"pdf-page"_s));
}

TEST_F(PdfOutputTest, EveryPageKnowsHowManyThereAre) {
    openLong();
    std::vector<std::pair<int, int>> told;
    ASSERT_TRUE(writePdf(source, path(u"a.pdf"_s), [&](int done, int total) {
        told.emplace_back(done, total);
        return true;
    }));
    const int pages = layout->pageCount();
    ASSERT_GT(pages, 5);
    const QString text = linesOf(path(u"a.pdf"_s)).join(u'\n');
    for (int page = 1; page <= pages; ++page)
        EXPECT_TRUE(text.contains(u"Página %1 de %2"_s.arg(page).arg(pages)));
    EXPECT_EQ(told.back(), std::make_pair(pages, pages));
}

TEST_F(PdfOutputTest, StoppingLeavesTheOldDocument) {
    openLong();
    QFile old(path(u"a.pdf"_s));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("antes");
    old.close();
    EXPECT_FALSE(writePdf(source, path(u"a.pdf"_s), [](int done, int) { return done < 2; }));
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "antes");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"a.pdf"_s});
}

TEST_F(PdfOutputTest, AFullDiskIsToldAndLeavesNothingBehind) {
    openLong();
    const dalvora::test::SmallDisk disk(64);
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting needs a right that this user has not";
    disk.fill();
    const QString file = disk.path() + u"/a.pdf"_s;
    QString description;
    EXPECT_EQ(errorOf([&] { writePdf(source, file, {}); }, description), ErrorDiskFull);
    EXPECT_TRUE(description.contains(u"No hay espacio en el disco"_s)) << description.toStdString();
    EXPECT_EQ(QDir(disk.path()).entryList(QDir::Files), QStringList{u"relleno"_s});
}

TEST_F(PdfOutputTest, AFolderThatTakesNoFilesIsTold) {
    open(sampleSales());
    QString description;
    EXPECT_EQ(errorOf([&] { writePdf(source, u"/proc/a.pdf"_s, {}); }, description), ErrorPathAccess);
    EXPECT_TRUE(description.contains(u"No se puede escribir «/proc/a.pdf»"_s)) << description.toStdString();
}

TEST_F(PdfOutputTest, PrintsTheAskedPagesAsOftenAsAsked) {
    openLong();
    layout->finish();
    const int pages = layout->pageCount();
    QPrinter printer;
    printer.setOutputFileName(path(u"impreso.pdf"_s));
    ASSERT_TRUE(printPages(source, printer, 2, 3, 2, {}));
    QStringList numbers;
    for (const QString& line : linesOf(path(u"impreso.pdf"_s)))
        if (line.contains(u"Página"_s))
            numbers << line.mid(line.indexOf(u"Página"_s));
    const QString second = u"Página 2 de %1"_s.arg(pages);
    const QString third = u"Página 3 de %1"_s.arg(pages);
    EXPECT_EQ(numbers, (QStringList{second, third, second, third}));
}

TEST_F(PdfOutputTest, PrintsOnPaperOfTheReportsSizeAndDirection) {
    open(sampleSales());
    definition.pageSize.transpose();
    QPrinter printer;
    printer.setOutputFileName(path(u"a.pdf"_s));
    ASSERT_TRUE(printPages(source, printer, 1, 1, 1, {}));
    const QString about = QString::fromUtf8(madeBy(u"pdfinfo"_s, {path(u"a.pdf"_s)}));
    EXPECT_TRUE(about.contains(QRegularExpression(u"Page size: +84[12][.0-9]* x 59[56]"_s)))
        << about.toStdString();
}

TEST_F(PdfOutputTest, PagesThatThereAreNotAreRefused) {
    open(sampleSales());
    QPrinter printer;
    printer.setOutputFileName(path(u"a.pdf"_s));
    QString description;
    for (const auto& pages : std::vector<std::pair<int, int>>{{0, 1}, {2, 1}, {1, 2}})
        EXPECT_EQ(
            errorOf([&] { printPages(source, printer, pages.first, pages.second, 1, {}); }, description),
            ErrorInvalidCall);
}

TEST_F(PdfOutputTest, WithoutAPrinterItSaysSo) {
    open(sampleSales());
    QPrinter printer;
    if (printer.isValid() && printer.outputFormat() == QPrinter::NativeFormat)
        GTEST_SKIP() << "this machine has a printer";
    printer.setOutputFormat(QPrinter::NativeFormat);
    QString description;
    EXPECT_EQ(errorOf([&] { printPages(source, printer, 1, 1, 1, {}); }, description), ErrorPrinter);
    EXPECT_EQ(description, u"No hay ninguna impresora instalada."_s);
}

} // namespace quorvane::report::test
