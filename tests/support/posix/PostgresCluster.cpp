#include "tests/support/PostgresCluster.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include <QCoreApplication>
#include <QFile>
#include <QThread>
#include <unistd.h>

namespace dalvora::test {

namespace {

constexpr int longestWait = 60000;

/// Makes the cluster; $1 is its folder, the rest runs a program as the server's user. Texts are ordered as in
/// Spanish, and nothing waits for the disk.
constexpr const char* makeScript = R"(
folder=$1; shift
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
"$@" "$bin/initdb" -D "$folder/data" -U quorvane -A trust -E UTF8 --locale=C.UTF-8 --locale-provider=icu \
    --icu-locale=es --no-sync --no-instructions >"$folder/initdb.log" 2>&1 || exit 1
"$@" sh -c 'cat >"$0/data/pg_hba.conf"' "$folder" <<END
local all quorvane trust
local all all scram-sha-256
host all all localhost scram-sha-256
END
)";

/// Runs the server until the pipe at its input is closed. $LISTEN is where it listens besides.
constexpr const char* keepScript = R"(
folder=$1; shift
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
"$@" "$bin/postgres" -D "$folder/data" $LISTEN -c unix_socket_directories="$folder" \
    -c fsync=off -c full_page_writes=off -c max_connections=120 -c log_min_messages=fatal \
    -c lc_messages=C >>"$folder/server.log" 2>&1 </dev/null &
server=$!
trap : INT TERM HUP
cat >/dev/null
kill -QUIT $server 2>/dev/null
wait $server
[ -e "$folder/stay" ] || rm -rf "$folder"
)";

QStringList asServersUser() {
    if (geteuid() != 0)
        return {QStringLiteral("env")};
    return {QStringLiteral("setpriv"), QStringLiteral("--reuid=postgres"), QStringLiteral("--regid=postgres"),
            QStringLiteral("--clear-groups"), QStringLiteral("env")};
}

QStringList shell(const char* script, const QString& folder) {
    return QStringList{QStringLiteral("-c"), QString::fromLatin1(script), QStringLiteral("sh"), folder} +
           asServersUser();
}

QByteArray log(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

PostgresCluster::PostgresCluster(int port)
    : m_port(port), m_folder(QStringLiteral("/tmp/quorvane-pg-XXXXXX")) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LISTEN"),
                       port == 0 ? QStringLiteral("-c listen_addresses=")
                                 : QStringLiteral("-c listen_addresses=localhost -c port=%1").arg(port));
    m_keeper.setProcessEnvironment(environment);
    makeFolder();
    start();
}

PostgresCluster::~PostgresCluster() {
    m_keeper.closeWriteChannel();
    m_keeper.waitForFinished(longestWait);
}

void PostgresCluster::makeFolder() {
    if (!m_folder.isValid())
        qFatal("no temporary folder for a server");
    if (geteuid() == 0)
        QProcess::execute(QStringLiteral("chown"), {QStringLiteral("postgres:"), m_folder.path()});
    if (QProcess::execute(QStringLiteral("sh"), shell(makeScript, m_folder.path())) != 0)
        qFatal("no PostgreSQL cluster: %s", log(m_folder.filePath(QStringLiteral("initdb.log"))).constData());
}

void PostgresCluster::start() {
    QFile::remove(m_folder.filePath(QStringLiteral("stay")));
    m_keeper.start(QStringLiteral("sh"), shell(keepScript, m_folder.path()));
    waitUntilReady();
}

void PostgresCluster::kill() {
    // The keeper removes the folder of a server that is not to come back.
    QFile stay(m_folder.filePath(QStringLiteral("stay")));
    if (!stay.open(QIODevice::WriteOnly))
        qFatal("cannot write into the server's folder");
    m_keeper.closeWriteChannel();
    m_keeper.waitForFinished(longestWait);
}

void PostgresCluster::waitUntilReady() const {
    constexpr int step = 20;
    for (int waited = 0; waited < longestWait; waited += step) {
        try {
            quorvane::Connection().open(connectString(QStringLiteral("postgres")));
            return;
        } catch (const quorvane::RunTimeError& error) {
            if (error.number() != quorvane::ErrorConnectionLost)
                qFatal("no PostgreSQL server: %s", error.what());
            QThread::msleep(step);
        }
    }
    qFatal("the PostgreSQL server does not start: %s",
           log(m_folder.filePath(QStringLiteral("server.log"))).constData());
}

QString PostgresCluster::connectString(const QString& database) const {
    const QString where =
        QStringLiteral("Driver=postgresql;Host=%1;Database=%2;User=quorvane").arg(host(), database);
    return m_port == 0 ? where : where + QStringLiteral(";Port=%1").arg(m_port);
}

} // namespace dalvora::test
