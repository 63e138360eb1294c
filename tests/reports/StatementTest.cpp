// The statements of reports, character by character, at the reports' connection.
#include "tests/reports/ReportFixture.h"

using namespace dalvora;
using namespace dalvora::test;

namespace {

const QString documents =
    u"Select d.vendedor,d.TipoDocto,d.Correlativo,d.numero, (case when td.clase like 'ncr%' then coalesce(d.ComisionMonto,0)    * -1 else coalesce(d.ComisionMonto,0)    end) as ComisionMonto, (case when td.clase like 'ncr%' then coalesce(d.ComisionCantidad,0) * -1 else coalesce(d.ComisionCantidad,0) end) as ComisionCantidad, (case when td.clase like 'ncr%' then coalesce(d.ComisionlPrecio,0)  * -1 else coalesce(d.ComisionlPrecio,0) end) as ComisionlPrecio , d.idctacte, isnull(cta.RazonSocial, '' ) RazonSocial,  isnull(cta.codLegal, '') CodLegal, d.Fecha, d.total,d.neto  from tipodocumento td, documento d LEFT JOIN ctacte cta ON   d.empresa = cta.empresa And d.tipoctacte = cta.tipoctacte AND d.idctacte = cta.ctacte where d.empresa =  '01' AND td.factormonto <> 0 AND emitido='S'  and d.vendedor <> '' and td.empresa = d.empresa and d.tipodocto = td.tipodocto and d.vigencia <> 'a' "_s;

const QString schemes =
    u"select c.codigo, c.descripcion, c.fechaInicio, c.fechafinal, c.acumulable, cd.tipo,  cd.descripcion as  'DescripcionDetalle', cd.concepto,cd.porcentaje, cd.cantidadInicio,  cd.cantidadfinal, cd.subtipo, cd.calculo  from comisiones c left join comisionesd cd on  c.empresa = cd.empresa and c.codigo = cd.codigo and c.fechaInicio = cd.fechainicio and c.fechafinal = cd.fechafinal  where c.Empresa = '01' "_s;

const QString schemesOrder = u" order by c.codigo, c.FechaInicio, c.FechaFinal, cd.tipo "_s;

class Statement : public ReportTest {
protected:
    Statement() {
        define(u"ComisionesVendedor"_s);
        define(u"RESUMENVENDEDOR"_s);
        define(u"ListaCodigos"_s);
    }
    void SetUp() override { start(); }

    /// The one statement that a report without rows sends.
    void expectRows(const QString& name, const QString& statement) {
        EXPECT_EQ(process(name), -1);
        EXPECT_EQ(reports.take(), std::vector<QString>{statement});
        recorder.take();
    }
    /// The statement of the heading.
    QString header() {
        EXPECT_EQ(table.ReadUnboundVariables(), 0);
        const auto sent = reports.take();
        EXPECT_EQ(sent.size(), 1U);
        return sent.empty() ? QString() : sent.front();
    }
    static QString headerOf(const QString& user, const QString& subtitle, const QString& company) {
        QString sql =
            u"Select T01.TEXTO  CfgEmpresa,T02.TEXTO as CfgDireccion,T03.TEXTO as CfgComuna,T04.TEXTO as CfgCiudad,T05.TEXTO CfgTelefono,T06.TEXTO CfgCodigoLegal,T07.TEXTO CfgGiro,T08.TEXTO CfgRutRepLegal,T09.TEXTO CfgRepLegal,'"_s +
            user + u"' CfgUsuario,'"_s + subtitle + u"' CfgSubtitulo FROM "_s;
        const char* const codes[] = {"RAZON",    "DIRECCION", "COMUNA",      "CIUDAD",  "FONO",
                                     "CODLEGAL", "GIRO",      "CODLEGALREP", "REPLEGAL"};
        for (int i = 0; i < 9; ++i)
            sql += u"(SELECT TEXTO FROM GEN_TABCOD WHERE EMPRESA = '"_s + company +
                   u"' AND TIPO='CONFIG.EMPRESA' AND CODIGO='"_s + QLatin1String(codes[i]) + u"') T0"_s +
                   QString::number(i + 1) + (i < 8 ? u","_s : QString());
        return sql;
    }
};

} // namespace

TEST_F(Statement, DocumentsOfAllTimesHaveNoDateConditions) {
    expectRows(u"ComisionesVendedor"_s, documents);
}

TEST_F(Statement, DocumentsAreLimitedByEachEndOfThePeriod) {
    table.FechaIniFiltro = Date::fromYmd(2006, 7, 1);
    expectRows(u"ComisionesVendedor"_s, documents + u" and fecha >= '01/07/2006'"_s);
    table.FechaFinFiltro = Date::fromYmd(2006, 9, 30);
    expectRows(u"ComisionesVendedor"_s,
               documents + u" and fecha >= '01/07/2006' and fecha <= '30/09/2006'"_s);
    table.FechaIniFiltro = {};
    expectRows(u"ComisionesVendedor"_s, documents + u" and fecha <= '30/09/2006'"_s);
}

TEST_F(Statement, TheNameOfTheReportChoosesTheDocumentsInAnyCaseAndPlace) {
    expectRows(u"RESUMENVENDEDOR"_s, documents);
    define(u"mivendedornuevo"_s);
    expectRows(u"mivendedornuevo"_s, documents);
}

TEST_F(Statement, TheCodeFilterDoesNotTouchTheDocuments) {
    table.FiltroCodComisiones = u"C1"_s;
    expectRows(u"ComisionesVendedor"_s, documents);
}

TEST_F(Statement, SchemesAreListedInOrder) {
    expectRows(u"ListaCodigos"_s, schemes + schemesOrder);
}

TEST_F(Statement, SchemesWhoseValidityOverlapsThePeriodAreListed) {
    table.FechaIniFiltro = Date::fromYmd(2006, 7, 1);
    expectRows(u"ListaCodigos"_s, schemes + u" and c.fechaFinal >= '01/07/2006'"_s + schemesOrder);
    table.FechaFinFiltro = Date::fromYmd(2006, 9, 30);
    expectRows(u"ListaCodigos"_s,
               schemes + u" and c.fechaInicio <= '30/09/2006'  and c.fechaFinal >= '01/07/2006'"_s +
                   schemesOrder);
    table.FiltroCodComisiones = u"C1"_s;
    expectRows(u"ListaCodigos"_s, schemes +
                                      u" and c.fechaInicio <= '30/09/2006'  and c.fechaFinal >= "
                                      u"'01/07/2006' and c.codigo = 'C1'"_s +
                                      schemesOrder);
    table.FechaIniFiltro = table.FechaFinFiltro = {};
    expectRows(u"ListaCodigos"_s, schemes + u" and c.codigo = 'C1'"_s + schemesOrder);
}

TEST_F(Statement, QuotesInCodeAndCompanyAreDoubled) {
    session.company = u"O'1"_s;
    table.FiltroCodComisiones = u" d'x "_s;
    QString expected = schemes + u" and c.codigo = ' d''x '"_s + schemesOrder;
    expectRows(u"ListaCodigos"_s, expected.replace(u"'01'"_s, u"'O''1'"_s));
}

TEST_F(Statement, TheHeadingNamesThePeriod) {
    const QString from = u"01/07/2006"_s;
    table.FechaIniFiltro = Date::fromYmd(2006, 7, 1);
    table.FechaFinFiltro = Date::fromYmd(2006, 9, 30);
    EXPECT_EQ(header(), headerOf(u"ana"_s, u"Periodo desde 01/07/2006 hasta 30/09/2006"_s, u"01"_s));
    table.FechaIniFiltro = {};
    EXPECT_EQ(header(), headerOf(u"ana"_s, u"Periodo desde 01/01/1900 hasta 30/09/2006"_s, u"01"_s));
    table.FechaFinFiltro = {};
    EXPECT_EQ(header(), headerOf(u"ana"_s, u"Periodo desde 01/01/1900 hasta 05/03/2026"_s, u"01"_s));
    table.FechaIniFiltro = Date::fromYmd(2006, 7, 1);
    EXPECT_EQ(header(), headerOf(u"ana"_s, u"Periodo desde 01/07/2006 hasta 05/03/2026"_s, u"01"_s));
}

TEST_F(Statement, TheHeadingTakesCompanyAndUserAsTheyAre) {
    session.company = u"O'1"_s;
    session.user = u"d'artagnan"_s;
    EXPECT_EQ(header(), headerOf(u"d'artagnan"_s, u"Periodo desde 01/01/1900 hasta 05/03/2026"_s, u"O'1"_s));
}

TEST_F(Statement, AReportSendsItsRowsAndThenItsHeading) {
    storeRows();
    EXPECT_EQ(process(u"ComisionesVendedor"_s), 0);
    EXPECT_EQ(reports.take(),
              (std::vector<QString>{
                  documents, headerOf(u"ana"_s, u"Periodo desde 01/01/1900 hasta 05/03/2026"_s, u"01"_s)}));
    EXPECT_TRUE(database.take().empty()) << "the record's own connection has no part in it";
}
