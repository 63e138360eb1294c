// From the chosen definition to the filled report, and everything that can stop it.
#include "tests/reports/ReportFixture.h"

using namespace dalvora;
using namespace dalvora::test;
using quorvane::Kind;

namespace {

class Process : public ReportTest {
protected:
    void SetUp() override { start(); }
    /// A property of an object as text.
    QString property(int section, int object, const char16_t* name) {
        return report().object(section, object).property(name).toText(regional);
    }
    static QString field(const QString& name, const QString& more = u"decimals=\"2\""_s) {
        return uR"(<field name="%1" column="ComisionMonto" left="0" top="0" width="20" height="5" %2/>)"_s
            .arg(name, more);
    }
};

} // namespace

TEST_F(Process, WithoutANameNothingHappens) {
    EXPECT_EQ(process(QString()), 0);
    EXPECT_TRUE(reports.take().empty());
    EXPECT_EQ(table.Report(), nullptr);
    EXPECT_FALSE(hasHourGlass());
    expectSilence();
}

TEST_F(Process, ARunThatGoesWellLeavesTheReportReady) {
    define(u"Vendedor"_s);
    storeRows();
    storeHeader();
    EXPECT_EQ(process(u"Vendedor"_s), 0);
    ASSERT_NE(table.Report(), nullptr);
    EXPECT_TRUE(report().hasData());
    EXPECT_EQ(report().pageCount(), 1);
    EXPECT_EQ(report().layout().rowsFetched(), 2);
    EXPECT_FALSE(hasHourGlass());
    expectSilence();
}

TEST_F(Process, AMissingDefinitionStopsItBeforeTheDatabaseIsAsked) {
    EXPECT_EQ(process(u"Falta"_s), 53);
    EXPECT_TRUE(reports.take().empty());
    EXPECT_EQ(table.Report(), nullptr);
    EXPECT_TRUE(hasHourGlass()) << "the caller sets the pointer back";
    expectSilence();
}

TEST_F(Process, AnExtensionInAnyCaseIsRead) {
    write(u"Mayusculas.RPT"_s, DefinitionText{u"MAYUSCULAS"_s}.xml());
    write(u"minusculas.Rpt"_s, DefinitionText{u"minusculas"_s}.xml());
    storeRows();
    ASSERT_EQ(process(u"Mayusculas"_s), 0);
    EXPECT_EQ(report().title(), u"MAYUSCULAS"_s);
    ASSERT_EQ(process(u"minusculas"_s), 0);
    EXPECT_EQ(report().title(), u"minusculas"_s);
    define(u"Lista"_s, {u"LA DE SIEMPRE"_s});
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(report().title(), u"LA DE SIEMPRE"_s);
}

TEST_F(Process, ADamagedDefinitionStopsItBeforeTheDatabaseIsAsked) {
    write(u"Mala.rpt"_s, u"<report title="_s);
    EXPECT_EQ(process(u"Mala"_s), 321);
    EXPECT_TRUE(reports.take().empty());
    expectSilence();
}

TEST_F(Process, NoRowsAreToldAndLeaveTheEarlierReport) {
    define(u"Vendedor"_s);
    define(u"Lista"_s);
    reports.answer(u"tipodocumento td"_s, {u"vendedor"_s, u"ComisionMonto"_s}, {{u"07"_s, 1.0}});
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    const auto* const before = table.Report();
    table.FechaIniFiltro = Date::fromYmd(2006, 9, 30);
    table.FechaFinFiltro = Date::fromYmd(2006, 7, 1);
    EXPECT_EQ(process(u"Lista"_s), -1);
    expectTold({{u"No existen Comisiones para el código y rango de fechas indicado"_s, 16,
                 u"Quorvane ERP - Dalvora"_s}});
    EXPECT_EQ(table.Report(), before);
    EXPECT_FALSE(hasHourGlass());
}

TEST_F(Process, ANewRunReplacesTheReport) {
    define(u"Vendedor"_s);
    define(u"Lista"_s, {u"LISTA"_s});
    storeRows();
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(report().title(), u"LISTA"_s);
}

TEST_F(Process, WithoutAConnectionTheResultIsItsError) {
    define(u"Lista"_s);
    ASSERT_EQ(table.CR_Disconnect(), 0);
    EXPECT_EQ(process(u"Lista"_s), 91);
    EXPECT_EQ(table.ReadUnboundVariables(), 91);
    expectSilence();
}

TEST_F(Process, AnErrorOfTheDatabaseIsTheResult) {
    define(u"Lista"_s);
    reportPlan.statements = 0;
    reportPlan.atStatement = 1;
    reportPlan.error = RunTimeError(3709, u"Se perdió la conexión"_s);
    EXPECT_EQ(process(u"Lista"_s), 3709);
    reportPlan.heal();
    storeRows();
    EXPECT_EQ(process(u"Lista"_s), 0) << "the next run connects again";
    EXPECT_EQ(opened, (QStringList{u"reports"_s, u"reports"_s}));
    expectSilence();
}

TEST_F(Process, AConnectionLostAmongTheRowsNeverLooksLikeAWholeReport) {
    define(u"Lista"_s);
    storeRows({{u"07"_s, 1.0}, {u"07"_s, 2.0}, {u"08"_s, 3.0}});
    reportPlan.statements = 0;
    reportPlan.atStatement = 1;
    reportPlan.atRow = 3;
    reportPlan.error = RunTimeError(3709, u"Se perdió la conexión"_s);
    ASSERT_EQ(process(u"Lista"_s), 0);
    for (int attempt = 0; attempt < 2; ++attempt) {
        try {
            report().pageCount();
            FAIL() << "laid out from two of three rows";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), 3709);
        }
    }
}

TEST_F(Process, RowsWithoutAColumnOfTheDefinitionAreAnError) {
    define(u"Lista"_s, {u"L"_s, u"<column name=\"NoHay\" type=\"text\"/><column name=\"ComisionMonto\" "
                                u"type=\"number\"/>"_s});
    storeRows();
    EXPECT_EQ(process(u"Lista"_s), 3265);
    EXPECT_FALSE(report().hasData());
}

TEST_F(Process, NullsArriveAsNulls) {
    define(u"Lista"_s);
    storeRows({{Value::Null{}, Value::Null{}}, {u"07"_s, 2.0}});
    ASSERT_EQ(process(u"Lista"_s), 0);
    ASSERT_EQ(report().pageCount(), 1);
    EXPECT_TRUE(report().layout().row(0).at(0).isNull());
    EXPECT_TRUE(report().layout().row(0).at(1).isNull());
}

TEST_F(Process, OnlyTheAmountTakesTheDecimalsOfTheCurrencyAndTheRegionalSeparators) {
    for (const char16_t* amount : {u"Field8", u"fiELD8"}) {
        define(
            u"Lista"_s,
            {u"L"_s, DefinitionText().columns, {}, field(QString::fromUtf16(amount)) + field(u"Field80"_s)});
        storeRows();
        ASSERT_EQ(process(u"Lista"_s), 0);
        EXPECT_EQ(property(1, 1, u"DecimalPlaces"), u"3"_s);
        EXPECT_EQ(property(1, 1, u"ThousandSymbol"), u"."_s);
        EXPECT_EQ(property(1, 1, u"DecimalSymbol"), u","_s);
        EXPECT_EQ(property(1, 2, u"DecimalPlaces"), u"2"_s);
        EXPECT_EQ(property(1, 2, u"ThousandSymbol"), QString());
    }
}

TEST_F(Process, AnAmountWithoutDecimalsOfItsOwnStaysInTheGeneralForm) {
    define(u"Lista"_s, {u"L"_s, DefinitionText().columns, {}, field(u"Field8"_s, QString())});
    storeRows();
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(property(1, 1, u"DecimalPlaces"), u"-1"_s);
}

TEST_F(Process, AnAmountThatIsNoFieldIsLeftAlone) {
    define(u"Lista"_s, {u"L"_s,
                        DefinitionText().columns,
                        {},
                        uR"(<text name="Field8" text="x" left="0" top="0" width="20" height="5"/>)"_s});
    storeRows();
    EXPECT_EQ(process(u"Lista"_s), 0);
}

TEST_F(Process, TheCurrencyIsFoundInAnyCase) {
    table.SysMoneda = u"clp"_s;
    define(u"Lista"_s);
    storeRows();
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(property(1, 1, u"DecimalPlaces"), u"0"_s);
}

TEST_F(Process, ACurrencyThatIsNotInTheTableIsTheRangeError) {
    table.SysMoneda = u"EUR"_s;
    define(u"Lista"_s, {u"NUEVA"_s});
    storeRows();
    storeHeader();
    EXPECT_EQ(process(u"Lista"_s), 9);
    ASSERT_NE(table.Report(), nullptr);
    EXPECT_EQ(report().title(), u"NUEVA"_s) << "the report was replaced before";
    EXPECT_EQ(formula(1), untouched) << "its heading was not reached";
    EXPECT_TRUE(hasHourGlass());
    expectSilence();
}

TEST_F(Process, AHeadingThatFailsIsToldAndTheReportGoesOn) {
    define(u"Lista"_s);
    storeRows();
    reportPlan.statements = 0;
    reportPlan.atStatement = 2;
    EXPECT_EQ(process(u"Lista"_s), 0);
    expectTold({{u"Error al leer variables UnBound (61)"_s, 0}});
    EXPECT_EQ(report().pageCount(), 1);
    EXPECT_FALSE(hasHourGlass());
}

TEST_F(Process, FormulasTakeTheirColumnsWithoutOuterBlanks) {
    define(u"Lista"_s,
           {u"L"_s,
            DefinitionText().columns,
            {u"{@CfgEmpresa}"_s, u"{@CFGsubtitulo}"_s, u"{@UbsNueva}"_s, u"{@Otra}"_s, u"{@MiCfg}"_s}});
    storeRows();
    storeHeader();
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(formula(1), u"\"Viento Norte \t\""_s);
    EXPECT_EQ(formula(2), u"\"Periodo\""_s);
    EXPECT_EQ(formula(3), u"\"\""_s) << "a column that is not there";
    EXPECT_EQ(formula(4), untouched) << "no formula of the heading";
    EXPECT_EQ(formula(5), untouched);
    expectSilence();
}

TEST_F(Process, FormulasShowQuotesAsTheyAreAndNullsAsNothing) {
    define(u"Lista"_s);
    storeRows();
    storeHeader({u"Bar \"El Sol\""_s, Value::Null{}});
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(formula(1), u"\"Bar \"El Sol\"\""_s);
    EXPECT_EQ(formula(2), u"\"\""_s);
}

TEST_F(Process, AnIncompleteCompanyLeavesTheFormulas) {
    define(u"Lista"_s);
    storeRows();
    EXPECT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(formula(1), untouched);
    expectSilence();
}

TEST_F(Process, TheFormattingHookChangesNothing) {
    define(u"Lista"_s);
    storeRows();
    ASSERT_EQ(process(u"Lista"_s), 0);
    const auto formats = [this] {
        QStringList all{formula(1), formula(2)};
        for (const char16_t* name : {u"Name", u"DecimalPlaces", u"ThousandSymbol", u"DecimalSymbol"})
            all << property(1, 1, name);
        return all;
    };
    const QStringList before = formats();
    reports.take();
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    EXPECT_EQ(table.FormatReport(), 0);
    EXPECT_FALSE(hasHourGlass());
    EXPECT_EQ(formats(), before);
    EXPECT_TRUE(reports.take().empty());
    expectSilence();
}

TEST_F(Process, ReadingTheHeadingWithoutAReportIsAnErrorOnlyWhenThereIsSomethingToRead) {
    EXPECT_EQ(table.ReadUnboundVariables(), 0);
    storeHeader();
    EXPECT_EQ(table.ReadUnboundVariables(), 91);
    EXPECT_TRUE(hasHourGlass());
}

TEST_F(Process, NamesOf300CharactersAreOnlyTexts) {
    const QString longName = QString(300, u'ñ');
    define(u"Lista"_s);
    storeRows({{longName, 1.0}});
    storeHeader({longName, longName});
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(formula(1), u'"' + longName + u'"');
    report().pageCount();
    EXPECT_EQ(*report().layout().row(0).at(0).get<QString>(), longName);
    EXPECT_EQ(process(longName), 53) << "no file can be called so";
}
