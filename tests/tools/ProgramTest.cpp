// The program itself, as a shell starts it.
#include "platform/quorvane32/session/Accounts.h"
#include "tests/tools/AdminSupport.h"
#include <QProcess>

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using namespace quorvane::admin::test;

class AdminProcess : public testing::Test {
protected:
    int run(const QStringList& words, const QByteArray& input = {}) {
        program.start(QStringLiteral(ADMIN_PROGRAM), QStringList{u"--perfil"_s, desk.folder()} + words);
        program.write(input);
        program.closeWriteChannel();
        EXPECT_TRUE(program.waitForFinished());
        return program.exitCode();
    }
    QString refusal(const QString& password) const {
        Connection connection;
        connection.open(desk.database.connectString());
        return Accounts(connection).refusal(u"eva"_s, password, QDateTime::currentDateTime());
    }

    AdminDesk desk{TestEngine::Sqlite};
    QProcess program;
};

TEST_F(AdminProcess, ReadsThePasswordFromItsInput) {
    EXPECT_EQ(run({u"alta"_s, u"eva"_s, u"Eva Núñez"_s}, "Contraseña-de-eva\n"), ExitSuccess);
    EXPECT_EQ(program.readAllStandardOutput(), QByteArray("Usuario «eva» creado, todavía sin derechos.\n"));
    EXPECT_EQ(program.readAllStandardError(), QByteArray());
    EXPECT_EQ(refusal(u"Contraseña-de-eva"_s), QString());
}

TEST_F(AdminProcess, WithoutAPasswordNobodyIsAdded) {
    EXPECT_EQ(run({u"alta"_s, u"eva"_s}), ExitFailure);
    EXPECT_EQ(program.readAllStandardError(), QByteArray("Error: No se recibió ninguna contraseña (5)\n"));
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM ses_usuario"_s), u"0"_s);
}

TEST_F(AdminProcess, TellsHowItEndedToTheShell) {
    EXPECT_EQ(run({}), ExitUsage);
    EXPECT_EQ(run({u"baja"_s, u"nadie"_s}), ExitFailure);
    EXPECT_EQ(run({u"revisar"_s}), ExitFindings);
    EXPECT_EQ(run({u"usuarios"_s}), ExitSuccess);
}

/// A terminal with somebody at it who types these keys; gives back what the terminal shows.
QByteArray typed(const QString& folder, const QByteArray& keys, int* exitCode) {
    QProcess shell;
    // "script" gives the program a terminal of its own.
    shell.start(u"script"_s,
                {u"-qec"_s, u"'%1' --perfil '%2' alta eva"_s.arg(QStringLiteral(ADMIN_PROGRAM), folder),
                 u"/dev/null"_s});
    QByteArray shown;
    for (const QByteArray& line : keys.split('|')) {
        // Whoever types waits for the question.
        const qsizetype before = shown.count(": ");
        while (shown.count(": ") <= before && shell.waitForReadyRead(5000))
            shown += shell.readAll();
        shell.write(line);
    }
    EXPECT_TRUE(shell.waitForFinished());
    *exitCode = shell.exitCode();
    return shown + shell.readAll();
}

TEST_F(AdminProcess, AtATerminalThePasswordIsAskedTwiceAndNeverShown) {
    int exitCode = -1;
    const QByteArray told = typed(desk.folder(), "Clave-ñandúx\x7f\r|Clave-ñandú\r", &exitCode);
    EXPECT_EQ(exitCode, ExitSuccess) << told.constData();
    EXPECT_TRUE(told.contains("Contraseña: ") && told.contains("Repita la contraseña: "));
    EXPECT_FALSE(told.contains("Clave")) << told.constData();
    EXPECT_EQ(refusal(u"Clave-ñandú"_s), QString());
}

TEST_F(AdminProcess, AtATerminalTwoDifferentPasswordsAreNone) {
    int exitCode = -1;
    const QByteArray told = typed(desk.folder(), "Clave-larga-1\r|Clave-larga-2\r", &exitCode);
    EXPECT_EQ(exitCode, ExitFailure);
    EXPECT_TRUE(told.contains("Error: Las contraseñas no coinciden (5)")) << told.constData();
}

TEST_F(AdminProcess, InterruptingTheQuestionChangesNothing) {
    int exitCode = -1;
    const QByteArray told = typed(desk.folder(), "Clave\x03", &exitCode);
    EXPECT_EQ(exitCode, ExitFailure);
    EXPECT_TRUE(told.contains("Error: Cancelado")) << told.constData();
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM ses_usuario"_s), u"0"_s);
}

} // namespace
