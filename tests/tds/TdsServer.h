#pragma once

#include "tests/tds/Faults.h"
#include <QHash>
#include <QString>
#include <QStringList>
#include <atomic>
#include <list>
#include <mutex>
#include <thread>

namespace dalvora::test::tds {

class ClientLink;
struct LoginRequest;

/// A stand-in for the ERP's server in tests: it speaks so much of TDS 7.4 that a client's driver signs in,
/// sends batches and transactions, and gets typed rows, counts and the server's error numbers. The statements
/// are run by this program's embedded engine on SQLite files, not by a server's parser or optimiser: what it
/// proves is the path through the driver, never what a server makes of a statement.
///
/// Listens on this machine alone, at a port of its own, from its construction to its end; a thread serves
/// each client. All operations may be called while clients work.
class TdsServer {
public:
    TdsServer();
    ~TdsServer();
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;

    quint16 port() const { return m_port; }
    void addLogin(const QString& user, const QString& password);
    /// Offers an SQLite file as a database of this name.
    void addDatabase(const QString& name, const QString& path);
    /// Turns newcomers away as from a database that is missing; who is in stays.
    void closeDatabase(const QString& name);
    /// Cuts its clients and waits until they have let go of its file.
    void removeDatabase(const QString& name);
    /// What it tells about its age: 15 unless told otherwise.
    void setMajorVersion(int version) { m_majorVersion = version; }
    /// Whether its databases allow transactions that see one state.
    void allowSnapshots(bool allow) { m_allowsSnapshots = allow; }

    Faults& faults() { return m_faults; }
    /// Cuts the links of all clients now.
    void cutAll();
    /// Clients whose link is open.
    int clients();
    /// Every statement since the last call, in the order of arrival.
    QStringList takeStatements();

private:
    struct Client {
        int socket = -1;
        QString file; ///< of the database that it signed in to
        std::thread thread;
        std::atomic<bool> ended = false;
    };

    void listen();
    void accept();
    void forgetEnded();
    void serve(Client& client);
    void talk(Client& client, ClientLink& link);
    void shakeHands(ClientLink& link);
    /// The file of the database that a client signed in to; empty when it was turned away.
    QString signIn(ClientLink& link, const LoginRequest& login);

    std::atomic<bool> m_ends = false;
    std::atomic<int> m_majorVersion = 15;
    std::atomic<bool> m_allowsSnapshots = true;
    int m_listener = -1;
    quint16 m_port = 0;
    Faults m_faults;
    std::mutex m_mutex; ///< guards what follows
    QHash<QString, QString> m_passwords;
    QHash<QString, QString> m_files;
    QStringList m_closed;
    QStringList m_statements;
    std::list<Client> m_clients;
    std::thread m_thread;
};

} // namespace dalvora::test::tds
