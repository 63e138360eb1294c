// Many users at once on one database, and what the program promises them.
//
//   DALVORA_LOAD_SECONDS   how long each run works (3)
//   DALVORA_LOAD_SEED      what the users' choices begin with (1)

#include "tests/load/LoadRun.h"
#include <gtest/gtest.h>
#include <iostream>

namespace {

using namespace dalvora::test;
using namespace Qt::StringLiterals;

int environment(const char* name, int usual) {
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : usual;
}

/// The first few of what was found: one broken promise breaks many.
std::string told(const QStringList& problems) {
    constexpr int most = 20;
    return std::to_string(problems.size()) + " problems:\n" + problems.mid(0, most).join(u'\n').toStdString();
}

/// Whether everything was done at least once, and users met: a run without proves nothing.
bool provesSomething(const LoadSummary& summary) {
    for (const LoadKind kind : {LoadKind::Read, LoadKind::Create, LoadKind::Change, LoadKind::Delete,
                                LoadKind::Assign, LoadKind::List})
        if (!summary.done.contains(kind))
            return false;
    return summary.refused > 0 && summary.lockTimeouts > 0;
}

/// Runs once, or on a machine that has little time for it, longer.
void runAndCheck(TestEngine engine, int users) {
    LoadRun run{engine,
                users,
                environment("DALVORA_LOAD_SECONDS", 3) * 1000,
                static_cast<quint32>(environment("DALVORA_LOAD_SEED", 1)),
                {}};
    LoadSummary summary;
    for (int attempt = 0; attempt < 3 && !provesSomething(summary); ++attempt, run.time *= 2) {
        const LoadHistory history = run.run();
        summary = {};
        const QStringList problems = checkHistory(history, summary);
        std::cout << reportOf(run, history, summary).toStdString();
        ASSERT_TRUE(problems.isEmpty()) << told(problems);
        EXPECT_GE(summary.done[LoadKind::End], users) << "everyone signed off";
    }
    EXPECT_TRUE(provesSomething(summary)) << "nobody met anybody";
}

TEST(ManyUsers, FiftyOnAServer) {
    runAndCheck(TestEngine::PostgreSql, 50);
}

TEST(ManyUsers, EightOnTheEmbeddedFile) {
    runAndCheck(TestEngine::Sqlite, 8);
}

struct Missing {
    const char* part;
    const char* problem; ///< what some problem says then
};

/// A program that lacks a part is found out.
class MissingPart : public testing::TestWithParam<std::tuple<TestEngine, Missing>> {};

TEST_P(MissingPart, IsFoundOut) {
    LoadRun run;
    run.engine = std::get<0>(GetParam());
    const auto& [part, problem] = std::get<1>(GetParam());
    run.missing = QLatin1String(part);
    QStringList problems;
    // What goes wrong needs two users at the same moment: a few attempts, each longer.
    for (int attempt = 0; attempt < 4 && problems.isEmpty(); ++attempt) {
        LoadSummary summary;
        run.seed = static_cast<quint32>(attempt + 1);
        run.time = 600 << attempt;
        problems = checkHistory(run.run(), summary).filter(QLatin1String(problem));
    }
    EXPECT_FALSE(problems.isEmpty());
    std::cout << run.missing.toStdString() << " after " << run.time << " ms, " << problems.size()
              << " problems, the first: " << problems.value(0).toStdString() << '\n';
}

std::string partName(const testing::TestParamInfo<MissingPart::ParamType>& info) {
    const std::string engine = std::get<0>(info.param) == TestEngine::Sqlite ? "Sqlite" : "PostgreSql";
    return engine + QString::fromLatin1(std::get<1>(info.param).part).remove(u'-').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Parts, MissingPart,
                         testing::Combine(testing::Values(TestEngine::Sqlite, TestEngine::PostgreSql),
                                          testing::Values(Missing{"no-transactions", " has "},
                                                          Missing{"no-audit", "the audit trail has "},
                                                          Missing{"no-reading", "read of "})),
                         partName);

} // namespace
