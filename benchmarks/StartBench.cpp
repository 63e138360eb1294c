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

void start(const QString& program) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationDirPath() + u'/' + program, {});
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error("a start failed");
}

} // namespace

void benchStart(Report& report, Company& company) {
    qputenv("QUORVANE_HOME", company.folder().toUtf8());
    report.add(compare("start to enabled main form", startGoal, rounds,
                       {[] { start("dalvora_bench_start"); }}, {[] { start("dalvora_bench_window"); }}));
}

} // namespace bench
