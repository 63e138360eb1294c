#include "tests/quorvane32_session/SessionSupport.h"

#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "platform/quorvane32/session/Passwords.h"
#include "sql/Schema.h"
#include <QFile>

namespace quorvane::test {

namespace {

/// Made once: a hash is slow by design.
const QString& passwordHash() {
    static const QString hash = hashPassword(QString::fromUtf16(password));
    return hash;
}

} // namespace

SessionFolder::~SessionFolder() {
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

SessionFolder::SessionFolder(TestEngine engine) : m_engine(engine) {
    if (m_engine == TestEngine::Sqlite)
        createFile();
    else
        m_server = std::make_unique<TestDatabase>(m_engine);
    QString rows = QStringLiteral("INSERT INTO ses_empresa VALUES ('001', 'Viento Norte');"
                                  "INSERT INTO ses_empresa VALUES ('002', 'Bebidas del Sur');"
                                  "INSERT INTO ses_derecho VALUES ('ana', 'VELTRANO', 'RWXD');"
                                  "INSERT INTO ses_derecho VALUES ('luis', 'VELTRANO', 'R---')");
    for (const char* user : {"ana", "luis", "sin"})
        rows += QStringLiteral(";INSERT INTO ses_usuario (Usuario, Clave) VALUES ('%1', '%2')")
                    .arg(QLatin1String(user), passwordHash());
    execute(rows);
    setAutomatic(QString());
}

void SessionFolder::createFile() const {
    const auto handle = sqlite::open(database(), sqlite::Access::Create, 0);
    sqlite::run(handle.get(), "PRAGMA journal_mode = WAL");
    sqlite::run(handle.get(), dalvora::erpTables());
    sqlite::run(handle.get(), dalvora::sessionTables());
}

QString SessionFolder::connectString(int timeout) const {
    return m_server ? m_server->connectString(timeout)
                    : QStringLiteral("Driver=sqlite;Timeout=%1;Database=%2").arg(timeout).arg(database());
}

void SessionFolder::setAutomatic(const QString& user) {
    Profile profile;
    profile.connectString =
        m_server ? connectString() : QStringLiteral("Driver=sqlite;Database=quorvane.db;Timeout=5000");
    profile.companies = {QStringLiteral("001"), QStringLiteral("002")};
    profile.defaultCompany = QStringLiteral("001");
    profile.user = user;
    profile.automatic = !user.isEmpty();
    profile.save(path());
}

void SessionFolder::writeProfile(const QByteArray& text) const {
    QFile file(profileFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void SessionFolder::execute(const QString& sql) const {
    if (m_server) {
        m_server->run(sql);
        return;
    }
    const auto handle = sqlite::open(database(), sqlite::Access::ReadWrite, 5000);
    sqlite::run(handle.get(), sql.toUtf8());
}

QStringList SessionFolder::rows(const QString& sql) const {
    Connection connection;
    connection.open(connectString());
    QStringList found;
    for (Recordset row = connection.openRecordset(sql); !row.eof(); row.moveNext()) {
        QStringList values;
        for (int i = 0; i < row.fieldCount(); ++i)
            values += row.value(i).toText(RegionalSettings());
        found += values.join(u'|');
    }
    return found;
}

void SessionFolder::letOthers(Files files, Folder folder) const {
    using enum QFileDevice::Permission;
    const auto read = ReadOwner | ReadOther;
    const auto write = WriteOwner | WriteOther;
    const auto enter = ExeOwner | ExeOther;
    // For its owner, too: the tests need not run as the superuser.
    QFile::setPermissions(database(), files == Files::Write ? read | write : read);
    QFile::setPermissions(profileFile(), read);
    QFile::setPermissions(path(), folder == Folder::Write ? read | enter | write : read | enter);
}

WriteLock::WriteLock(const SessionFolder& folder) {
    m_connection.open(folder.connectString());
    m_connection.beginTrans();
    // A server locks rows, or whole tables when it is asked to; a file has one lock for all.
    if (folder.engine() == TestEngine::TestSqlServer)
        m_connection.execute(QStringLiteral("DELETE FROM ses_auditoria WHERE 1 = 0"));
    else if (!folder.isFile())
        m_connection.execute(QStringLiteral("LOCK TABLE ses_usuario, ses_auditoria IN EXCLUSIVE MODE"));
}

WriteLock::~WriteLock() {
    m_connection.rollbackTrans();
}

bool PreparedPrompt::ask(const LoginQuestion& question, const LoginAttempt& attempt) {
    questions.push_back(question);
    for (const LoginAnswer& answer : answers) {
        const QString refusal = attempt(answer);
        if (refusal.isEmpty())
            return true;
        refusals.append(refusal);
    }
    return false;
}

ErpSession::Clock StoppedClock::clock() {
    return {[this] { return wall; }, [this] { return steady; }};
}

void StoppedClock::pass(int seconds) {
    wall = wall.addSecs(seconds);
    steady += std::chrono::seconds(seconds);
}

} // namespace quorvane::test
