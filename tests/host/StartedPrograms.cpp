#include "tests/host/StartedPrograms.h"
#include "app/FirstInstance.h"
#include "demo/Demonstration.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/session/Profile.h"
#include "tests/support/QtPrinters.h"
#include <QTest>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

/// Far more than a start takes, also on a busy machine.
constexpr int generous = 60000;

} // namespace

void StartedPrograms::End::operator()(QProcess* program) const {
    program->kill();
    program->waitForFinished();
    delete program;
}

StartedPrograms::StartedPrograms() {
    demo::createDemonstration(home.path());
}

StartedPrograms::Started StartedPrograms::start(const QString& commandLine,
                                                const QString& profileFolder) const {
    Started program(new QProcess);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QUORVANE_HOME"_s, profileFolder.isEmpty() ? home.path() : profileFolder);
    program->setProcessEnvironment(environment);
    program->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program->start(QStringLiteral(DALVORA_PROGRAM), {commandLine});
    EXPECT_TRUE(program->waitForStarted());
    return program;
}

testing::AssertionResult StartedPrograms::answers(const QString& company) const {
    const QString topic = hostTopic(home.path(), company);
    if (QTest::qWaitFor([&] { return errorOfAsking(topic) == 0; }, generous))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "nobody answers " << qPrintable(topic);
}

testing::AssertionResult StartedPrograms::audited(int code, int times) const {
    int found = 0;
    const auto look = [&] {
        quorvane::Connection connection;
        connection.open(quorvane::Profile::load(home.path()).resolvedConnectString(home.path()));
        const QString count = u"SELECT count(*) FROM ses_auditoria WHERE Codigo = %1"_s.arg(code);
        found = connection.openRecordset(count).value(0).toText({}).toInt();
        return found == times;
    };
    if (QTest::qWaitFor(look, generous))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << found << " entries of code " << code;
}

testing::AssertionResult StartedPrograms::haveBegun(int programs) const {
    return audited(quorvane::AuditStart, programs);
}

testing::AssertionResult StartedPrograms::haveRead(int schemes) const {
    return audited(quorvane::AuditRead, schemes);
}

std::optional<int> StartedPrograms::exitCode(QProcess& program) {
    // Events go on meanwhile: a window that answers nothing holds up the requests of every program on
    // Windows.
    if (!QTest::qWaitFor([&program] { return program.state() == QProcess::NotRunning; }, generous))
        return {};
    return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
}

} // namespace dalvora::test
