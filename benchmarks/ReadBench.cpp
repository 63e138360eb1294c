#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Floor.h"
#include "benchmarks/Harness.h"
#include "data/DBTable.h"
#include <benchmark/benchmark.h>
#include <malloc.h>

namespace bench {

namespace {

constexpr double readGoal = 2.0;
constexpr double bytesPerLineGoal = 1024;

std::size_t heapBytes() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void benchRead(Report& report, Company& company, const QString& code, int lines, int rounds) {
    const Floor floor(company.databaseFile());
    const std::string name = "read a scheme of " + std::to_string(lines) + " lines";
    report.add(compare(name, readGoal, rounds, {[&] { company.read(code); }},
                       {[&] { benchmark::DoNotOptimize(floor.fetchLines(code)); }}));
}

} // namespace

void benchReads(Report& report, Company& company) {
    benchRead(report, company, "BENCH1000", 1000, 60);
    benchRead(report, company, "BENCH100000", 100000, 7);

    company.table().carga_inicio();
    malloc_trim(0);
    const std::size_t before = heapBytes();
    company.read("BENCH100000");
    const double perLine = static_cast<double>(heapBytes() - before) / company.table().DetailsCount();
    report.add({"memory of a line, 100000 lines", "B", perLine, bytesPerLineGoal, 1.0});
    company.table().carga_inicio();
}

} // namespace bench
