// A newcomer follows docs/postgresql.md: the commands of the page, as they stand there, bring the
// demonstration company from the embedded database to a server, and two users sign in side by side.
#include "demo/Database.h"
#include "demo/Demonstration.h"
#include "platform/quorvane32/session/ErpSession.h"
#include "tests/support/PostgresCluster.h"
#include "tests/support/QtPrinters.h"
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using namespace quorvane;
using namespace Qt::StringLiterals;
using dalvora::test::PostgresCluster;

/// A port of this machine that nobody uses.
int freePort() {
    const int handle = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    bind(handle, reinterpret_cast<sockaddr*>(&address), sizeof address);
    getsockname(handle, reinterpret_cast<sockaddr*>(&address), &length);
    close(handle);
    return ntohs(address.sin_port);
}

/// The shell commands of the page's section on the move, in their order.
QString commandsOfThePage() {
    QFile page(QStringLiteral(PAGE));
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    const QString section =
        text.section(u"\n## The demonstration company moves to a server\n"_s, 1).section(u"\n## "_s, 0, 0);
    QString commands;
    bool inside = false;
    for (const QString& line : section.split(u'\n')) {
        const QString words = line.trimmed();
        if (words.startsWith(u"```"_s))
            inside = words == u"```sh"_s;
        else if (inside)
            commands += (line.startsWith(u"   "_s) ? line.mid(3) : line) + u'\n';
    }
    return commands;
}

/// Types a user's name and password into the login window.
class Person final : public LoginPrompt {
public:
    Person(QString user, QString password) : m_user(std::move(user)), m_password(std::move(password)) {}
    bool ask(const LoginQuestion& question, const LoginAttempt& attempt) override {
        refusal = attempt({question.company, m_user, m_password});
        return refusal.isEmpty();
    }
    QString refusal;

private:
    QString m_user;
    QString m_password;
};

class Newcomer : public testing::Test {
protected:
    void SetUp() override {
        QCoreApplication::addLibraryPath(QFileInfo(QStringLiteral(ADMIN_PROGRAM)).path());
        cluster.emplace(port);
        // What the first start of the program makes.
        QDir().mkpath(home.filePath(u".config/quorvane"_s));
        dalvora::demo::createDemonstration(home.filePath(u".config/quorvane"_s));
        // The server's administrator at his own socket, since a test may not be the system's.
        writeProgram(
            u"sudo"_s,
            u"#!/bin/sh\nshift 3\nexec psql -h %1 -U quorvane -d postgres -v ON_ERROR_STOP=1 \"$@\"\n"_s.arg(
                cluster->host()));
        qputenv("PGPORT", QByteArray::number(port));
        qputenv("PGPASSFILE", home.filePath(u".pgpass"_s).toUtf8());
    }
    void writeProgram(const QString& name, const QString& text) const {
        QDir().mkpath(home.filePath(u"bin"_s));
        QFile file(home.filePath(u"bin/"_s + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    /// Runs commands in a shell whose home is the newcomer's; what they print, in order.
    QString shell(const QString& commands) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, home.path());
        environment.insert(u"PATH"_s, home.filePath(u"bin"_s) + u':' +
                                          QFileInfo(QStringLiteral(ADMIN_PROGRAM)).path() + u':' +
                                          environment.value(u"PATH"_s));
        environment.remove(u"QUORVANE_HOME"_s);
        environment.remove(u"XDG_CONFIG_HOME"_s);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(u"sh"_s, {u"-e"_s});
        process.write(commands.toUtf8());
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(60000));
        const QString told = QString::fromUtf8(process.readAll());
        EXPECT_EQ(process.exitCode(), 0) << qPrintable(told);
        return told;
    }

    int port = freePort();
    QTemporaryDir home;
    std::optional<PostgresCluster> cluster;
};

TEST_F(Newcomer, WhoFollowsThePageSignsInAsTwoUsersSideBySide) {
    const QString commands = commandsOfThePage();
    for (const auto* command : {u"sudo -u postgres psql", u"quorvane-admin --perfil ~/servidor tablas",
                                u"quorvane-admin trasladar 001 --a ~/servidor --usuarios --auditoria"})
        ASSERT_TRUE(commands.contains(QString::fromUtf16(command))) << qPrintable(commands);
    const QString told = shell(commands);
    EXPECT_TRUE(told.contains(u"documentod            2179 filas")) << qPrintable(told);
    EXPECT_TRUE(told.endsWith(u"La revisión no encontró nada que corregir.\n")) << qPrintable(told);

    const QString folder = home.filePath(u"servidor"_s);
    Person first(u"demo"_s, u"Demo-1996"_s);
    Person second(u"lectura"_s, u"Lectura-1996"_s);
    ErpSession demo(folder, &first);
    ErpSession lectura(folder, &second);
    Connection ofDemo;
    Connection ofLectura;
    bool cancelled = true;
    demo.Initialize(ofDemo, {}, u"VELTRANO"_s, {}, {}, cancelled);
    ASSERT_FALSE(cancelled) << qPrintable(first.refusal);
    lectura.Initialize(ofLectura, {}, u"VELTRANO"_s, {}, {}, cancelled);
    ASSERT_FALSE(cancelled) << qPrintable(second.refusal);
    EXPECT_EQ(demo.AccessRights(), u"RWXD"_s);
    EXPECT_EQ(lectura.AccessRights(), u"R---"_s);
    EXPECT_EQ(lectura.CompanyName(), u"Comercial Viento Norte S.A."_s);
    EXPECT_EQ(ofLectura.openRecordset(u"SELECT current_database() AS b"_s).value(0).toText({}),
              u"comercial"_s);
    // What one changes the other sees with his next command.
    QCoreApplication::processEvents();
    EXPECT_EQ(ofDemo.execute(u"UPDATE Comisiones SET Descripcion = 'Del servidor' WHERE Codigo = 'mixta'"_s),
              1);
    EXPECT_EQ(ofLectura.openRecordset(u"SELECT Descripcion FROM Comisiones WHERE Codigo = 'MIXTA'"_s)
                  .value(0)
                  .toText({}),
              u"Del servidor"_s);
    // A user of the embedded database still finds it as it was.
    EXPECT_TRUE(shell(u"quorvane-admin revisar"_s).contains(u"Base de datos propia"));
}

} // namespace
