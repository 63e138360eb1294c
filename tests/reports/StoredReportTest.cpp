// The real statements over the demonstration companies on each engine.
#include "demo/Database.h"
#include "reports/processing/ReportStatements.h"
#include "tests/reports/ReportFixture.h"
#include "tests/support/MadeBy.h"
#include "tests/support/TestDatabase.h"
#include <QMap>
#include <cmath>
#include <map>

using namespace dalvora;
using namespace dalvora::test;
using quorvane::Recordset;

namespace {

/// The record at work on the demonstration database; the definitions of the tests are a plain list of every
/// column that the statements give.
class StoredReport : public testing::TestWithParam<TestEngine> {
protected:
    static void TearDownTestSuite() { shared.clear(); }
    /// One demonstration database of each engine, since the tests only read it.
    static const TestDatabase& demonstration() {
        std::unique_ptr<TestDatabase>& database = shared[GetParam()];
        if (!database) {
            database = std::make_unique<TestDatabase>(GetParam());
            quorvane::Connection loading;
            loading.open(database->connectString());
            demo::loadDemonstration(loading);
        }
        return *database;
    }

    void SetUp() override {
        session.company = u"001"_s;
        session.user = u"demo"_s;
        connection.open(demonstration().connectString());
        table.ProgramName = u"VELTRANO"_s;
        table.setReport(
            std::make_unique<ReportProcessing>(table, session, ReportProcessing::Parts{folder.path()}));
        QDir().mkpath(folder.filePath(u"reportes/VELTRANO"_s));
        define(u"Vendedor"_s,
               {u"vendedor"_s, u"TipoDocto"_s, u"numero"_s, u"RazonSocial"_s, u"CodLegal"_s, u"idctacte"_s},
               {u"Correlativo"_s, u"ComisionMonto"_s, u"ComisionCantidad"_s, u"ComisionlPrecio"_s, u"total"_s,
                u"neto"_s},
               {u"Fecha"_s});
        define(u"Lista"_s,
               {u"codigo"_s, u"descripcion"_s, u"acumulable"_s, u"tipo"_s, u"DescripcionDetalle"_s,
                u"concepto"_s, u"subtipo"_s, u"calculo"_s},
               {u"porcentaje"_s, u"cantidadInicio"_s, u"cantidadfinal"_s},
               {u"fechaInicio"_s, u"fechafinal"_s});
        initialize();
    }
    void initialize() {
        ASSERT_TRUE(table.DBInitialize());
        ASSERT_EQ(table.CR_Connect(connection.connectString()), 0);
    }
    void define(const QString& name, const QStringList& texts, const QStringList& numbers,
                const QStringList& dates) {
        DefinitionText text;
        text.columns.clear();
        names[name] = texts + numbers + dates;
        const auto add = [&text](const QStringList& columns, const char16_t* type) {
            for (const QString& column : columns)
                text.columns += u"<column name=\"%1\" type=\"%2\"/>"_s.arg(column, QString::fromUtf16(type));
        };
        add(texts, u"text");
        add(numbers, u"number");
        add(dates, u"date");
        text.formulas.clear();
        for (const char* column :
             {"CfgEmpresa", "CfgDireccion", "CfgComuna", "CfgCiudad", "CfgTelefono", "CfgCodigoLegal",
              "CfgGiro", "CfgRutRepLegal", "CfgRepLegal", "CfgUsuario", "CfgSubtitulo", "CfgNueva"})
            text.formulas << u"{@"_s + QLatin1String(column) + u'}';
        text.details.replace(u"ComisionMonto"_s, numbers.first());
        QFile out(folder.filePath(u"reportes/VELTRANO/"_s + name + u".rpt"_s));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(text.xml().toUtf8());
    }

    int process(const QString& name) {
        table.reportName = name;
        const int result = table.CR_ProcessReport();
        if (result == 0)
            table.Report()->pageCount();
        return result;
    }
    /// The names of the reports that come with the program, now to be had by the record.
    QStringList ownReports() {
        const QDir own(QStringLiteral(DALVORA_REPORTES));
        QStringList reports;
        for (const QString& file : own.entryList({u"*.rpt"_s})) {
            EXPECT_TRUE(QFile::copy(own.filePath(file), folder.filePath(u"reportes/VELTRANO/"_s + file)));
            reports << file.chopped(4);
        }
        EXPECT_EQ(reports.size(), 4);
        return reports;
    }
    qint64 rowCount() { return table.Report()->layout().rowsFetched(); }
    Value value(qint64 row, const QString& column) {
        return table.Report()->layout().row(row).at(names[table.reportName].indexOf(column));
    }
    QString text(qint64 row, const QString& column) { return value(row, column).toText(regional); }
    double number(qint64 row, const QString& column) { return value(row, column).toNumber(regional); }
    QString formula(const QString& name) {
        for (const auto& formula : table.Report()->definition().formulas)
            if (formula.name == u"{@"_s + name + u'}')
                return formula.text;
        return {};
    }
    /// Decimals and separators of the objects that hold amounts.
    QStringList amountFormats() {
        QStringList formats;
        for (const auto& section : table.Report()->definition().sections)
            for (const auto& object : section.objects)
                if (object.name.compare(u"Field8", Qt::CaseInsensitive) == 0)
                    formats << QString::number(object.format.decimals) + object.format.thousands +
                                   object.format.decimal;
        return formats;
    }
    /// Rows of a query written for this engine alone, values joined by "|".
    QStringList asked(const QString& select) {
        QStringList found;
        for (Recordset row = connection.openRecordset(select); !row.eof(); row.moveNext()) {
            QStringList values;
            for (int i = 0; i < row.fieldCount(); ++i)
                values << row.value(i).toText(regional);
            found << values.join(u'|');
        }
        return found;
    }
    /// The three sums and the number of documents of each salesperson in the report, in cents.
    QStringList totals() {
        struct Total {
            double sums[3] = {};
            int documents = 0;
        };
        QMap<QString, Total> all;
        for (qint64 row = 0; row < rowCount(); ++row) {
            Total& total = all[text(row, u"vendedor"_s)];
            ++total.documents;
            int i = 0;
            for (const QString& column : {u"ComisionMonto"_s, u"ComisionCantidad"_s, u"ComisionlPrecio"_s})
                total.sums[i++] += number(row, column);
        }
        QStringList lines;
        for (auto it = all.cbegin(); it != all.cend(); ++it) {
            lines << it.key() + u'|' + QString::number(it->documents);
            for (const double sum : it->sums)
                lines.last() += u'|' + QString::number(std::llround(sum * 100));
        }
        return lines;
    }
    /// The same as a query of its own adds it up.
    QStringList askedTotals(const QString& condition = u"1 = 1"_s) {
        const auto sum = [](const QString& column) {
            return u"cast(round(100 * sum(case when t.Clase like 'ncr%' then -1 else 1 end * "
                   u"coalesce(d.%1, 0))) as integer)"_s.arg(column);
        };
        return asked(
            u"select d.Vendedor, count(*), %1, %2, %3 from documento d join tipodocumento t on t.Empresa "
            u"= d.Empresa and t.TipoDocto = d.TipoDocto where d.Empresa = '%4' and d.Emitido = 'S' and "
            u"d.Vigencia <> 'A' and d.Vendedor <> '' and t.FactorMonto <> 0 and %5 group by d.Vendedor "
            u"order by d.Vendedor"_s.arg(sum(u"ComisionMonto"_s), sum(u"ComisionCantidad"_s),
                                         sum(u"ComisionlPrecio"_s), session.company, condition));
    }

    static inline std::map<TestEngine, std::unique_ptr<TestDatabase>> shared;
    QTemporaryDir folder;
    QMap<QString, QStringList> names;
    MessageRecorder recorder;
    FakeSession session;
    quorvane::RegionalSettings regional;
    quorvane::Connection connection;
    DBTable table{connection, session, regional};
};

} // namespace

TEST_P(StoredReport, TotalsOfEverySalespersonAreThoseOfTheDocuments) {
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    EXPECT_EQ(rowCount(), 854);
    const QStringList found = totals();
    EXPECT_EQ(found.size(), 9);
    EXPECT_EQ(found, askedTotals());
}

TEST_P(StoredReport, APeriodHoldsBothItsDays) {
    table.FechaIniFiltro = Date::fromYmd(1997, 7, 1);
    table.FechaFinFiltro = Date::fromYmd(1997, 9, 30);
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    EXPECT_EQ(totals(), askedTotals(u"d.Fecha between '1997-07-01' and '1997-09-30'"_s));
    EXPECT_EQ(formula(u"CfgSubtitulo"_s), u"\"Periodo desde 01/07/1997 hasta 30/09/1997\""_s);
    Date first = Date::fromYmd(2000, 1, 1);
    Date last;
    for (qint64 row = 0; row < rowCount(); ++row) {
        const Date day = *value(row, u"Fecha"_s).get<Date>();
        first = std::min(first, day);
        last = std::max(last, day);
    }
    EXPECT_EQ(first, Date::fromYmd(1997, 7, 1));
    EXPECT_EQ(last, Date::fromYmd(1997, 9, 30));
}

TEST_P(StoredReport, OneEndOfThePeriodCanBeOpen) {
    table.FechaFinFiltro = Date::fromYmd(1996, 12, 31);
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    EXPECT_EQ(totals(), askedTotals(u"d.Fecha <= '1996-12-31'"_s));
    table.FechaFinFiltro = {};
    table.FechaIniFiltro = Date::fromYmd(1998, 1, 1);
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    EXPECT_EQ(totals(), askedTotals(u"d.Fecha >= '1998-01-01'"_s));
}

TEST_P(StoredReport, CreditNotesCountNegativeInAllThreeColumns) {
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    const QStringList stored = asked(
        u"select TipoDocto, Numero, Vendedor, coalesce(ComisionMonto, 0), coalesce(ComisionCantidad, 0), "
        u"coalesce(ComisionlPrecio, 0) from documento where Empresa = '001' and TipoDocto = 'NCREDITO' "
        u"order by Numero"_s);
    QStringList reported;
    bool anyMoney = false;
    for (qint64 row = 0; row < rowCount(); ++row) {
        if (text(row, u"TipoDocto"_s) != u"NCREDITO")
            continue;
        QStringList values{text(row, u"TipoDocto"_s), text(row, u"numero"_s), text(row, u"vendedor"_s)};
        for (const QString& column : {u"ComisionMonto"_s, u"ComisionCantidad"_s, u"ComisionlPrecio"_s}) {
            EXPECT_LE(number(row, column), 0);
            anyMoney = anyMoney || number(row, column) < 0;
            values << regional.numberText(-number(row, column));
        }
        reported << values.join(u'|');
    }
    reported.sort();
    QStringList expected = stored;
    expected.sort();
    EXPECT_EQ(reported.size(), 24);
    EXPECT_EQ(reported, expected);
    EXPECT_TRUE(anyMoney);
}

TEST_P(StoredReport, UnissuedAndVoidedDocumentsAreLeftOut) {
    session.company = u"002"_s;
    initialize();
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(totals(), askedTotals());
    EXPECT_EQ(formula(u"CfgEmpresa"_s), u"\"Bebidas del Sur Ltda.\""_s);
}

TEST_P(StoredReport, CustomersComeWithTheirNames) {
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    for (qint64 row = 0; row < 20; ++row)
        EXPECT_EQ(
            QStringList{text(row, u"RazonSocial"_s)},
            asked(u"select RazonSocial from ctacte where Empresa = '001' and TipoCtaCte = 'CLIENTE' and "
                  u"CtaCte = '%1'"_s.arg(text(row, u"idctacte"_s))));
}

TEST_P(StoredReport, TheHeadingIsThatOfTheCompany) {
    table.FechaFinFiltro = Date::fromYmd(1997, 9, 30);
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    const std::pair<const char*, const char*> data[] = {
        {"CfgEmpresa", "RAZON"}, {"CfgDireccion", "DIRECCION"},     {"CfgComuna", "COMUNA"},
        {"CfgCiudad", "CIUDAD"}, {"CfgTelefono", "FONO"},           {"CfgCodigoLegal", "CODLEGAL"},
        {"CfgGiro", "GIRO"},     {"CfgRutRepLegal", "CODLEGALREP"}, {"CfgRepLegal", "REPLEGAL"}};
    for (const auto& [column, code] : data) {
        const QStringList stored = asked(u"select Texto from gen_tabcod where Empresa = '001' and Tipo = "
                                         u"'CONFIG.EMPRESA' and Codigo = '%1'"_s.arg(QLatin1String(code)));
        ASSERT_EQ(stored.size(), 1) << code;
        EXPECT_FALSE(stored.first().isEmpty()) << code;
        EXPECT_EQ(formula(QLatin1String(column)), u'"' + stored.first() + u'"');
    }
    EXPECT_EQ(formula(u"CfgUsuario"_s), u"\"demo\""_s);
    EXPECT_EQ(formula(u"CfgSubtitulo"_s), u"\"Periodo desde 01/01/1900 hasta 30/09/1997\""_s)
        << "dates in a text stay as they are written";
    EXPECT_EQ(formula(u"CfgNueva"_s), u"\"\""_s);
    EXPECT_EQ(recorder.take(), std::vector<Message>());
}

TEST_P(StoredReport, AUserNameWithAQuoteCostsTheHeadingOnly) {
    session.user = u"o'higgins"_s;
    ASSERT_EQ(process(u"Vendedor"_s), 0);
    const auto told = recorder.take();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told.front().text.startsWith(u"Error al leer variables UnBound ("_s));
    EXPECT_EQ(rowCount(), 854);
}

TEST_P(StoredReport, SchemesComeInOrderWithTheirLines) {
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(
        QStringList{QString::number(rowCount())},
        asked(u"select count(*) from Comisiones c left join ComisionesD cd on c.Empresa = cd.Empresa and "
              u"c.Codigo = cd.Codigo and c.FechaInicio = cd.FechaInicio and c.FechaFinal = cd.FechaFinal "
              u"where c.Empresa = '001'"_s));
    QStringList keys;
    for (qint64 row = 0; row < rowCount(); ++row)
        keys << text(row, u"codigo"_s) + u'|' +
                    QString::number(value(row, u"fechaInicio"_s).toNumber(regional)) + u'|' +
                    text(row, u"tipo"_s);
    QStringList sorted = keys;
    std::ranges::stable_sort(
        sorted, [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    EXPECT_EQ(keys, sorted);
    EXPECT_FALSE(text(0, u"DescripcionDetalle"_s).isEmpty() && text(0, u"concepto"_s).isEmpty());
}

TEST_P(StoredReport, SchemesOverlapThePeriodAndHaveTheCode) {
    table.FechaIniFiltro = Date::fromYmd(1999, 3, 31);
    ASSERT_EQ(process(u"Lista"_s), 0);
    for (qint64 row = 0; row < rowCount(); ++row)
        EXPECT_EQ(text(row, u"codigo"_s), u"CAMPAÑA"_s);
    table.FechaIniFiltro = Date::fromYmd(1999, 4, 1);
    EXPECT_EQ(process(u"Lista"_s), -1) << "the day after the last one";
    table.FechaIniFiltro = Date::fromYmd(1996, 1, 1);
    table.FechaFinFiltro = Date::fromYmd(1996, 12, 31);
    table.FiltroCodComisiones = u"general"_s;
    ASSERT_EQ(process(u"Lista"_s), 0);
    for (qint64 row = 0; row < rowCount(); ++row) {
        EXPECT_EQ(text(row, u"codigo"_s), u"GENERAL"_s);
        EXPECT_EQ(text(row, u"fechaInicio"_s).right(4), u"1996"_s);
    }
}

TEST_P(StoredReport, APeriodTurnedAroundHasNoDocuments) {
    table.FechaIniFiltro = Date::fromYmd(1997, 9, 30);
    table.FechaFinFiltro = Date::fromYmd(1997, 7, 1);
    EXPECT_EQ(process(u"Vendedor"_s), -1);
    EXPECT_EQ(
        recorder.take(),
        (std::vector<Message>{{u"No existen Comisiones para el código y rango de fechas indicado"_s, 16}}));
}

TEST_P(StoredReport, APeriodTurnedAroundHasTheSchemesThatHoldBothItsDays) {
    table.FechaIniFiltro = Date::fromYmd(1998, 1, 1);
    table.FechaFinFiltro = Date::fromYmd(1997, 12, 31);
    ASSERT_EQ(process(u"Lista"_s), 0);
    EXPECT_EQ(
        QStringList{QString::number(rowCount())},
        asked(u"select count(*) from Comisiones c left join ComisionesD cd on c.Empresa = cd.Empresa and "
              u"c.Codigo = cd.Codigo and c.FechaInicio = cd.FechaInicio and c.FechaFinal = cd.FechaFinal "
              u"where c.Empresa = '001' and c.FechaInicio <= '1997-12-31' and c.FechaFinal >= "
              u"'1998-01-01'"_s));
}

TEST_P(StoredReport, TheProgramsOwnReportsAreMadeAsTheyAre) {
    for (const QString& name : ownReports()) {
        ASSERT_EQ(process(name), 0) << name.toStdString();
        EXPECT_EQ(recorder.take(), std::vector<Message>()) << name.toStdString();
        EXPECT_GT(table.Report()->pageCount(), 0);
        EXPECT_EQ(formula(u"CfgEmpresa"_s), u"\"Comercial Viento Norte S.A.\""_s);
        EXPECT_TRUE(formula(u"CfgSubtitulo"_s).startsWith(u"\"Periodo desde 01/01/1900 hasta "_s));
        if (!name.contains(u"Vendedor"_s))
            continue;
        EXPECT_EQ(rowCount(), 854) << name.toStdString();
        EXPECT_EQ(amountFormats(), QStringList{u"2.,"_s}) << name.toStdString();
    }
}

TEST_P(StoredReport, TheProgramsOwnReportsReadTheSameOnEveryEngine) {
#ifdef Q_OS_WIN
    GTEST_SKIP() << "this system has one engine here, and nothing that reads a PDF file";
#endif
    static QMap<QString, QByteArray> onTheFirstEngine;
    table.FechaIniFiltro = Date::fromYmd(1997, 7, 1);
    table.FechaFinFiltro = Date::fromYmd(1997, 9, 30);
    for (const QString& name : ownReports()) {
        ASSERT_EQ(process(name), 0) << name.toStdString();
        const QString pdf = folder.filePath(name + u".pdf"_s);
        table.Report()->selectPrinter(u"PDF"_s, {}, pdf);
        table.Report()->printOut(false, 1, 1, table.Report()->pageCount());
        const QByteArray text = quorvane::test::madeBy(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s});
        ASSERT_GT(text.size(), 500) << name.toStdString();
        if (!onTheFirstEngine.contains(name))
            onTheFirstEngine[name] = text;
        EXPECT_EQ(text, onTheFirstEngine[name]) << name.toStdString();
    }
}

TEST_P(StoredReport, RowsBeingFetchedDoNotKeepTheRecordFromWriting) {
    table.reportName = u"Vendedor"_s;
    ASSERT_EQ(table.CR_ProcessReport(), 0);
    connection.beginTrans();
    EXPECT_EQ(connection.execute(u"update documento set Neto = Neto where Empresa = '001'"_s), 854);
    connection.commitTrans();
    table.Report()->pageCount();
    EXPECT_EQ(rowCount(), 854);
}

TEST_P(StoredReport, RowsBeingFetchedOutliveTheReportsConnection) {
    table.reportName = u"Vendedor"_s;
    ASSERT_EQ(table.CR_ProcessReport(), 0);
    ASSERT_EQ(table.CR_Disconnect(), 0);
    table.Report()->pageCount();
    EXPECT_EQ(rowCount(), 854);
    EXPECT_EQ(totals(), askedTotals());
}

INSTANTIATE_TEST_SUITE_P(Engines, StoredReport, testing::ValuesIn(allEngines), engineName);
