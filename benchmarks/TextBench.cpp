#include "benchmarks/Benches.h"
#include "benchmarks/Harness.h"
#include "common/SqlTemplate.h"
#include "common/SqlText.h"
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>

namespace bench {

namespace {

constexpr int repeats = 200000;
constexpr int rounds = 7;

template<class Ours, class Floor> void benchText(Report& report, const char* name, Ours ours, Floor floor) {
    const auto repeat = [](auto action) {
        return Action{[action] {
            for (int i = 0; i < repeats; ++i)
                action();
        }};
    };
    report.add(compare(name, std::nullopt, rounds, repeat(ours), repeat(floor)));
}

// The library's std::format is not there yet; snprintf writes the same text.
template<class... Values> void print(const char* format, Values... values) {
    std::array<char, 512> text{};
    benchmark::DoNotOptimize(std::snprintf(text.data(), text.size(), format, values...));
}

const quorvane::RegionalSettings regional;

void benchConversions(Report& report) {
    using quorvane::Kind;
    const quorvane::Value number = 1234.5;
    const quorvane::Value date = quorvane::Date::fromYmd(2006, 3, 5);
    const quorvane::Value text = QStringLiteral("O'NEIL");
    benchText(
        report, "SqlText of a number",
        [&] { benchmark::DoNotOptimize(dalvora::SqlText(number, Kind::Double, regional)); },
        [] { print("%.15g", 1234.5); });
    benchText(
        report, "SqlText of a date",
        [&] { benchmark::DoNotOptimize(dalvora::SqlText(date, Kind::Date, regional)); },
        [] { print("%02d/%02d/%04d", 5, 3, 2006); });
    benchText(
        report, "SqlText of a text",
        [&] { benchmark::DoNotOptimize(dalvora::SqlText(text, Kind::String, regional)); },
        [] { print("%s", "O''NEIL"); });
    const QString entry = QStringLiteral("1.234,5");
    benchText(
        report, "TextToValue of a number",
        [&] {
            quorvane::Value value;
            benchmark::DoNotOptimize(dalvora::TextToValue(entry, Kind::Double, value, 2, regional));
        },
        [] { print("%.15g", 1234.5); });
}

void benchFilling(Report& report) {
    using quorvane::Kind;
    const quorvane::Value number = 1234.5;
    const quorvane::Value date = quorvane::Date::fromYmd(2006, 3, 5);
    const quorvane::Value text = QStringLiteral("O'NEIL");
    const dalvora::SqlTemplate form(u"UPDATE t SET a = '$A$', b = $B$ WHERE c = '$C$' ");
    benchText(
        report, "filling a statement",
        [&] {
            dalvora::SqlStatement statement(form, regional);
            statement.fill(u"A", text, Kind::String)
                .fill(u"B", number, Kind::Double)
                .fill(u"C", date, Kind::Date);
            benchmark::DoNotOptimize(statement.text());
        },
        [] {
            print("UPDATE t SET a = '%s', b = %.15g WHERE c = '%02d/%02d/%04d' ", "O''NEIL", 1234.5, 5, 3,
                  2006);
        });
}

} // namespace

void benchTexts(Report& report, Company&) {
    benchConversions(report);
    benchFilling(report);
}

} // namespace bench
