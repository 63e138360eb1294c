// No room left on the disk of the database.
#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/faults/ProgramFixture.h"
#include "tests/support/SmallDisk.h"
#include <QDir>
#include <QElapsedTimer>

namespace dalvora::test {

namespace {

constexpr int smallDisk = 2048;      // kilobytes: room for the test's company, not for much more
constexpr int longestStart = 10'000; // ms: longer is a hang
const QString noRoom = u"61 - No queda espacio en el disco de la base de datos"_s;

#define NEEDS_DISK(disk)                                                                                     \
    if (!(disk).isMounted())                                                                                 \
    GTEST_SKIP() << "this user may not mount a small file system"

/// The program over a company whose disk can be filled.
class DiskFullTest : public testing::Test {
protected:
    void SetUp() override {
        NEEDS_DISK(disk);
        company.emplace(500, disk.path());
        states.store(*company, 1);
    }
    void start() {
        program.emplace(disk.path(), files);
        ASSERT_TRUE(program->start());
        program->read(u"C1"_s);
        ASSERT_TRUE(program->table().SysRecordFound);
        ASSERT_EQ(recorder.take(), std::vector<Message>());
    }
    void expectDiskFullTold(const QString& before) {
        const std::vector<Message> messages = recorder.take();
        ASSERT_EQ(messages.size(), 1U) << testing::PrintToString(messages);
        EXPECT_TRUE(messages[0].text.startsWith(before + u'\n' + noRoom)) << qPrintable(messages[0].text);
        EXPECT_EQ(messages[0].style, MessageError);
    }

    SmallDisk disk{smallDisk};
    std::optional<TestCompany> company;
    SchemeStates states{u"C1"_s, 100};
    MessageRecorder recorder;
    ProgramFiles files;
    std::optional<RunningProgram> program;
};

} // namespace

TEST_F(DiskFullTest, ASaveIsToldAndSucceedsWhenThereIsRoom) {
    start();
    states.change(program->table(), 2);
    const QStringList before = program->screen();
    disk.fill();
    for (int attempt = 1; attempt <= 2; ++attempt) {
        program->click(u"grabar"_s);
        // The changed period asks for each of its dates first.
        const std::vector<Message> messages = recorder.take();
        ASSERT_EQ(messages.size(), 3U) << testing::PrintToString(messages);
        EXPECT_TRUE(messages[2].text.startsWith(u"Error al grabar registro"_s));
        EXPECT_TRUE(messages[2].text.contains(noRoom)) << qPrintable(messages[2].text);
        EXPECT_EQ(program->screen(), before);
    }
    disk.empty();
    EXPECT_EQ(states.storedRows(*company), states.rows(1));
    EXPECT_EQ(company->integrity(), u"ok"_s);
    program->click(u"grabar"_s);
    EXPECT_EQ(recorder.take().size(), 2U) << "the two questions";
    EXPECT_EQ(states.storedRows(*company), states.rows(2));
    EXPECT_EQ(company->integrity(), u"ok"_s);
}

TEST_F(DiskFullTest, ADeleteIsToldAndSucceedsWhenThereIsRoom) {
    start();
    disk.fill();
    program->click(u"eliminar"_s);
    const std::vector<Message> messages = recorder.take();
    ASSERT_EQ(messages.size(), 2U) << testing::PrintToString(messages);
    EXPECT_TRUE(messages[1].text.startsWith(u"Error al eliminar registro\n"_s + noRoom))
        << qPrintable(messages[1].text);
    disk.empty();
    EXPECT_EQ(states.storedRows(*company), states.rows(1));
    program->click(u"eliminar"_s);
    EXPECT_EQ(states.storedRows(*company), QStringList());
}

TEST_F(DiskFullTest, ReadingGoesOn) {
    start();
    disk.fill();
    program->click(u"limpiar"_s);
    program->read(u"C1"_s);
    EXPECT_TRUE(program->table().SysRecordFound);
    EXPECT_EQ(recorder.take(), std::vector<Message>());
}

TEST_F(DiskFullTest, AStartThatFindsNoRoomSaysSo) {
    disk.fill();
    program.emplace(disk.path(), files);
    EXPECT_FALSE(program->start());
    expectDiskFullTold(u"Error al iniciar aplicación"_s);
    disk.empty();
    start();
}

TEST(FirstStartOnAFullDisk, SaysSoAndLeavesNothingHalfMade) {
    for (const int size : {4, 64, 128, 256}) {
        const SmallDisk disk(size);
        NEEDS_DISK(disk);
        if (size == 4)
            disk.fill();
        MessageRecorder recorder;
        const ProgramFiles files;
        RunningProgram program(disk.path(), files);
        QElapsedTimer clock;
        clock.start();
        EXPECT_FALSE(program.start());
        EXPECT_LT(clock.elapsed(), longestStart);
        const std::vector<Message> messages = recorder.take();
        ASSERT_EQ(messages.size(), 1U) << testing::PrintToString(messages);
        EXPECT_TRUE(messages[0].text.startsWith(u"Error al iniciar aplicación\n61 - "_s))
            << size << ": " << qPrintable(messages[0].text);
        EXPECT_EQ(QDir(disk.path()).entryList({u"quorvane*"_s}, QDir::Files | QDir::Hidden), QStringList());
    }
}

// Room for the database, but not for the files that programs agree by: the next start goes on from there.
TEST(FirstStartOnAFullDisk, WhatWasMadeIsWhole) {
    SmallDisk disk(300);
    NEEDS_DISK(disk);
    MessageRecorder recorder;
    const ProgramFiles files;
    {
        RunningProgram program(disk.path(), files);
        EXPECT_FALSE(program.start());
        const std::vector<Message> messages = recorder.take();
        ASSERT_EQ(messages.size(), 1U) << testing::PrintToString(messages);
        EXPECT_TRUE(messages[0].text.startsWith(u"Error al iniciar aplicación\n61 - "_s))
            << qPrintable(messages[0].text);
    }
    disk.grow(4096);
    RunningProgram program(disk.path(), files);
    EXPECT_TRUE(program.start());
    EXPECT_EQ(recorder.take(), std::vector<Message>());
}

// For everybody who may not mount: the database's own limit.
TEST(FullDatabaseTest, ASaveIsToldAndSucceedsWhenThereIsRoom) {
    const TestCompany company;
    const SchemeStates states(u"C1"_s, 100);
    states.store(company, 1);
    MessageRecorder recorder;
    const ProgramFiles files;
    RunningProgram program(company.path(), files);
    ASSERT_TRUE(program.start());
    program.read(u"C1"_s);
    quorvane::Connection& connection = *program.context().Connection;
    connection.execute(u"PRAGMA max_page_count = "_s + company.value(u"PRAGMA page_count"_s));
    // Ever more lines, until they need a new page.
    states.change(program.table(), 2);
    for (int i = 1; i <= 500; ++i) {
        DBDetail& line = program.table().DetailsAdd(program.table().DetailsCount());
        line.setTextValue(1, u"Todos"_s);
        line.setTextValue(4, QString::number(i));
        line.setTextValue(5, QString::number(i));
        line.setTextValue(6, u"5"_s);
        line.setTextValue(7, u"Neto"_s);
    }
    program.click(u"grabar"_s);
    const std::vector<Message> messages = recorder.take();
    ASSERT_EQ(messages.size(), 3U) << testing::PrintToString(messages);
    EXPECT_TRUE(messages[2].text.contains(noRoom)) << qPrintable(messages[2].text);
    EXPECT_EQ(states.storedRows(company), states.rows(1));
    connection.execute(u"PRAGMA max_page_count = 1000000"_s);
    program.click(u"grabar"_s);
    EXPECT_EQ(recorder.take().size(), 2U);
    EXPECT_EQ(states.storedState(company), 2);
    EXPECT_EQ(company.value(u"SELECT count(*) FROM ComisionesD WHERE Concepto = 'Todos'"_s), u"500"_s);
}

} // namespace dalvora::test
