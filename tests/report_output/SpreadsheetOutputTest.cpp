#include "platform/reportengine/sheet/SpreadsheetOutput.h"
#include "tests/report_output/ExportFixture.h"
#include "tests/report_output/SheetReader.h"
#include <limits>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

namespace {

/// Columns of the sample's sheet.
enum SheetColumn { DayColumn, KindColumn, NumberColumn, MarkColumn, CustomerColumn, AmountColumn };

double serial(int year, int month, int day) {
    return Date::fromYmd(year, month, day).serial();
}

} // namespace

class SpreadsheetOutputTest : public ExportFixture {
protected:
    SheetReader written(std::vector<Sale> sales) {
        open(std::move(sales));
        EXPECT_TRUE(writeSpreadsheet(source, path(u"a.xlsx"_s), {}));
        return SheetReader(path(u"a.xlsx"_s));
    }
    /// One sale of a customer.
    SheetReader writtenCustomer(const QString& customer) {
        std::vector<Sale> sales = sampleSales();
        sales.resize(1);
        sales[0].customer = customer;
        return written(std::move(sales));
    }
};

TEST_F(SpreadsheetOutputTest, SheetReadsLikeTheReport) {
    const SheetReader sheet = written(sampleSales());
    EXPECT_EQ(sheet.sheets(), QStringList{u"VENTAS POR VENDEDOR"_s});
    const std::vector<QStringList> expected{
        {u"Comercial \"El Sol\" S.A."_s, {}, {}, {}, u"Ventas por vendedor"_s},
        {u"Fono 2 555 1234"_s},
        {u"Fecha"_s, u"Documento"_s, u"Número"_s, {}, u"Cliente"_s, u"Monto"_s},
        {u"Vendedor"_s, u"Andrés Peña"_s},
        {u"35612"_s, u"FACTURA"_s, u"1001"_s, {}, u"Muebles Ñuñoa Ltda."_s, u"1234567.5"_s},
        {u"35620"_s, u"NCR"_s, u"77"_s, u"N/C"_s, u"Muebles Ñuñoa Ltda."_s, u"-2500.25"_s},
        {u"35644"_s, u"FACTURA"_s, u"1002"_s, {}, u"=SUMA(A1:A9)"_s},
        {u"Total vendedor"_s, u"Andrés Peña"_s, {}, {}, u"3"_s, u"1232067.25"_s}};
    for (int row = 0; row < static_cast<int>(expected.size()) - 1; ++row)
        EXPECT_EQ(sheet.row(row), expected[row]) << "row " << row;
    EXPECT_EQ(sheet.frozenRows(), 3);
}

TEST_F(SpreadsheetOutputTest, NumbersAndDatesAreValues) {
    const SheetReader sheet = written(sampleSales());
    const int row = sheet.rowOf(u"Vendedor"_s) + 1;
    EXPECT_EQ(sheet.cell(row, DayColumn).number(), serial(1997, 7, 1));
    EXPECT_EQ(sheet.cell(row, DayColumn).format, u"dd/mm/yyyy"_s);
    EXPECT_EQ(sheet.cell(row, AmountColumn).number(), 1234567.5);
    EXPECT_EQ(sheet.cell(row, AmountColumn).format, u"#,##0.00"_s);
}

TEST_F(SpreadsheetOutputTest, CodesThatLookLikeNumbersKeepTheirZeros) {
    std::vector<Sale> sales = sampleSales();
    sales = {sales[3]};
    const SheetReader sheet = written(std::move(sales));
    const SheetCell number = sheet.cell(sheet.rowOf(u"Vendedor"_s) + 1, NumberColumn);
    EXPECT_EQ(number.text(), u"0003"_s);
    EXPECT_EQ(number.format, u"@"_s);
}

TEST_F(SpreadsheetOutputTest, DecimalsFollowTheField) {
    definition.sections[2].objects.back().format.decimals = 0;
    const SheetReader sheet = written(sampleSales());
    const SheetCell amount = sheet.cell(sheet.rowOf(u"Vendedor"_s) + 1, AmountColumn);
    EXPECT_EQ(amount.format, u"#,##0"_s);
    EXPECT_EQ(amount.number(), 1234567.5) << "the value keeps what the page rounds";
}

TEST_F(SpreadsheetOutputTest, SubtotalsStandBoldUnderTheirColumns) {
    const SheetReader sheet = written(sampleSales());
    std::vector<double> subtotals;
    for (int row = 0; row < sheet.rowCount(); ++row)
        if (sheet.cell(row, DayColumn).text() == u"Total vendedor") {
            subtotals.push_back(sheet.cell(row, AmountColumn).number());
            EXPECT_TRUE(sheet.cell(row, AmountColumn).bold);
            EXPECT_EQ(sheet.cell(row, AmountColumn).format, u"#,##0.00"_s);
        }
    EXPECT_EQ(subtotals, (std::vector<double>{1232067.25, 850099.99, -310000}));
    const int total = sheet.rowOf(u"Total general"_s);
    EXPECT_DOUBLE_EQ(sheet.cell(total, AmountColumn).number(), 1772167.24);
    EXPECT_EQ(total, sheet.rowCount() - 1) << "page footers have no place in a sheet";
}

TEST_F(SpreadsheetOutputTest, NegativeAmountsAreRedAsOnThePage) {
    const SheetReader sheet = written(sampleSales());
    const int row = sheet.rowOf(u"Vendedor"_s) + 1;
    EXPECT_EQ(sheet.cell(row + 1, AmountColumn).colour, QColor(0xb3, 0x26, 0x1e));
    EXPECT_NE(sheet.cell(row, AmountColumn).colour, QColor(0xb3, 0x26, 0x1e));
    EXPECT_EQ(sheet.cell(row + 1, MarkColumn).text(), u"N/C"_s);
    EXPECT_TRUE(sheet.cell(row, MarkColumn).isEmpty());
}

TEST_F(SpreadsheetOutputTest, HeadingsAreReadableOnTheColourOfTheirBox) {
    const SheetReader sheet = written(sampleSales());
    const SheetCell heading = sheet.cell(2, AmountColumn);
    EXPECT_TRUE(heading.bold);
    EXPECT_EQ(heading.colour, QColor(Qt::white));
    EXPECT_EQ(heading.ground, QColor(0x1f, 0x38, 0x64));
    EXPECT_EQ(sheet.cell(2, MarkColumn).ground, QColor(0x1f, 0x38, 0x64)) << "the box goes through";
}

TEST_F(SpreadsheetOutputTest, ColumnsAreAsWideAsTheirObjects) {
    const SheetReader sheet = written(sampleSales());
    EXPECT_GT(sheet.width(DayColumn), 10);
    EXPECT_GT(sheet.width(CustomerColumn), 2 * sheet.width(DayColumn));
    EXPECT_GE(sheet.width(AmountColumn), 20);
}

TEST_F(SpreadsheetOutputTest, MissingValuesLeaveTheirCellsEmpty) {
    std::vector<Sale> sales = sampleSales();
    sales = {sales[2], sales[4]};
    const SheetReader sheet = written(std::move(sales));
    EXPECT_TRUE(sheet.cell(sheet.rowOf(u"Vendedor"_s) + 1, AmountColumn).isEmpty());
    EXPECT_EQ(sheet.row(sheet.rowCount() - 3).size(), 6);
    EXPECT_TRUE(sheet.cell(sheet.rowCount() - 3, DayColumn).isEmpty());
}

TEST_F(SpreadsheetOutputTest, TextsThatLookLikeFormulasStayTexts) {
    for (const QString& customer : {u"=1+1"_s, u"+56 2 555"_s, u"-5"_s, u"@SUMA(1)"_s, u"\t=1"_s}) {
        const SheetReader sheet = writtenCustomer(customer);
        const SheetCell cell = sheet.cell(sheet.rowOf(u"Vendedor"_s) + 1, CustomerColumn);
        EXPECT_EQ(cell.text(), customer);
        EXPECT_EQ(cell.format, u"@"_s) << "editing the cell must not run it";
    }
}

TEST_F(SpreadsheetOutputTest, AnyTextComesBackAsItWas) {
    const QStringList customers{u"<b>\"A\" & 'B'</b>"_s, u"  dos   blancos  "_s, u"dos\nlíneas"_s,
                                u"\x0b\x01 control"_s,   u"_x0041_"_s,           u"😀 ñandú"_s,
                                QString(32767, u'x')};
    for (const QString& customer : customers) {
        const SheetReader sheet = writtenCustomer(customer);
        EXPECT_EQ(sheet.cell(sheet.rowOf(u"Vendedor"_s) + 1, CustomerColumn).text(), customer);
    }
}

TEST_F(SpreadsheetOutputTest, WhatACellCannotHoldIsCutOrLeftOut) {
    const auto customer = [this](const QString& text) {
        const SheetReader sheet = writtenCustomer(text);
        return sheet.cell(sheet.rowOf(u"Vendedor"_s) + 1, CustomerColumn).text();
    };
    EXPECT_EQ(customer(QString(40000, u'x')), QString(32767, u'x'));
    EXPECT_EQ(customer(QString(32766, u'x') + u"😀"_s), QString(32766, u'x'));
    EXPECT_EQ(customer(u"a\ufffe\uffffz"_s), u"az"_s);
    EXPECT_EQ(customer(u"a"_s + QChar(0xd800) + u"z"_s).size(), 3);
}

TEST_F(SpreadsheetOutputTest, ValuesThatNoCellKnowsAreWrittenAsTheyRead) {
    std::vector<Sale> sales = sampleSales();
    sales.resize(2);
    sales[0].day = Date::fromYmd(1900, 2, 28);
    sales[1].day = Date::fromYmd(1900, 3, 1);
    sales[1].amount = Value(std::numeric_limits<double>::infinity());
    const SheetReader sheet = written(std::move(sales));
    const int row = sheet.rowOf(u"Vendedor"_s) + 1;
    EXPECT_EQ(sheet.cell(row, DayColumn).text(), u"28/02/1900"_s);
    EXPECT_EQ(sheet.cell(row + 1, DayColumn).number(), 61);
    EXPECT_EQ(sheet.cell(row + 1, AmountColumn).text(), u"∞"_s);
}

TEST_F(SpreadsheetOutputTest, PagesLeaveNoTraceBetweenTheRows) {
    openLong(400);
    ASSERT_TRUE(writeSpreadsheet(source, path(u"a.xlsx"_s), {}));
    ASSERT_GT(source.layout->pageCount(), 5);
    const SheetReader sheet(path(u"a.xlsx"_s));
    int headers = 0;
    int headings = 0;
    for (int row = 0; row < sheet.rowCount(); ++row) {
        headers += sheet.cell(row, DayColumn).text() == u"Vendedor";
        headings += sheet.cell(row, DayColumn).text() == u"Fecha";
    }
    EXPECT_EQ(headers, 4) << "a header that comes again on a further page stands once";
    EXPECT_EQ(headings, 1);
    EXPECT_EQ(sheet.rowCount(), 3 + 4 + 400 + 4 + 1);
}

TEST_F(SpreadsheetOutputTest, AFullSheetGoesOnInAFurtherOne) {
    openLong(250);
    source.layout->finish();
    SpreadsheetOutput output(source.context, path(u"a.xlsx"_s), 100);
    for (int page = 0; page < source.layout->pageCount(); ++page)
        output.add(source.layout->page(page));
    output.commit();
    SheetReader sheet(path(u"a.xlsx"_s));
    ASSERT_EQ(sheet.sheets(), (QStringList{u"VENTAS POR VENDEDOR"_s, u"VENTAS POR VENDEDOR (2)"_s,
                                           u"VENTAS POR VENDEDOR (3)"_s}));
    int details = 0;
    for (int part = 0; part < 3; ++part) {
        sheet.open(part);
        EXPECT_LE(sheet.rowCount(), 100);
        EXPECT_EQ(sheet.cell(part == 0 ? 2 : 0, AmountColumn).text(), u"Monto"_s);
        EXPECT_EQ(sheet.frozenRows(), part == 0 ? 3 : 1);
        for (int row = 0; row < sheet.rowCount(); ++row)
            details += sheet.cell(row, KindColumn).text() == u"FACTURA";
    }
    EXPECT_EQ(details, 250);
}

TEST_F(SpreadsheetOutputTest, NamesOfSheetsAreMadeToFit) {
    definition.title = u"'Ventas [1/2]: ¿cuánto? * de todos los vendedores'"_s;
    EXPECT_EQ(written(sampleSales()).sheets(), QStringList{u"Ventas 1 2 ¿cuánto de todos los"_s});
    definition.title = u"???"_s;
    EXPECT_EQ(written(sampleSales()).sheets(), QStringList{u"Reporte"_s});
}

TEST_F(SpreadsheetOutputTest, AReportWithoutRowsKeepsItsHeading) {
    const SheetReader sheet = written({});
    EXPECT_EQ(sheet.cell(2, CustomerColumn).text(), u"Cliente"_s);
}

TEST_F(SpreadsheetOutputTest, TellsEveryPageAndStopsWhenToldSo) {
    openLong(400);
    writeOld(path(u"a.xlsx"_s));
    const int before = openFiles();
    EXPECT_FALSE(writeSpreadsheet(source, path(u"a.xlsx"_s), [](int done, int) { return done < 3; }));
    EXPECT_EQ(contentOf(path(u"a.xlsx"_s)), "antes");
    EXPECT_EQ(filesIn(folder.path()), QStringList{u"a.xlsx"_s});
    EXPECT_EQ(openFiles(), before);
    std::vector<int> told;
    EXPECT_TRUE(writeSpreadsheet(source, path(u"a.xlsx"_s), [&](int done, int total) {
        EXPECT_EQ(total, source.layout->pageCount());
        told.push_back(done);
        return true;
    }));
    std::vector<int> pages(source.layout->pageCount());
    std::iota(pages.begin(), pages.end(), 1);
    EXPECT_EQ(told, pages);
    EXPECT_EQ(openFiles(), before);
}

TEST_F(SpreadsheetOutputTest, ADiskThatFillsUpIsToldWhereverItDoes) {
    openLong(3000);
    const dalvora::test::SmallDisk disk(64);
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting needs a right that this user has not";
    const QString file = disk.path() + u"/a.xlsx"_s;
    writeOld(file);
    const RunTimeError error = errorOf([&] { writeSpreadsheet(source, file, {}); });
    EXPECT_EQ(error.number(), ErrorDiskFull);
    EXPECT_EQ(error.description(), u"No hay espacio en el disco para escribir «%1»."_s.arg(file));
    EXPECT_EQ(contentOf(file), "antes");
    EXPECT_EQ(filesIn(disk.path()), QStringList{u"a.xlsx"_s});
}

/// The library keeps rows in a file for temporary data, twice while it packs them, and does not notice when
/// the second time fails.
TEST_F(SpreadsheetOutputTest, AFullTemporaryFolderNeverMakesASheetWithRowsMissing) {
    openLong(3000);
    ASSERT_TRUE(writeSpreadsheet(source, path(u"whole.xlsx"_s), {}));
    const int rows = SheetReader(path(u"whole.xlsx"_s)).rowCount();
    const QByteArray usual = qgetenv("TMPDIR");
    int failures = 0;
    for (const int kilobytes : {8, 100, 900, 1100, 1300, 1600, 2200, 8000}) {
        const dalvora::test::SmallDisk disk(kilobytes);
        if (!disk.isMounted())
            GTEST_SKIP() << "mounting needs a right that this user has not";
        qputenv("TMPDIR", disk.path().toLocal8Bit());
        const RunTimeError error = errorOf([&] { writeSpreadsheet(source, path(u"a.xlsx"_s), {}); });
        EXPECT_EQ(filesIn(disk.path()), QStringList());
        if (error.number() != 0) {
            ++failures;
            EXPECT_EQ(error.number(), ErrorDiskFull);
            EXPECT_EQ(error.description(), u"No hay espacio en la carpeta temporal «%1»."_s.arg(disk.path()));
            EXPECT_EQ(filesIn(folder.path()), QStringList{u"whole.xlsx"_s}) << kilobytes;
        } else {
            EXPECT_EQ(SheetReader(path(u"a.xlsx"_s)).rowCount(), rows) << kilobytes;
            QFile::remove(path(u"a.xlsx"_s));
        }
    }
    usual.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", usual);
    EXPECT_GT(failures, 2);
    EXPECT_LT(failures, 8);
}

TEST_F(SpreadsheetOutputTest, AFolderThatTakesNoFilesIsTold) {
    open(sampleSales());
    const QString path = u"/proc/a.xlsx"_s;
    const RunTimeError error = errorOf([&] { writeSpreadsheet(source, path, {}); });
    EXPECT_EQ(error.number(), ErrorPathAccess);
    EXPECT_TRUE(
        error.description().startsWith(u"No se puede escribir «%1»"_s.arg(QDir::toNativeSeparators(path))))
        << error.description().toStdString();
}

} // namespace quorvane::report::test
