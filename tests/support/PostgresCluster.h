#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace dalvora::test {

/// A PostgreSQL server of the test's own: a new cluster in a temporary folder that listens on a socket in it
/// and nowhere else, unless it is given a port of this machine. It ends with the test program however that
/// ends: its keeper waits for the end of a pipe that the system closes with the program. The server refuses
/// to run as the superuser, so it then runs as the package's user.
class PostgresCluster {
public:
    explicit PostgresCluster(int port = 0);
    ~PostgresCluster();
    PostgresCluster(const PostgresCluster&) = delete;
    PostgresCluster& operator=(const PostgresCluster&) = delete;

    /// The folder of the socket: what a connect string gives as its host.
    QString host() const { return m_folder.path(); }
    /// The connect string of a database, as the owner of the cluster.
    QString connectString(const QString& database) const;

    /// Kills the server as a crash or a power cut would, then starts it again on the same data.
    void kill();
    void start();
    /// Returns when the server takes connections, as it does a moment after one of its processes was killed.
    void waitUntilReady() const;

    /// A word that names no other database of this cluster.
    QString freshName() { return QStringLiteral("t%1").arg(++m_names); }

private:
    void makeFolder();

    int m_port;
    QTemporaryDir m_folder;
    QProcess m_keeper;
    int m_names = 0;
};

} // namespace dalvora::test
