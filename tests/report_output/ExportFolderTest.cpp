#include "platform/reportengine/output/CsvOutput.h"
#include "platform/reportengine/sheet/SpreadsheetOutput.h"
#include "platform/reportengine/sheet/WorkbookFile.h"
#include "tests/report_output/ExportFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

/// Files of a user whose name and folders have blanks and accents; so has the folder for temporary data then.
class ExportFolderTest : public ExportFixture {
protected:
    ExportFolderTest() : usual(qgetenv(variable)) {
        QDir(folder.path()).mkpath(u"Señor Peña/Año 2006 Ωμέγα"_s);
        QDir(folder.path()).mkpath(u"Temporal de Íñigo"_s);
        qputenv(variable, QDir::toNativeSeparators(path(u"Temporal de Íñigo"_s)).toLocal8Bit());
        open(sampleSales());
    }
    ~ExportFolderTest() override { usual.isNull() ? qunsetenv(variable) : qputenv(variable, usual); }

    QString accented(const QString& name) const { return path(u"Señor Peña/Año 2006 Ωμέγα/"_s + name); }

private:
#ifdef Q_OS_WIN
    static constexpr char variable[] = "TMP";
#else
    static constexpr char variable[] = "TMPDIR";
#endif
    QByteArray usual;
};

TEST_F(ExportFolderTest, AWorkbookIsWrittenBelowAccents) {
    ASSERT_TRUE(QDir::tempPath().endsWith(u"Temporal de Íñigo"_s)) << QDir::tempPath().toStdString();
    const QString file = accented(u"Comisión de julio.xlsx"_s);
    ASSERT_TRUE(writeSpreadsheet(source, file, {}));
    EXPECT_GT(unpackedSize(file, "xl/worksheets/"), 1000);
    EXPECT_EQ(filesIn(QFileInfo(file).path()), QStringList{u"Comisión de julio.xlsx"_s});
    EXPECT_EQ(filesIn(QDir::tempPath()), QStringList());
}

TEST_F(ExportFolderTest, ADocumentIsWrittenBelowAccents) {
    const QString file = accented(u"Comisión de julio.pdf"_s);
    ASSERT_TRUE(writePdf(source, file, {}));
    const QByteArray document = contentOf(file);
    EXPECT_TRUE(document.startsWith("%PDF-"));
    EXPECT_TRUE(document.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(filesIn(QFileInfo(file).path()), QStringList{u"Comisión de julio.pdf"_s});
}

TEST_F(ExportFolderTest, SeparatedValuesAreWrittenBelowAccents) {
    const QString file = accented(u"Comisión de julio.csv"_s);
    ASSERT_TRUE(writeCsv(source, file, {}));
    EXPECT_TRUE(QString::fromUtf8(contentOf(file)).contains(u"Muebles Ñuñoa"_s));
    EXPECT_EQ(filesIn(QFileInfo(file).path()), QStringList{u"Comisión de julio.csv"_s});
}

} // namespace quorvane::report::test
