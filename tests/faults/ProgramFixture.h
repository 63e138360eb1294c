#pragma once

#include "tests/faults/RunningProgram.h"
#include "tests/faults/SchemeStates.h"
#include "tests/support/MessageRecorder.h"
#include <gtest/gtest.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;

/// One company with the stored scheme C1 and the program, not yet started; messages are recorded.
class ProgramFixture : public testing::Test {
protected:
    explicit ProgramFixture(int timeout = 5000) : ProgramFixture(TestEngine::Sqlite, timeout) {}
    explicit ProgramFixture(TestEngine engine, int timeout = 5000) : company(engine, timeout) {
        states.store(company, 1);
    }

    /// The one message that has been told since the last call; fails when there are more or none.
    Message told() {
        const std::vector<Message> messages = recorder.take();
        EXPECT_EQ(messages.size(), 1U) << testing::PrintToString(messages);
        return messages.empty() ? Message{} : messages.front();
    }
    void expectSilence() { EXPECT_EQ(recorder.take(), std::vector<Message>()); }
    /// Starts the program and reads C1.
    void readC1() {
        ASSERT_TRUE(program.start());
        program.read(u"C1"_s);
        ASSERT_TRUE(program.table().SysRecordFound);
        expectSilence();
    }
    /// Changes a percentage of the first product line.
    void changeOneCell(const QString& percentage = u"77"_s) {
        program.enterCell(*program.controls().XGrid, 1, 6, percentage);
    }
    /// The percentages of C1 that are stored as 77.
    QString changedCells() const {
        return company.value(u"SELECT count(*) FROM ComisionesD WHERE Codigo = 'C1' AND Porcentaje = 77"_s);
    }
    QString audited(int code) const {
        return company.value(u"SELECT count(*) FROM ses_auditoria WHERE Codigo = %1"_s.arg(code));
    }

    TestCompany company;
    SchemeStates states{u"C1"_s, 30};
    MessageRecorder recorder;
    ProgramFiles files;
    RunningProgram program{company.path(), files};
};

/// The same on each engine.
class EveryEngine : public ProgramFixture, public testing::WithParamInterface<TestEngine> {
protected:
    EveryEngine() : ProgramFixture(GetParam()) {}
};

} // namespace dalvora::test
