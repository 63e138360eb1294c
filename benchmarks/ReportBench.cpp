#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Harness.h"
#include "benchmarks/SalesReport.h"
#include <QCoreApplication>
#include <QMap>
#include <QProcess>
#include <benchmark/benchmark.h>
#include <limits>
#include <stdexcept>

namespace bench {

namespace {

constexpr double sortedGoal = 1.3;
constexpr double orderedGoal = 1.5;
constexpr double flatGoal = 1.3;
constexpr double longestPieceGoal = 100; // ms
constexpr double memoryGoal = 300;       // MiB
constexpr double pageGoal = 50;          // ms
constexpr int fewDocuments = 10'000;
constexpr int manyDocuments = 1'000'000;
constexpr qint64 allRows = std::numeric_limits<qint64>::max();

const char16_t bySalesperson[] = u"ComisionesVendedor";
const char16_t ofSchemes[] = u"DetalleCodigos";

QString definitionFile(const QString& name) {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/reportes/VELTRANO/") + name +
           QStringLiteral(".rpt");
}

SalesReport reportOf(Company& company, const char16_t* name) {
    const QString file = QString::fromUtf16(name);
    return {company.databaseFile(), company.reportStatement(file), definitionFile(file)};
}

/// The bands of the first page; how many of them are rows.
qint64 makeFirstPage(const SalesReport& report) {
    const auto layout = report.open();
    layout->advanceToPage(0);
    const quorvane::report::Page page = layout->page(0);
    benchmark::DoNotOptimize(page);
    qint64 rows = 0;
    for (const quorvane::report::Band& band : page.bands)
        if (report.definition().sections[band.section].kind == quorvane::report::SectionKind::Details)
            ++rows;
    return rows;
}

void benchSortedFirstPage(Report& results, Company& company, int documents, int rounds) {
    const SalesReport report = reportOf(company, bySalesperson);
    results.add(compare("first page of " + std::to_string(documents) + " documents, sorted", sortedGoal,
                        rounds, {[&] { makeFirstPage(report); }}, {[&] { report.fetch(allRows, true); }}));
}

void benchOrderedFirstPage(Report& results, int schemes, int rounds) {
    Company company;
    company.addSchemes(schemes);
    const SalesReport report = reportOf(company, ofSchemes);
    const qint64 rowsOfAPage = makeFirstPage(report);
    results.add(compare("first page of " + std::to_string(schemes * 10) + " scheme lines, ordered",
                        orderedGoal, rounds, {[&] { makeFirstPage(report); }},
                        {[&] { report.fetch(rowsOfAPage, false); }}));
}

/// What a report costs in a process of its own, by name.
QMap<QByteArray, double> wholeReport(Company& company) {
    const QString name = QString::fromUtf16(bySalesperson);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/dalvora_bench_report"),
                  {company.databaseFile(), company.reportStatement(name), definitionFile(name)});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        throw std::runtime_error("the report cannot be made");
    QMap<QByteArray, double> figures;
    for (const QByteArray& line : process.readAllStandardOutput().split('\n'))
        figures.insert(line.left(line.indexOf(' ')), line.mid(line.indexOf(' ') + 1).toDouble());
    return figures;
}

/// The best of a few runs.
double timePerRow(Company& company, int runs) {
    double best = std::numeric_limits<double>::max();
    for (int run = 0; run < runs; ++run) {
        const auto figures = wholeReport(company);
        best = std::min(best, figures["time"] / figures["rows"] * 1e6);
    }
    return best;
}

} // namespace

void benchReports(Report& report, Company&) {
    benchOrderedFirstPage(report, 100, 60);
    benchOrderedFirstPage(report, 10'000, 20);

    Company few;
    few.addDocuments(fewDocuments);
    Company many;
    many.addDocuments(manyDocuments);
    benchSortedFirstPage(report, few, fewDocuments, 40);
    benchSortedFirstPage(report, many, manyDocuments, 5);
    report.add({"time of a row, 1000000 documents to 10000", "ns", timePerRow(many, 3), timePerRow(few, 15),
                flatGoal});

    const auto figures = wholeReport(many);
    report.add(
        {"longest time between two looks at the clock", "ms", figures["piece"], longestPieceGoal, 1.0});
    report.add({"worst of 2000 pages of " + std::to_string(int(figures["pages"])), "ms", figures["page"],
                pageGoal, 1.0});
    report.add({"memory of 1000000 documents, every page made", "MiB", figures["memory"], memoryGoal, 1.0});
}

} // namespace bench
