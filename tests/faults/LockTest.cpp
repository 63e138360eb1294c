// Another program holds the database's write lock.
#include "data/DBTable.h"
#include "demo/Demonstration.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/faults/ProgramFixture.h"
#include <QElapsedTimer>
#include <QProcess>

namespace dalvora::test {

namespace {

constexpr int shortTimeout = 300;
constexpr int usualTimeout = 5000;
const QString busy =
    u"1222 - Otro programa está usando la base de datos; inténtelo de nuevo [database is locked]"_s;

/// The other program. It has the lock when this has been made, and gives it back after the time (ms), or when
/// it is told to.
class Holder {
public:
    explicit Holder(const QString& database, int time = 0) {
        QStringList arguments{database};
        if (time > 0)
            arguments << QString::number(time);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(FAULT_LOCKER), arguments);
        EXPECT_TRUE(m_process.waitForReadyRead(10'000));
        EXPECT_EQ(m_process.read(1), "l");
    }
    ~Holder() { release(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void release() {
        m_process.closeWriteChannel();
        EXPECT_TRUE(m_process.state() == QProcess::NotRunning || m_process.waitForFinished(10'000));
    }

private:
    QProcess m_process;
};

QString firstCode(quorvane::Connection& connection) {
    return connection.openRecordset(u"SELECT TOP 1 Codigo FROM Comisiones WHERE Empresa = '001'"_s)
        .value(0)
        .toText({});
}

class LockTest : public ProgramFixture {
protected:
    explicit LockTest(int timeout = usualTimeout) : ProgramFixture(timeout) {}
};

class ShortPatienceTest : public LockTest {
protected:
    ShortPatienceTest() : LockTest(shortTimeout) {}
};

} // namespace

TEST_F(LockTest, ASaveWaitsForALockOfOneSecondAndSucceeds) {
    readC1();
    changeOneCell();
    QElapsedTimer clock;
    clock.start();
    const Holder other(company.database(), 1000);
    program.click(u"grabar"_s);
    EXPECT_GE(clock.elapsed(), 900);
    expectSilence();
    EXPECT_EQ(changedCells(), u"1"_s);
    EXPECT_EQ(program.controls().TxtCodigo->text(), QString()) << "a new record is begun";
}

TEST_F(ShortPatienceTest, ASaveThatWaitsTooLongIsToldLosesNothingAndSucceedsAfterwards) {
    readC1();
    changeOneCell();
    program.enterCell(*program.controls().XGrid2, 1, 4, u"9"_s);
    const QStringList before = program.screen();
    Holder other(company.database());
    program.click(u"grabar"_s);
    EXPECT_EQ(told(), (Message{u"Error al grabar registro\n"_s + busy, MessageError}));
    EXPECT_EQ(program.screen(), before);
    EXPECT_TRUE(program.table().hasUnsavedChanges());
    EXPECT_EQ(states.storedRows(company), states.rows(1));
    other.release();
    program.click(u"grabar"_s);
    expectSilence();
    EXPECT_EQ(changedCells(), u"1"_s);
    EXPECT_EQ(company.value(u"SELECT Porcentaje FROM ComisionesD WHERE Tipo = 'Monto'"_s), u"9"_s);
}

TEST_F(ShortPatienceTest, ADeleteThatWaitsTooLongIsToldAndSucceedsAfterwards) {
    readC1();
    Holder other(company.database());
    program.click(u"eliminar"_s);
    const std::vector<Message> messages = recorder.take();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[1], (Message{u"Error al eliminar registro\n"_s + busy, MessageError}));
    EXPECT_EQ(states.storedRows(company), states.rows(1));
    other.release();
    program.click(u"eliminar"_s);
    EXPECT_EQ(recorder.take().back(), (Message{u"Registro Eliminado"_s, MessageInformation}));
    EXPECT_EQ(states.storedRows(company), QStringList());
}

TEST_F(LockTest, StartReadingLookingUpAndClosingGoOnAndTheAuditTrailCatchesUp) {
    Holder other(company.database());
    QElapsedTimer clock;
    clock.start();
    readC1();
    program.click(u"limpiar"_s);
    program.read(u"C1"_s);
    EXPECT_TRUE(program.table().SysRecordFound);
    EXPECT_LT(clock.elapsed(), usualTimeout) << "somebody waited for the lock as long as a save may";
    expectSilence();
    EXPECT_EQ(audited(7), u"0"_s);
    other.release();
    program.click(u"limpiar"_s);
    program.read(u"C1"_s);
    EXPECT_EQ(audited(2), u"1"_s);
    EXPECT_EQ(audited(7), u"3"_s);
}

TEST_F(LockTest, ClosingTheProgramDoesNotWaitForTheLock) {
    readC1();
    const Holder other(company.database());
    QElapsedTimer clock;
    clock.start();
    program.form().close();
    EXPECT_FALSE(program.context().Table);
    EXPECT_LT(clock.elapsed(), usualTimeout);
    expectSilence();
}

// With the profile that the first start makes, nothing shortened.
TEST(DemonstrationLockTest, TheProgramAnswersWithinItsTimeOut) {
    const QTemporaryDir folder;
    demo::createDemonstration(folder.path());
    MessageRecorder recorder;
    const ProgramFiles files;
    RunningProgram program(folder.path(), files);
    ASSERT_TRUE(program.start());
    program.read(firstCode(*program.context().Connection));
    ASSERT_TRUE(program.table().SysRecordFound);
    const Holder other(folder.filePath(u"quorvane.db"_s));
    QElapsedTimer clock;
    clock.start();
    program.click(u"grabar"_s);
    EXPECT_GE(clock.elapsed(), 4500);
    EXPECT_LE(clock.elapsed(), 6500);
    EXPECT_EQ(recorder.take(), std::vector{(Message{u"Error al grabar registro\n"_s + busy, MessageError})});
}

} // namespace dalvora::test
