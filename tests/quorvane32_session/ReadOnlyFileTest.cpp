// A database that the user may only read. The tests may be the superuser's, whom no permission stops: the
// work is done by a process that gave its privileges up.
#include "platform/quorvane32/session/ErpSession.h"

#include "tests/quorvane32_session/SessionSupport.h"
#include <QFile>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace quorvane;
using namespace quorvane::test;

/// Runs `work` in a process without the superuser's privileges and returns its text, "" for an empty one; an
/// error that leaves it comes back as its description.
QString asUnprivileged(const std::function<QString()>& work) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        constexpr unsigned nobody = 65534;
        QString result;
        try {
            if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
                result = QStringLiteral("privileges kept");
            else
                result = work();
        } catch (const RunTimeError& error) {
            result = QString::number(error.number()) + u' ' + error.description();
        }
        const QByteArray text = result.toUtf8();
        _exit(write(ends[1], text.constData(), static_cast<std::size_t>(text.size())) == text.size() ? 0 : 1);
    }
    close(ends[1]);
    QFile file;
    EXPECT_TRUE(file.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    QString result = QString::fromUtf8(file.readAll());
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    return result;
}

/// What an unprivileged program sees of a database that it may only read: "" when all is well, else what is
/// not.
QString readOnlyFault(const QString& folder) {
    ErpSession session(folder, nullptr);
    Connection connection;
    bool cancel = false;
    session.Initialize(connection, {}, QStringLiteral("VELTRANO"), {}, {}, cancel);
    if (!session.Warning().contains(u"es de sólo lectura"))
        return QStringLiteral("no warning");
    if (session.AccessRights() != QStringLiteral("R-X-"))
        return QStringLiteral("rights ") + session.AccessRights();
    session.Audit(AuditRead, QStringLiteral("x"));
    if (session.WaitingAuditEntries() != 1)
        return QStringLiteral("audit entry not kept");
    const Recordset rows = connection.openRecordset(QStringLiteral("SELECT count(*) FROM ses_empresa"));
    return rows.value(0).toText({}) == u"2" ? QString() : QStringLiteral("nothing read");
}

class ReadOnlyFile : public testing::Test {
protected:
    void SetUp() override { folder.setAutomatic(QStringLiteral("ana")); }
    SessionFolder folder{TestEngine::Sqlite};
};

TEST_F(ReadOnlyFile, AReadOnlyFileOpensForReadingAndSaysSo) {
    folder.letOthers(SessionFolder::Files::Read, SessionFolder::Folder::Write);
    EXPECT_EQ(asUnprivileged([&] { return readOnlyFault(folder.path()); }), QString());
}

TEST_F(ReadOnlyFile, AReadOnlyFolderIsToldClearly) {
    folder.letOthers(SessionFolder::Files::Read, SessionFolder::Folder::Read);
    const QString told = asUnprivileged([&] { return readOnlyFault(folder.path()); });
    EXPECT_TRUE(told.startsWith(u"70 No se puede usar la base de datos ")) << qPrintable(told);
    EXPECT_TRUE(told.contains(u"su carpeta es de sólo lectura")) << qPrintable(told);
}

} // namespace
