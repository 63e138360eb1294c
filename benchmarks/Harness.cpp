#include "benchmarks/Harness.h"
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>

namespace bench {

namespace {

double milliseconds(const Action& action) {
    action.prepare();
    const auto start = std::chrono::steady_clock::now();
    action.run();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

Result compare(std::string name, std::optional<double> goal, int rounds, const Action& ours,
               const Action& floor) {
    Result result{std::move(name), "ms", std::numeric_limits<double>::max(),
                  std::numeric_limits<double>::max(), goal};
    for (int round = 0; round < rounds; ++round) {
        result.ours = std::min(result.ours, milliseconds(ours));
        result.floor = std::min(result.floor, milliseconds(floor));
    }
    return result;
}

void Report::add(const Result& result) {
    m_allMet = m_allMet && result.isMet();
    if (m_json) {
        std::printf(R"({"name":"%s","unit":"%s","ours":%.6g,"floor":%.6g,"ratio":%.4g,"goal":)",
                    result.name.c_str(), result.unit.c_str(), result.ours, result.floor, result.ratio());
        if (result.goal)
            std::printf("%g}\n", *result.goal);
        else
            std::printf("null}\n");
    } else {
        if (!m_titled)
            std::printf("%-48s %12s %12s %8s %6s\n", "benchmark", "ours", "floor", "ratio", "goal");
        m_titled = true;
        std::printf("%-48s %9.4g %2s %9.4g %2s %8.2f", result.name.c_str(), result.ours, result.unit.c_str(),
                    result.floor, result.unit.c_str(), result.ratio());
        if (result.goal)
            std::printf(" %6g%s", *result.goal, result.isMet() ? "" : "  MISSED");
        std::printf("\n");
    }
    std::fflush(stdout);
}

} // namespace bench
