#pragma once

#include <QString>
#include <deque>

namespace quorvane {

class Connection;

struct AuditEntry {
    QString moment; ///< local time, yyyy-mm-dd hh:mm:ss.zzz
    QString user;
    QString company;
    QString program;
    int code = 0;
    QString text;
    QString client; ///< the machine, as the program told it
};

/// Writes the audit trail. What it tells has happened already, so a failure to write is no error: the entry
/// waits, in order, for the next one. A thousand wait at most; beyond that the oldest go, and an entry says
/// how many.
class AuditTrail {
public:
    explicit AuditTrail(Connection& connection) : m_connection(connection) {}

    static constexpr std::size_t mostWaiting = 1000;

    void add(AuditEntry entry);
    /// Tries to store what waits; true when nothing waits any more. Never raises.
    bool store() noexcept;
    std::size_t waiting() const { return m_waiting.size(); }

private:
    void storeAll();
    /// False when the connection was lost.
    bool tryStore() noexcept;

    Connection& m_connection;
    std::deque<AuditEntry> m_waiting;
    qint64 m_lost = 0;
    bool m_away = false; ///< the last attempt did not reach the database
};

} // namespace quorvane
