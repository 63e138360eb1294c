#pragma once

#include <QProcess>
#include <gtest/gtest.h>

namespace quorvane::test {

/// What a program of the system writes when it is run over the arguments; a failure of it fails the test.
inline QByteArray madeBy(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(30000)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

} // namespace quorvane::test
