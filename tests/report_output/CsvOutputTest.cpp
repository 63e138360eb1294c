#include "platform/reportengine/output/CsvOutput.h"
#include "tests/report_output/ExportFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

class CsvOutputTest : public ExportFixture {
protected:
    QStringList written(std::vector<Sale> sales) {
        open(std::move(sales));
        source.context.regional = regional;
        EXPECT_TRUE(writeCsv(source, path(u"a.csv"_s), {}));
        const QByteArray content = contentOf(path(u"a.csv"_s));
        EXPECT_TRUE(content.startsWith("\xef\xbb\xbf"));
        EXPECT_TRUE(content.endsWith("\r\n"));
        return QString::fromUtf8(content.mid(3)).split(u"\r\n"_s, Qt::SkipEmptyParts);
    }
    /// How a customer's name is written.
    QString customer(const QString& name) {
        std::vector<Sale> sales = sampleSales();
        sales.resize(1);
        sales[0].customer = name;
        open(std::move(sales));
        EXPECT_TRUE(writeCsv(source, path(u"a.csv"_s), {}));
        const QString line = QString::fromUtf8(contentOf(path(u"a.csv"_s))).section(u"\r\n"_s, 1);
        const QString before = u"Andrés Peña;01/07/1997;FACTURA;1001;;"_s;
        const QString after = u";1234567,5\r\n"_s;
        EXPECT_TRUE(line.startsWith(before) && line.endsWith(after)) << line.toStdString();
        return line.mid(before.size(), line.size() - before.size() - after.size());
    }

    RegionalSettings regional;
};

TEST_F(CsvOutputTest, HasALineForEveryDetailWithItsGroup) {
    const QStringList expected{
        u"Vendedor;Fecha;Documento;Número;;Cliente;Monto"_s,
        u"Andrés Peña;01/07/1997;FACTURA;1001;;Muebles Ñuñoa Ltda.;1234567,5"_s,
        u"Andrés Peña;09/07/1997;NCR;77;N/C;Muebles Ñuñoa Ltda.;-2500,25"_s,
        u"Andrés Peña;02/08/1997;FACTURA;1002;;'=SUMA(A1:A9);"_s,
        u"Berta Soto;;BOLETA;12;;\"Casa \"\"Matriz\"\"; centro\";99,99"_s,
        u"Berta Soto;15/07/1997;FACTURA;0003;;Sociedad Importadora y Distribuidora de Artículos Eléctricos del Sur Limitada;850000"_s,
        u"Carlos Ruiz;30/09/1997;NCR;78;N/C;'+56 2 555;-310000"_s};
    EXPECT_EQ(written(sampleSales()), expected);
}

TEST_F(CsvOutputTest, SeparatesByCommasWhereTheyAreNotTheDecimalSign) {
    regional.decimalSeparator = u'.';
    regional.groupSeparator = u',';
    regional.dateSeparator = u'-';
    const QStringList lines = written(sampleSales());
    EXPECT_EQ(lines.at(0), u"Vendedor,Fecha,Documento,Número,,Cliente,Monto"_s);
    EXPECT_EQ(lines.at(2), u"Andrés Peña,09-07-1997,NCR,77,N/C,Muebles Ñuñoa Ltda.,-2500.25"_s);
}

TEST_F(CsvOutputTest, QuotesOnlyWhatNeedsIt) {
    EXPECT_EQ(customer(u"Uno, dos"_s), u"Uno, dos"_s);
    EXPECT_EQ(customer(u"Uno; dos"_s), u"\"Uno; dos\""_s);
    EXPECT_EQ(customer(u"\"Sol\""_s), u"\"\"\"Sol\"\"\""_s);
    EXPECT_EQ(customer(u"dos\nlíneas"_s), u"\"dos\nlíneas\""_s);
    EXPECT_EQ(customer(u"dos\r\nlíneas"_s), u"\"dos\r\nlíneas\""_s);
    EXPECT_EQ(customer(u" blancos "_s), u"\" blancos \""_s);
    EXPECT_EQ(customer({}), QString());
}

TEST_F(CsvOutputTest, TextsAreNeverRunAsFormulas) {
    EXPECT_EQ(customer(u"=1+1"_s), u"'=1+1"_s);
    EXPECT_EQ(customer(u"+1"_s), u"'+1"_s);
    EXPECT_EQ(customer(u"-1"_s), u"'-1"_s);
    EXPECT_EQ(customer(u"@A1"_s), u"'@A1"_s);
    EXPECT_EQ(customer(u"\t=1"_s), u"'\t=1"_s);
    EXPECT_EQ(customer(u"\r=1"_s), u"\"'\r=1\""_s);
    EXPECT_EQ(customer(u"=\"a\";1"_s), u"\"'=\"\"a\"\";1\""_s);
    EXPECT_EQ(customer(u"a=1"_s), u"a=1"_s);
}

TEST_F(CsvOutputTest, NumbersHaveTheDigitsThatSpreadsheetsKeep) {
    EXPECT_EQ(plainNumber(0.1 + 0.2, u','), u"0,3"_s);
    EXPECT_EQ(plainNumber(-1234567.89, u'.'), u"-1234567.89"_s);
    EXPECT_EQ(plainNumber(123456789012345678.0, u','), u"123456789012346000"_s);
    EXPECT_EQ(plainNumber(0, u','), u"0"_s);
}

TEST_F(CsvOutputTest, FieldsWithoutATextAboveAreCalledLikeTheirColumn) {
    std::vector<ReportObject>& objects = definition.sections.front().objects;
    objects.erase(std::remove_if(objects.begin(), objects.end(),
                                 [](const ReportObject& object) { return object.text == u"Cliente"; }),
                  objects.end());
    EXPECT_EQ(written({}).at(0), u"Vendedor;Fecha;Documento;Número;;RazonSocial;Monto"_s);
}

TEST_F(CsvOutputTest, ManyPagesGiveEveryRowOnce) {
    openLong(400);
    ASSERT_TRUE(writeCsv(source, path(u"a.csv"_s), {}));
    const QList<QByteArray> lines = contentOf(path(u"a.csv"_s)).split('\n');
    ASSERT_EQ(lines.size(), 402);
    for (int number = 0; number < 400; ++number)
        EXPECT_TRUE(lines[number + 1].startsWith("Vendedor " + QByteArray::number(number / 100) +
                                                 ";01/07/1997;FACTURA;" +
                                                 QByteArray::number(number).rightJustified(6, '0')))
            << lines[number + 1].constData();
}

TEST_F(CsvOutputTest, StoppingLeavesTheOldFile) {
    openLong(400);
    writeOld(path(u"a.csv"_s));
    EXPECT_FALSE(writeCsv(source, path(u"a.csv"_s), [](int done, int) { return done < 2; }));
    EXPECT_EQ(contentOf(path(u"a.csv"_s)), "antes");
    EXPECT_EQ(filesIn(folder.path()), QStringList{u"a.csv"_s});
}

TEST_F(CsvOutputTest, AFullDiskIsToldAndLeavesTheOldFile) {
    openLong(4000);
    const dalvora::test::SmallDisk disk(64);
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting needs a right that this user has not";
    const QString file = disk.path() + u"/a.csv"_s;
    writeOld(file);
    EXPECT_EQ(errorOf([&] { writeCsv(source, file, {}); }).number(), ErrorDiskFull);
    EXPECT_EQ(contentOf(file), "antes");
    EXPECT_EQ(filesIn(disk.path()), QStringList{u"a.csv"_s});
}

TEST_F(CsvOutputTest, AFolderThatTakesNoFilesIsTold) {
    open(sampleSales());
    EXPECT_EQ(errorOf([&] { writeCsv(source, u"/proc/a.csv"_s, {}); }).number(), ErrorPathAccess);
}

} // namespace quorvane::report::test
