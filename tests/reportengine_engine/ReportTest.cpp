// A report as programs use it: sections, objects and formulas by number, properties by name, printing.
#include "platform/reportengine/engine/Report.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::report;
using namespace Qt::StringLiterals;
using quorvane::test::errorOf;

namespace {

/// Numbers from 1 up.
class CountedRows final : public RowSource {
public:
    explicit CountedRows(int count) : m_count(count) {}
    int columnCount() const override { return 1; }
    QString columnName(int) const override { return u"Numero"_s; }
    bool next() override { return ++m_row <= m_count; }
    Value value(int) override { return qint32(m_row); }

private:
    int m_count;
    int m_row = 0;
};

ReportObject field(const QString& name, const QString& formatOf = {}) {
    ReportObject object;
    object.kind = ObjectKind::Field;
    object.name = name;
    object.rect = {0, 0, 100, 20};
    object.format = {2, QString(), u"."_s};
    object.formatOf = formatOf;
    return object;
}

Definition numbers() {
    Definition definition;
    definition.title = u"NUMEROS"_s;
    definition.styles.emplace_back();
    definition.columns.push_back({u"numero"_s, ColumnType::Number, Column::Origin::Rows, {}, {}});
    definition.formulas = {{u"{@CfgEmpresa}"_s, u"\"\""_s}, {u"{@Otra}"_s, u"\"x\""_s}};
    Section header;
    header.kind = SectionKind::PageHeader;
    header.height = 30;
    ReportObject caption;
    caption.name = u"Titulo"_s;
    caption.text = u"Números"_s;
    caption.rect = {0, 0, 200, 20};
    header.objects.push_back(caption);
    Section details;
    details.height = 20;
    details.objects = {field(u"Field8"_s), field(u"Suma"_s, u"FIELD8"_s), field(u"Otro"_s)};
    details.objects[1].ownDecimals = true;
    definition.sections = {header, details};
    return definition;
}

class ReportTest : public testing::Test {
protected:
    QString text(int section, int object, QStringView property) {
        return report.object(section, object).property(property).toText({});
    }
    Report report{numbers()};
    QTemporaryDir folder;
};

} // namespace

TEST_F(ReportTest, SectionsAndObjectsCountFromOne) {
    EXPECT_EQ(report.title(), u"NUMEROS"_s);
    EXPECT_EQ(report.sectionCount(), 2);
    EXPECT_EQ(report.objectCount(1), 1);
    EXPECT_EQ(report.objectCount(2), 3);
    EXPECT_EQ(text(1, 1, u"Name"), u"Titulo"_s);
    EXPECT_EQ(text(2, 1, u"Name"), u"Field8"_s);
    for (const int outside : {-1, 0, 3})
        EXPECT_EQ(errorOf([&] { report.objectCount(outside); }), 9) << outside;
    EXPECT_EQ(errorOf([&] { report.object(2, 0); }), 9);
    EXPECT_EQ(errorOf([&] { report.object(2, 4); }), 9);
}

TEST_F(ReportTest, KindsHaveTheirNumbers) {
    EXPECT_EQ(text(1, 1, u"Kind"), u"2"_s);
    EXPECT_EQ(text(2, 1, u"kind"), u"1"_s);
}

TEST_F(ReportTest, AFieldTakesItsNumberFormat) {
    ObjectHandle object = report.object(2, 3);
    object.setProperty(u"DecimalPlaces", qint16(3));
    object.setProperty(u"THOUSANDSYMBOL", u"."_s);
    object.setProperty(u"DecimalSymbol", u","_s);
    const NumberFormat& format = report.definition().sections[1].objects[2].format;
    EXPECT_EQ(format.decimals, 3);
    EXPECT_EQ(format.thousands, u"."_s);
    EXPECT_EQ(format.decimal, u","_s);
    EXPECT_EQ(text(2, 3, u"DecimalPlaces"), u"3"_s);
    EXPECT_EQ(text(2, 1, u"DecimalPlaces"), u"2"_s) << "no other field";
}

TEST_F(ReportTest, AFieldThatKeepsToAnotherOnesFormatFollowsIt) {
    report.object(2, 1).setProperty(u"DecimalPlaces", qint32(0));
    report.object(2, 1).setProperty(u"ThousandSymbol", u"."_s);
    EXPECT_EQ(text(2, 2, u"ThousandSymbol"), u"."_s);
    EXPECT_EQ(text(2, 2, u"DecimalPlaces"), u"2"_s) << "its decimals are its own";
    EXPECT_EQ(text(2, 3, u"ThousandSymbol"), QString());
}

TEST_F(ReportTest, PropertiesThatDoNotFitAreRefused) {
    ObjectHandle caption = report.object(1, 1);
    ObjectHandle object = report.object(2, 1);
    EXPECT_EQ(errorOf([&] { object.property(u"Color"); }), 438);
    EXPECT_EQ(errorOf([&] { caption.property(u"DecimalPlaces"); }), 438) << "a text has no decimals";
    EXPECT_EQ(errorOf([&] { caption.setProperty(u"DecimalSymbol", u","_s); }), 438);
    EXPECT_EQ(errorOf([&] { object.setProperty(u"Name", u"x"_s); }), 383);
    EXPECT_EQ(errorOf([&] { caption.setProperty(u"Kind", qint32(1)); }), 383);
    EXPECT_EQ(errorOf([&] { object.setProperty(u"DecimalPlaces", qint32(10)); }), 380);
    EXPECT_EQ(errorOf([&] { object.setProperty(u"DecimalPlaces", u"dos"_s); }), 13);
    EXPECT_EQ(text(2, 1, u"DecimalPlaces"), u"2"_s);
}

TEST_F(ReportTest, DecimalsBelowZeroAreTheGeneralForm) {
    report.object(2, 1).setProperty(u"DecimalPlaces", qint32(-7));
    EXPECT_EQ(text(2, 1, u"DecimalPlaces"), u"-1"_s);
}

TEST_F(ReportTest, FormulasAreSetAsLiterals) {
    EXPECT_EQ(report.formulaCount(), 2);
    EXPECT_EQ(report.formulaName(1), u"{@CfgEmpresa}"_s);
    report.setFormulaText(1, u"\"Bar \"El Sol\"\""_s);
    EXPECT_EQ(report.definition().formulas[0].text, u"\"Bar \"El Sol\"\""_s);
    for (const QString& text : {QString(), u"\""_s, u"x"_s, u"\"x"_s, u"x\""_s})
        EXPECT_EQ(errorOf([&] { report.setFormulaText(1, text); }), 5) << text.toStdString();
    EXPECT_EQ(errorOf([&] { report.formulaName(3); }), 9);
    EXPECT_EQ(errorOf([&] { report.setFormulaText(0, u"\"\""_s); }), 9);
}

TEST_F(ReportTest, WithoutRowsThereAreNoPages) {
    EXPECT_FALSE(report.hasData());
    EXPECT_EQ(errorOf([&] { report.pageCount(); }), 91);
    EXPECT_EQ(errorOf([&] { report.layout(); }), 91);
}

TEST_F(ReportTest, PagesComeFromTheRowsThatWereSetLast) {
    report.setDataSource(std::make_unique<CountedRows>(1));
    EXPECT_TRUE(report.hasData());
    EXPECT_EQ(report.pageCount(), 1);
    report.setDataSource(std::make_unique<CountedRows>(500));
    EXPECT_GT(report.pageCount(), 1);
    EXPECT_EQ(report.layout().rowsFetched(), 500);
}

TEST_F(ReportTest, PrintsTheChosenPagesIntoAFile) {
    report.setDataSource(std::make_unique<CountedRows>(500));
    const int pages = report.pageCount();
    const QString file = folder.filePath(u"salida.pdf"_s);
    report.selectPrinter(documentDriver.toString(), QString(), file);
    report.printOut(false, 1, 2, 4);
    QFile document(file);
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    const QByteArray content = document.readAll();
    EXPECT_TRUE(content.startsWith("%PDF"));
    EXPECT_TRUE(content.contains("/Count 3")) << pages;
}

TEST_F(ReportTest, WithoutRowsThereIsNothingToPrint) {
    EXPECT_EQ(errorOf([&] { report.printOut(false, 1, 1, 1); }), 91);
}

TEST_F(ReportTest, WhatCannotBePrintedIsRefused) {
    report.setDataSource(std::make_unique<CountedRows>(1));
    report.selectPrinter(documentDriver.toString(), QString(), folder.filePath(u"salida.pdf"_s));
    EXPECT_EQ(errorOf([&] { report.printOut(true, 1, 1, 1); }), 5) << "the engine asks nothing";
    EXPECT_EQ(errorOf([&] { report.printOut(false, 0, 1, 1); }), 5);
    EXPECT_EQ(errorOf([&] { report.printOut(false, 1, 0, 1); }), 5);
    EXPECT_EQ(errorOf([&] { report.printOut(false, 1, 1, 2); }), 5);
    EXPECT_EQ(errorOf([&] { report.printOut(false, 1, 2, 1); }), 5);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"salida.pdf"_s)));
    report.selectPrinter(QString(), u"No hay"_s, QString());
    EXPECT_EQ(errorOf([&] { report.printOut(false, 1, 1, 1); }), 482);
    report.selectPrinter(documentDriver.toString(), QString(), folder.filePath(u"no/hay/salida.pdf"_s));
    EXPECT_NE(errorOf([&] { report.printOut(false, 1, 1, 1); }), 0);
}

TEST(ApplicationTest, OpensWhatIsThere) {
    const QTemporaryDir folder;
    EXPECT_EQ(errorOf([&] { Application().openReport(folder.filePath(u"no.rpt"_s)); }), 53);
    QFile file(folder.filePath(u"mala.rpt"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<report>");
    file.close();
    EXPECT_EQ(errorOf([&] { Application().openReport(file.fileName()); }), 321);
}
