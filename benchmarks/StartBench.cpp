#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Harness.h"
#include <QCoreApplication>
#include <QProcess>
#include <stdexcept>

namespace bench {

namespace {

constexpr double startGoal = 1.5;
constexpr int rounds = 25;

void start(const QString& program, const QStringList& arguments = {}) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error("a start failed");
}

} // namespace

void benchStart(Report& report, Company& company) {
    qputenv("QUORVANE_HOME", company.folder().toUtf8());
    const Action ours{[] { start("dalvora_bench_start"); }};
    report.add(compare("start to enabled main form", startGoal, rounds, ours,
                       {[] { start("dalvora_bench_window", {"fonts"}); }}));
    // For comparison: a window that could not show a word.
    report.add(compare("start, against a window without fonts", std::nullopt, rounds, ours,
                       {[] { start("dalvora_bench_window"); }}));
}

} // namespace bench
