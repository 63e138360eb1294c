#include "benchmarks/SalesReport.h"
#include <QFile>
#include <QGuiApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>

namespace {

using quorvane::report::Layout;
using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// The most memory that the process has had at any time, in MiB.
double peakMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly))
        for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine())
            if (line.startsWith("VmHWM:"))
                return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

/// Lays out without ever going on after a look at the clock; the longest time between two looks.
double longestPiece(Layout& layout) {
    double longest = 0;
    for (bool goesOn = true; goesOn;) {
        const auto start = Clock::now();
        goesOn = layout.advance(std::chrono::milliseconds(0));
        longest = std::max(longest, millisecondsSince(start));
    }
    return longest;
}

double pageTime(Layout& layout, int page) {
    const auto start = Clock::now();
    const std::size_t bands = layout.page(page).bands.size();
    return bands == 0 ? 1e9 : millisecondsSince(start);
}

double worstOfManyPages(Layout& layout) {
    std::mt19937 random(20'000);
    std::uniform_int_distribution<int> pages(0, layout.pageCount() - 1);
    double worst = 0;
    for (int i = 0; i < 2000; ++i)
        worst = std::max(worst, pageTime(layout, pages(random)));
    return worst;
}

} // namespace

// dalvora_bench_report DATABASE STATEMENT DEFINITION: sorts a report, lays it out, jumps to many pages, walks
// through all of them, and prints what that took, a name and a number a line.
int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    try {
        const bench::SalesReport report(arguments.value(1), arguments.value(2), arguments.value(3));
        const auto start = Clock::now();
        const auto layout = report.open();
        std::printf("piece %g\n", longestPiece(*layout));
        std::printf("time %g\n", millisecondsSince(start));
        std::printf("rows %lld\npages %d\n", static_cast<long long>(layout->rowsLaidOut()),
                    layout->pageCount());
        std::printf("page %g\n", worstOfManyPages(*layout));
        for (int page = 0; page < layout->pageCount(); ++page)
            pageTime(*layout, page);
        std::printf("walk %g\n", millisecondsSince(start));
        std::printf("memory %g\n", peakMemory());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    return 0;
}
