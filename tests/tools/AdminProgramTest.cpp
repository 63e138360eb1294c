#include "tools/quorvane-admin/AdminProgram.h"

#include "demo/Database.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Accounts.h"
#include "platform/quorvane32/session/Profile.h"
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <gtest/gtest.h>

namespace {

using namespace quorvane;
using namespace quorvane::admin;

class AdminProgramTest : public testing::Test {
protected:
    void SetUp() override {
        dalvora::demo::createEmptyDatabase(m_folder.filePath(QStringLiteral("quorvane.db")));
        Profile profile;
        profile.connectString = QStringLiteral("Driver=sqlite;Database=quorvane.db");
        profile.companies = {QStringLiteral("001")};
        profile.defaultCompany = QStringLiteral("001");
        profile.save(m_folder.path());
    }

    int run(const char* words) {
        QStringList arguments{QStringLiteral("--perfil"), m_folder.path()};
        arguments += QString::fromUtf8(words).split(u' ', Qt::SkipEmptyParts);
        out.clear();
        errors.clear();
        QTextStream outStream(&out);
        QTextStream errorStream(&errors);
        return AdminProgram(outStream, errorStream, [this] { return password; }).run(arguments);
    }
    QString folder() const { return m_folder.path(); }

    QString password = QStringLiteral("Una-larga-1");
    QString out;
    QString errors;

private:
    QTemporaryDir m_folder;
};

TEST_F(AdminProgramTest, KeepsAUserFromHireToRetire) {
    EXPECT_EQ(run("alta eva Eva"), ExitSuccess);
    EXPECT_EQ(out, QStringLiteral("Usuario «eva» creado, todavía sin derechos.\n"));
    EXPECT_EQ(run("derechos eva veltrano rw-d"), ExitSuccess);
    EXPECT_EQ(run("usuarios"), ExitSuccess);
    EXPECT_TRUE(out.contains(u"eva")) << qPrintable(out);
    EXPECT_TRUE(out.contains(u"VELTRANO RW-D"));
    Connection connection;
    connection.open(Profile::load(folder()).resolvedConnectString(folder()));
    Accounts accounts(connection);
    const QDateTime now = QDateTime::currentDateTime();
    for (int i = 0; i < 3; ++i)
        accounts.refusal(QStringLiteral("eva"), QStringLiteral("mala"), now);
    EXPECT_EQ(run("usuarios"), ExitSuccess);
    EXPECT_TRUE(out.contains(u"bloqueado hasta "));
    EXPECT_EQ(run("desbloquear eva"), ExitSuccess);
    EXPECT_EQ(accounts.refusal(QStringLiteral("eva"), password, now), QString());
    password = QStringLiteral("Otra-larga-2");
    EXPECT_EQ(run("clave eva"), ExitSuccess);
    EXPECT_EQ(accounts.refusal(QStringLiteral("eva"), password, now), QString());
    EXPECT_EQ(run("baja eva"), ExitSuccess);
    EXPECT_EQ(run("usuarios"), ExitSuccess);
    EXPECT_EQ(out, QString());
}

TEST_F(AdminProgramTest, EveryChangeStandsInTheAuditTrailWithoutPasswords) {
    run("alta eva");
    run("derechos eva VELTRANO R---");
    EXPECT_EQ(run("auditoria 1"), ExitSuccess);
    EXPECT_TRUE(out.contains(u"QUORVANE-ADMIN    5  USUARIO:eva:DERECHOS:VELTRANO:R---")) << qPrintable(out);
    EXPECT_EQ(out.count(u'\n'), 1);
    run("auditoria");
    EXPECT_EQ(out.count(u'\n'), 2);
    EXPECT_FALSE(out.contains(password));
}

TEST_F(AdminProgramTest, TellsMistakesInSpanishWithAnExitCode) {
    EXPECT_EQ(run(""), ExitUsage);
    EXPECT_TRUE(errors.contains(u"Uso: quorvane-admin"));
    EXPECT_EQ(run("borrar todo"), ExitUsage);
    EXPECT_TRUE(errors.contains(u"orden desconocida «borrar»"));
    EXPECT_EQ(run("derechos eva"), ExitUsage);
    EXPECT_EQ(run("baja eva"), ExitFailure);
    EXPECT_EQ(errors, QStringLiteral("Error: El usuario «eva» no existe (3265)\n"));
    EXPECT_EQ(run("auditoria muchas"), ExitFailure);
    password = QStringLiteral("corta");
    EXPECT_EQ(run("alta eva"), ExitFailure);
    EXPECT_EQ(errors, QStringLiteral("Error: La contraseña debe tener al menos 8 caracteres (5)\n"));
}

TEST_F(AdminProgramTest, TheProgramReadsThePasswordFromItsInput) {
    QProcess program;
    program.start(QStringLiteral(ADMIN_PROGRAM),
                  {QStringLiteral("--perfil"), folder(), QStringLiteral("alta"), QStringLiteral("eva"),
                   QStringLiteral("Eva Núñez")});
    program.write("Contraseña-de-eva\n");
    program.closeWriteChannel();
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), ExitSuccess);
    EXPECT_EQ(program.readAllStandardOutput(), QByteArray("Usuario «eva» creado, todavía sin derechos.\n"));
    Connection connection;
    connection.open(Profile::load(folder()).resolvedConnectString(folder()));
    EXPECT_EQ(Accounts(connection)
                  .refusal(QStringLiteral("eva"), QStringLiteral("Contraseña-de-eva"),
                           QDateTime::currentDateTime()),
              QString());
}

TEST(AdminProgram, WithoutAProfileSaysWhichFileIsMissing) {
    const QTemporaryDir empty;
    QString out;
    QString errors;
    QTextStream outStream(&out);
    QTextStream errorStream(&errors);
    AdminProgram program(outStream, errorStream, [] { return QString(); });
    EXPECT_EQ(program.run({QStringLiteral("--perfil"), empty.path(), QStringLiteral("usuarios")}),
              ExitFailure);
    EXPECT_TRUE(errors.contains(u"No se encontró el perfil ")) << qPrintable(errors);
}

} // namespace
