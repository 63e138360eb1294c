#pragma once

#include "platform/reportengine/engine/Report.h"
#include "reports/processing/ReportProcessing.h"
#include "tests/data/RecordFixture.h"
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

namespace dalvora::test {

/// The text of a definition with the given title and the given parts.
struct DefinitionText {
    QString title = u"COMISIONES"_s;
    QString columns =
        uR"(<column name="vendedor" type="text"/><column name="ComisionMonto" type="number"/>)"_s;
    QStringList formulas = {u"{@CfgEmpresa}"_s, u"{@CfgSubtitulo}"_s};
    QString details =
        uR"(<field name="Field8" column="ComisionMonto" left="30" top="0" width="20" height="5" decimals="2"/>)"_s;

    QString xml() const {
        QString named;
        for (const QString& formula : formulas)
            named += uR"(<formula name="%1" text="sin datos"/>)"_s.arg(formula);
        if (!named.isEmpty())
            named = u"<formulas>"_s + named + u"</formulas>"_s;
        return uR"(<report title="%1"><page width="210" height="297" left="10" top="10" right="10" bottom="10"/>)"
               uR"(<styles><style name="s"/></styles><columns>%2</columns>%3)"
               uR"(<sections><details height="5">%4</details></sections></report>)"_s.arg(title, columns,
                                                                                          named, details);
    }
};

/// Reports of company 01 on made-up databases: one for the record, one for the reports' own connection, where
/// statements are noted as they come. The definitions stand in a folder of their own.
class ReportTest : public RecordTest {
protected:
    ReportTest() {
        table.ProgramName = u"VELTRANO"_s;
        table.SysMoneda = u"USD"_s;
        auto made = std::make_unique<ReportProcessing>(table, session, parts());
        processing = made.get();
        table.setReport(std::move(made));
        QDir().mkpath(definitions());
        database.answer(u"Select codigo, valor2"_s, {u"codigo"_s, u"valor2"_s},
                        {{u"CLP"_s, Decimal(0, 0)}, {u"USD"_s, Decimal(3, 0)}});
        database.answer(u"select a.texto"_s, {u"texto"_s}, {{u"usd"_s}});
    }
    ~ReportTest() override {
        while (QGuiApplication::overrideCursor())
            QGuiApplication::restoreOverrideCursor();
    }

    QString definitions() const { return folder.filePath(u"reportes/VELTRANO"_s); }
    void define(const QString& name, const DefinitionText& text = {}) { write(name + u".rpt"_s, text.xml()); }
    void write(const QString& file, const QString& content) {
        QFile out(definitions() + u'/' + file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly)) << file.toStdString();
        out.write(content.toUtf8());
    }
    /// Loads the configuration, connects the reports and forgets what was asked for it.
    void start() {
        ASSERT_TRUE(table.DBInitialize());
        ASSERT_EQ(table.CR_Connect(u"reports"_s), 0);
        database.take();
        reports.take();
    }
    /// Rows of the report statement.
    void storeRows(const std::vector<Row>& rows = {{u"07"_s, 12.5}, {u"08"_s, 7.25}}) {
        reports.answer(u"tipodocumento td"_s, {u"vendedor"_s, u"ComisionMonto"_s}, rows);
        reports.answer(u"from comisiones c"_s, {u"VENDEDOR"_s, u"comisionMonto"_s}, rows);
    }
    void storeHeader(const Row& row = {u"  Viento Norte \t "_s, u"Periodo"_s}) {
        reports.answer(u"T01.TEXTO"_s, {u"CfgEmpresa"_s, u"CfgSubtitulo"_s}, {row});
    }
    int process(const QString& name) {
        table.reportName = name;
        return table.CR_ProcessReport();
    }
    quorvane::report::Report& report() { return *table.Report(); }
    /// What stands in a formula; `untouched` as the definition has it.
    const QString untouched = u"\"sin datos\""_s;
    QString formula(int number) { return report().definition().formulas.at(number - 1).text; }
    static bool hasHourGlass() {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        return cursor && cursor->shape() == Qt::WaitCursor;
    }

    QTemporaryDir folder;
    FakeDatabase reports;
    FailPlan reportPlan;
    QStringList opened; ///< connect strings that the reports' connection was opened with
    bool openedWithHourGlass = false;
    std::optional<RunTimeError> openError;
    Date today = Date::fromYmd(2026, 3, 5);
    ReportProcessing* processing = nullptr;

private:
    ReportProcessing::Parts parts() {
        return {folder.path(),
                [this] {
                    return std::make_unique<quorvane::Connection>([this](const QString& connectString) {
                        opened << connectString;
                        openedWithHourGlass = hasHourGlass();
                        if (openError)
                            throw *openError;
                        return std::make_unique<FailEngine>(std::make_unique<FakeEngine>(reports),
                                                            reportPlan);
                    });
                },
                [this] { return today; }};
    }
};

} // namespace dalvora::test
