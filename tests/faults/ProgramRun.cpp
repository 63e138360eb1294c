#include "tests/faults/ProgramRun.h"
#include <QProcess>
#include <gtest/gtest.h>

namespace dalvora::test {

ProgramRun::ProgramRun(const QString& profileFolder, const ProgramFiles& files, const QString& commandLine,
                       const QString& code, User user) {
    constexpr int patience = 60'000; // ms
    QProcess process;
    // Only what the program tells itself, nothing of its toolkit.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("*=false"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(FAULT_PROGRAM),
                  {profileFolder, files.programFolder(), files.styleFile(),
                   user == User::Same ? QStringLiteral("mismo") : QStringLiteral("nadie"), commandLine,
                   code});
    EXPECT_TRUE(process.waitForFinished(patience)) << "the program hangs";
    crashed = process.exitStatus() != QProcess::NormalExit;
    result = process.exitCode();
    found = QString::fromUtf8(process.readAllStandardOutput());
    told = QString::fromUtf8(process.readAllStandardError());
}

} // namespace dalvora::test
