#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Harness.h"
#include <QApplication>
#include <cstdio>

namespace {

struct Group {
    const char* name;
    void (*run)(bench::Report&, bench::Company&);
};

constexpr Group groups[] = {
    {"start", bench::benchStart},
    {"reads", bench::benchReads},
    {"writes", bench::benchWrites},
    {"grid", bench::benchGrid},
    {"salespeople", bench::benchSalespeople},
    {"texts", bench::benchTexts},
    {"reports", bench::benchReports},
    {"exports", bench::benchExports},
    {"toolbar", bench::benchToolbar},
    {"server", bench::benchServer},
};

} // namespace

// Prints every benchmark as a ratio against its floor; group names as arguments run those only. The result is
// 1 when a goal is missed.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    bench::Report report(arguments.contains(QLatin1String("--json")));
    const bool all = arguments.isEmpty() || arguments == QStringList{QStringLiteral("--json")};
    try {
        bench::Company company;
        company.addScheme(QStringLiteral("BENCH1000"), 1000);
        company.addScheme(QStringLiteral("BENCH100000"), 100000);
        for (const Group& group : groups)
            if (all || arguments.contains(QLatin1String(group.name)))
                group.run(report, company);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    return report.allMet() ? 0 : 1;
}
