#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Harness.h"
#include <QApplication>
#include <cstdio>

// Prints every benchmark as a ratio against its floor. The result is 1 when a goal is missed.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    bench::Report report(application.arguments().contains(QLatin1String("--json")));
    try {
        bench::Company company;
        bench::benchStart(report, company);
        bench::benchReads(report, company);
        bench::benchWrites(report, company);
        bench::benchGrid(report, company);
        bench::benchTexts(report);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    return report.allMet() ? 0 : 1;
}
