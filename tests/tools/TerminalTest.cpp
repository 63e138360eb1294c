// The program at a terminal, where it asks for passwords.
#include "tests/tools/AdminProcess.h"

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using namespace quorvane::admin::test;

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
