// Two programs save into one database file at the same time.
#include "tests/faults/SaverMarks.h"
#include "tests/faults/SchemeStates.h"
#include "tests/faults/TestCompany.h"
#include "tests/support/QtPrinters.h"
#include <QProcess>
#include <gtest/gtest.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int savesEach = 100;
constexpr int linesEach = 60;
constexpr int processPatience = 120'000; // ms

void startSaver(QProcess& saver, const TestCompany& company, const SchemeStates& scheme) {
    saver.start(QStringLiteral(FAULT_SAVER), {company.path(), scheme.code(), QString::number(linesEach),
                                              u"loop"_s, QString::number(savesEach)});
}

void expectAllSaved(QProcess& saver) {
    ASSERT_TRUE(saver.waitForFinished(processPatience));
    EXPECT_EQ(saver.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(saver.exitCode(), 0);
    EXPECT_EQ(saver.readAllStandardError().toStdString(), std::string());
    EXPECT_EQ(saver.readAllStandardOutput().count(MarkDone), savesEach);
}

} // namespace

TEST(SharedDatabase, AHundredSavesOfEachProgramAreAllStoredWhole) {
    const TestCompany company;
    const SchemeStates one(u"C1"_s, linesEach);
    const SchemeStates other(u"C2"_s, linesEach);
    one.store(company, 1);
    other.store(company, 500);
    QProcess first;
    QProcess second;
    startSaver(first, company, one);
    startSaver(second, company, other);
    expectAllSaved(first);
    expectAllSaved(second);
    EXPECT_EQ(one.storedRows(company), one.rows(1 + savesEach));
    EXPECT_EQ(other.storedRows(company), other.rows(500 + savesEach));
    EXPECT_EQ(company.integrity(), u"ok"_s);
    // Every save and every read of both stands in the audit trail.
    const auto entries = [&](int code) {
        return company.value(u"SELECT count(*) FROM ses_auditoria WHERE Codigo = %1"_s.arg(code)).toInt();
    };
    EXPECT_EQ(entries(5), 2 * savesEach);
    EXPECT_EQ(entries(7), 2 * (savesEach + 1));
}

} // namespace dalvora::test
