#include "tests/data/RecordFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

using Audits = std::vector<std::pair<int, QString>>;

class FakeReport final : public CommissionReport {
public:
    explicit FakeReport(int result) : m_result(result) {}
    int CR_Connect(const QString&) override { return m_result; }
    int CR_Disconnect() override { return m_result; }
    int LoadReportsList() override { return m_result; }
    QString ReportsFile(qint16) const override { return {}; }
    qint16 ReportsCount() const override { return 0; }
    int CR_ProcessReport() override { return m_result; }
    quorvane::report::Report* Report() const override { return nullptr; }
    void DetSeparadores(QString&, QString&) const override {}
    int ReadUnboundVariables() override { return m_result; }
    int FormatReport() override { return m_result; }

private:
    int m_result;
};

class RecordInitialize : public RecordTest {
protected:
    void storeCurrencies() {
        database.answer(u"Select codigo, valor2"_s, {u"codigo"_s, u"valor2"_s},
                        {{u"CLP"_s, Decimal(0, 0)}, {u"USD"_s, Decimal(2, 0)}});
    }
    void storeLocalCurrency() { database.answer(u"select a.texto"_s, {u"texto"_s}, {{u"CLP"_s}}); }
    void storeUnits() { database.answer(u"select distinct unidad"_s, {u"unidad"_s}, {{u"CJ"_s}, {u"UN"_s}}); }
    void storeDecimals(const Value& decimals) {
        database.answer(u"Select valor1"_s, {u"valor1"_s}, {{decimals}});
    }
};

} // namespace

TEST_F(RecordInitialize, LoadsTheConfigurationWithItsStatementsInOrder) {
    session.company = u"O'1"_s;
    storeCurrencies();
    storeLocalCurrency();
    EXPECT_TRUE(table.DBInitialize());
    expectCalls({
        u"Select codigo, valor2 from gen_tabcod where empresa = 'O''1' and tipo = 'GEN_MONEDA'"_s,
        u"select a.texto from gen_tabcod a, gen_tabcod b where a.empresa = 'O''1' and a.tipo = "
        u"'CONFIG.EMPRESA' and a.codigo = 'MONEDA' and a.empresa = b.empresa and b.tipo = 'GEN_MONEDA' "
        u"and b.codigo = a.texto"_s,
        u"select distinct unidad from relctacteprod where empresa ='O''1' union select distinct "
        u"producto.unidad from producto where empresa='O''1' order by unidad"_s,
        u"Select valor1 from gen_tabcod where  empresa = 'O''1' and tipo = 'config.dalvora' and codigo "
        u"='DECIMALES.CANTIDAD'"_s,
    });
    EXPECT_EQ(table.SysEmpresa, u"O'1"_s);
    EXPECT_EQ(session.audits, (Audits{{2, u""_s}}));
    expectSilence();
}

TEST_F(RecordInitialize, KeepsCurrenciesUnitsAndDecimals) {
    storeCurrencies();
    storeLocalCurrency();
    storeUnits();
    storeDecimals(Decimal(3, 0));
    ASSERT_TRUE(table.DBInitialize());
    ASSERT_EQ(table.currencies().size(), 2U);
    EXPECT_EQ(table.currencies()[0].code, u"CLP"_s);
    EXPECT_EQ(table.currencies()[0].decimals, 0);
    EXPECT_EQ(table.currencies()[0].format, u"###,##0"_s);
    EXPECT_EQ(table.currencies()[1].code, u"USD"_s);
    EXPECT_EQ(table.currencies()[1].decimals, 2);
    EXPECT_EQ(table.currencies()[1].format, u"###,##0.00"_s) << "from the first format, not the quantities'";
    EXPECT_EQ(table.SysMoneda, u"CLP"_s);
    EXPECT_EQ(table.units(), (QStringList{u"CJ"_s, u"UN"_s}));
    EXPECT_EQ(table.SysDecimales, 3);
    EXPECT_EQ(table.SysFormatNum, u"###,##0.000"_s);
}

TEST_F(RecordInitialize, NoQuantityDecimalsAreSilentlyAccepted) {
    storeCurrencies();
    storeLocalCurrency();
    EXPECT_TRUE(table.DBInitialize());
    EXPECT_EQ(table.SysDecimales, 0);
    EXPECT_EQ(table.SysFormatNum, u"###,##0"_s);
    EXPECT_TRUE(table.units().isEmpty());
    expectSilence();
}

TEST_F(RecordInitialize, ZeroQuantityDecimalsLeaveThePointInTheFormat) {
    storeCurrencies();
    storeLocalCurrency();
    storeDecimals(Decimal(0, 0));
    ASSERT_TRUE(table.DBInitialize());
    EXPECT_EQ(table.SysFormatNum, u"###,##0."_s);
}

TEST_F(RecordInitialize, WithoutCurrenciesBothItemsAreMissing) {
    EXPECT_FALSE(table.DBInitialize());
    expectTold({{u"No existe la siguiente configuración.\n\n"
                 u"- Definición de monedas en parámetros generales.\n"
                 u"- Definición de moneda local en parámetros o en la tabla de monedas.\n"_s,
                 64}});
    EXPECT_EQ(session.audits, (Audits{{2, u""_s}, {3, u""_s}}));
    EXPECT_EQ(database.take().size(), 3U) << "the decimals are not asked for any more";
}

TEST_F(RecordInitialize, AnUnknownLocalCurrencyIsTheOnlyItemMissing) {
    storeCurrencies();
    EXPECT_FALSE(table.DBInitialize());
    expectTold({{u"No existe la siguiente configuración.\n\n"
                 u"- Definición de moneda local en parámetros o en la tabla de monedas.\n"_s,
                 64}});
}

TEST_F(RecordInitialize, LeavesAClearedRecord) {
    storeCurrencies();
    storeLocalCurrency();
    table.SysRecordEnabled = table.SysRecordFound = true;
    ASSERT_TRUE(table.DBInitialize());
    EXPECT_FALSE(table.SysRecordEnabled || table.SysRecordFound);
    EXPECT_EQ(table.DetailsCount(), 0);
}

TEST_F(RecordInitialize, AReportListThatCannotBeLoadedFails) {
    storeCurrencies();
    storeLocalCurrency();
    table.setReport(std::make_unique<FakeReport>(9));
    EXPECT_FALSE(table.DBInitialize());
    table.setReport(std::make_unique<FakeReport>(0));
    EXPECT_TRUE(table.DBInitialize());
    expectSilence();
}

TEST_F(RecordInitialize, CurrenciesAndUnitsAreNotDoubledByASecondCall) {
    storeCurrencies();
    storeLocalCurrency();
    storeUnits();
    ASSERT_TRUE(table.DBInitialize());
    ASSERT_TRUE(table.DBInitialize());
    EXPECT_EQ(table.currencies().size(), 2U);
    EXPECT_EQ(table.units().size(), 2);
}

TEST_F(RecordInitialize, ARunTimeErrorIsToldWithoutABlankBehindTheDash) {
    for (const int statement : {1, 2, 3}) {
        plan.heal();
        plan.atStatement = statement;
        EXPECT_FALSE(table.DBInitialize());
        expectTold({{u"Error al inicializar la aplicación\n61 -Disco lleno"_s, 16}});
    }
}

TEST_F(RecordInitialize, DecimalsBeyond16BitsAreAnError) {
    storeCurrencies();
    storeLocalCurrency();
    storeDecimals(Decimal(32768, 0));
    EXPECT_FALSE(table.DBInitialize());
    expectTold({{u"Error al inicializar la aplicación\n6 -Desbordamiento"_s, 16}});
}

TEST_F(RecordInitialize, ASessionThatCannotAuditIsTold) {
    session.auditError = RunTimeError(61, u"Disco 100%1 lleno"_s);
    EXPECT_FALSE(table.DBInitialize());
    expectTold({{u"Error al inicializar la aplicación\n61 -Disco 100%1 lleno"_s, 16}});
}

TEST_F(RecordInitialize, TerminatingAuditsTheEnd) {
    table.DBTerminate();
    EXPECT_EQ(session.audits, (Audits{{3, u""_s}}));
    session.auditError = RunTimeError(61, u"Disco lleno"_s);
    table.DBTerminate();
    expectTold({{u"Error al terminar la aplicación\n61 - Disco lleno"_s, 16}});
}

TEST_F(RecordInitialize, TheFirstReadIsAuditedWithItsCompany) {
    storeCurrencies();
    storeLocalCurrency();
    ASSERT_TRUE(table.DBInitialize());
    storeHeader();
    table.setTextValue(2, u"C1"_s);
    ASSERT_TRUE(table.DBRead());
    EXPECT_EQ(session.audits.back(), (std::pair<int, QString>{7, u"01:COMISION:C1"_s}));
}
