// The list of definitions, the reports' connection and the separators.
#include "platform/quorvane32/core/Recordset.h"
#include "reports/processing/HeaderFormulas.h"
#include "reports/processing/RecordsetRows.h"
#include "tests/reports/ReportFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

class ReportsList : public ReportTest {
protected:
    QStringList listed() const {
        QStringList names;
        for (qint16 i = 0; i < table.ReportsCount(); ++i)
            names << table.ReportsFile(i);
        return names;
    }
    void writeMany(int count) {
        for (int i = 0; i < count; ++i)
            write(u"R%1.rpt"_s.arg(i, 2, 10, QChar(u'0')), u"x"_s);
    }
};

class Reports : public ReportTest {};

/// A row whose values cannot be read.
class DamagedCursor final : public quorvane::Cursor {
public:
    bool next() override { return true; }
    int columnCount() const override { return 1; }
    QString columnName(int) const override { return u"CfgEmpresa"_s; }
    Value value(int) override { throw RunTimeError(61, u"Disco lleno"_s); }
};

} // namespace

TEST_F(ReportsList, HoldsTheDefinitionsOfTheProgramByName) {
    write(u"b.RPT"_s, u"x"_s);
    write(u"A.rpt"_s, u"x"_s);
    write(u"c.v2.Rpt"_s, u"x"_s);
    write(u"a.rpt.bak"_s, u"x"_s);
    write(u"rpt"_s, u"x"_s);
    QDir().mkpath(definitions() + u"/carpeta.rpt"_s);
    EXPECT_EQ(table.LoadReportsList(), 0);
    EXPECT_EQ(listed(), (QStringList{u"A"_s, u"b"_s, u"c.v2"_s}));
}

TEST_F(ReportsList, IsEmptyWithoutAFolder) {
    table.ProgramName = u"OTRO"_s;
    EXPECT_EQ(table.LoadReportsList(), 0);
    EXPECT_EQ(table.ReportsCount(), 0);
    EXPECT_EQ(table.ReportsFile(0), QString());
}

TEST_F(ReportsList, HoldsFiftyOneDefinitions) {
    writeMany(51);
    EXPECT_TRUE(table.DBInitialize());
    EXPECT_EQ(table.ReportsCount(), 51);
    EXPECT_EQ(table.ReportsFile(0), u"R00"_s);
    EXPECT_EQ(table.ReportsFile(50), u"R50"_s);
    EXPECT_EQ(table.ReportsFile(51), QString());
    EXPECT_EQ(table.ReportsFile(-1), QString());
}

TEST_F(ReportsList, FailsAtTheFiftySecond) {
    writeMany(52);
    EXPECT_EQ(table.LoadReportsList(), 9);
    EXPECT_EQ(table.ReportsCount(), 51);
    EXPECT_FALSE(table.DBInitialize()) << "the program does not start";
    expectSilence();
}

TEST_F(ReportsList, IsReadAtTheStartOnly) {
    writeMany(2);
    ASSERT_TRUE(table.DBInitialize());
    writeMany(5);
    EXPECT_EQ(table.ReportsCount(), 2);
}

TEST(ReportNamesTest, AFileWithoutADotStopsTheListing) {
    ReportNames names;
    try {
        names.take({u"a.rpt"_s, u"b"_s, u"c.rpt"_s});
        FAIL() << "taken";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 5);
    }
    EXPECT_EQ(names.count(), 1);
    EXPECT_EQ(names.at(0), u"a"_s);
}

TEST_F(Reports, ConnectOnTheirOwnWithTheGivenString) {
    EXPECT_EQ(table.CR_Connect(u"Driver=x;Database=y"_s), 0);
    EXPECT_EQ(opened, QStringList{u"Driver=x;Database=y"_s});
    EXPECT_TRUE(openedWithHourGlass);
    EXPECT_FALSE(hasHourGlass());
    EXPECT_EQ(table.CR_Connect(u"otra"_s), 0);
    EXPECT_EQ(opened.size(), 2);
}

TEST_F(Reports, AFailureToConnectIsRaised) {
    openError = RunTimeError(53, u"No se encontró"_s);
    EXPECT_THROW(table.CR_Connect(u"x"_s), RunTimeError);
}

TEST_F(Reports, DisconnectOnce) {
    table.CR_Connect(u"x"_s);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    EXPECT_EQ(table.CR_Disconnect(), 0);
    EXPECT_FALSE(hasHourGlass());
    EXPECT_THROW(table.CR_Disconnect(), RunTimeError) << "there is nothing to close any more";
    EXPECT_TRUE(hasHourGlass()) << "it had begun";
}

TEST_F(Reports, TheReportOutlivesTheConnection) {
    define(u"Lista"_s);
    storeRows();
    start();
    ASSERT_EQ(process(u"Lista"_s), 0);
    ASSERT_EQ(table.CR_Disconnect(), 0);
    EXPECT_EQ(report().pageCount(), 1);
    EXPECT_EQ(report().layout().rowsFetched(), 2);
}

TEST_F(Reports, SeparatorsAreTheRegionalOnes) {
    QString thousands;
    QString decimal;
    table.DetSeparadores(thousands, decimal);
    EXPECT_EQ(thousands, u"."_s);
    EXPECT_EQ(decimal, u","_s);
    regional = {u'.', u',', u'/'};
    table.DetSeparadores(thousands, decimal);
    EXPECT_EQ(thousands, u","_s);
    EXPECT_EQ(decimal, u"."_s);
}

TEST(SeparatorsTest, AreWhatFollowsTheTwoDigits) {
    QString thousands = u"t"_s;
    QString decimal = u"d"_s;
    separatorsOf(u"8 001;00"_s, thousands, decimal);
    EXPECT_EQ(thousands, u" "_s);
    EXPECT_EQ(decimal, u";"_s);
    separatorsOf(u"001;00"_s, thousands, decimal);
    EXPECT_EQ(thousands, u" "_s) << "no digit, no change";
    separatorsOf(u"8"_s, thousands, decimal);
    EXPECT_EQ(thousands, QString()) << "nothing follows";
    EXPECT_EQ(decimal, u";"_s);
}

TEST(RecordsetRowsTest, BeginBeforeTheFirstRow) {
    FakeDatabase::Answer answer{{}, {u"a"_s, u"b"_s}, {{u"1"_s, 1.0}, {u"2"_s, 2.0}}};
    RecordsetRows rows(nullptr, quorvane::Recordset(std::make_unique<FakeCursor>(answer)));
    EXPECT_EQ(rows.columnCount(), 2);
    EXPECT_EQ(rows.columnName(1), u"b"_s);
    QStringList seen;
    while (rows.next())
        seen << *rows.value(0).get<QString>();
    EXPECT_EQ(seen, (QStringList{u"1"_s, u"2"_s}));
    EXPECT_FALSE(rows.next());
    RecordsetRows none(nullptr, quorvane::Recordset(std::make_unique<FakeCursor>(FakeDatabase::Answer{})));
    EXPECT_FALSE(none.next());
    EXPECT_FALSE(none.next());
}

TEST(HeaderFormulasTest, AnErrorOtherThanAMissingColumnEndsThem) {
    quorvane::report::Definition definition;
    definition.formulas = {{u"{@CfgOtra}"_s, {}}, {u"{@CfgEmpresa}"_s, {}}, {u"{@CfgMas}"_s, {}}};
    quorvane::report::Report report(definition);
    const quorvane::Recordset row(std::make_unique<DamagedCursor>());
    EXPECT_THROW(fillHeaderFormulas(report, row, {}), RunTimeError);
    EXPECT_EQ(report.definition().formulas[0].text, u"\"\""_s);
    EXPECT_EQ(report.definition().formulas[1].text, QString());
    EXPECT_EQ(report.definition().formulas[2].text, QString());
}
