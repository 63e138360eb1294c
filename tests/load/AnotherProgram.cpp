#include "tests/load/AnotherProgram.h"

#include "platform/quorvane32/session/Profile.h"
#include <QElapsedTimer>
#include <QThread>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int holding = 900;    // ms; longer than the programs of the test wait for a lock
constexpr int betweenRows = 60; // ms in which a save takes its header
constexpr int pause = 250;      // ms in which the others get on

} // namespace

AnotherProgram::AnotherProgram(const QString& profileFolder) {
    m_connection.open(quorvane::Profile::load(profileFolder).resolvedConnectString(profileFolder));
}

void AnotherProgram::work(int time) {
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; clock.elapsed() + holding < time; ++i) {
        try {
            m_connection.beginTrans();
            if (i % 3 == 0)
                holdHeader();
            else
                takeLinesFirst();
        } catch (const quorvane::RunTimeError&) {
            // It is the one who gave way this time.
        }
        m_connection.rollbackTrans();
        QThread::msleep(pause);
    }
}

void AnotherProgram::holdHeader() {
    m_connection.execute(u"UPDATE Comisiones SET Acumulable = Acumulable WHERE Codigo = 'S1'"_s);
    QThread::msleep(holding);
}

void AnotherProgram::takeLinesFirst() {
    m_connection.execute(u"UPDATE ComisionesD SET Descripcion = Descripcion WHERE Codigo = 'S2'"_s);
    QThread::msleep(betweenRows);
    m_connection.execute(u"UPDATE Comisiones SET Acumulable = Acumulable WHERE Codigo = 'S2'"_s);
}

} // namespace dalvora::test
