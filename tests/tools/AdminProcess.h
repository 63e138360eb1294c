#pragma once

#include "platform/quorvane32/session/Accounts.h"
#include "tests/tools/AdminSupport.h"
#include <QProcess>

namespace quorvane::admin::test {

/// The program itself, as a shell starts it.
class AdminProcess : public testing::Test {
protected:
    int run(const QStringList& words, const QByteArray& input = {}) {
        program.start(QStringLiteral(ADMIN_PROGRAM), QStringList{u"--perfil"_s, desk.folder()} + words);
        program.write(input);
        program.closeWriteChannel();
        EXPECT_TRUE(program.waitForFinished());
        return program.exitCode();
    }
    /// What it wrote, lines ending as everywhere.
    QByteArray told() { return program.readAllStandardOutput().replace("\r\n", "\n"); }
    QByteArray complained() { return program.readAllStandardError().replace("\r\n", "\n"); }
    QString refusal(const QString& password) const {
        Connection connection;
        connection.open(desk.database.connectString());
        return Accounts(connection).refusal(u"eva"_s, password, QDateTime::currentDateTime());
    }

    AdminDesk desk{TestEngine::Sqlite};
    QProcess program;
};

} // namespace quorvane::admin::test
