#pragma once

#include "platform/quorvane32/session/AuditTrail.h"
#include <QDateTime>
#include <QString>
#include <utility>
#include <vector>

namespace quorvane {

class Connection;

struct UserRecord {
    QString code;
    QString name;
    QDateTime lockedUntil; ///< invalid when not locked
    /// Program and letters, by program.
    std::vector<std::pair<QString, QString>> rights;
};

/// Keeps the session's users. Every operation is one transaction. Errors: 5 for a value that is not allowed,
/// 3265 for an unknown user, 2627 for a new user who is there already, the database's own.
class Administration {
public:
    explicit Administration(Connection& connection) : m_connection(connection) {}

    static constexpr int shortestPassword = 8;

    std::vector<UserRecord> users(const QDateTime& now);
    void addUser(const QString& code, const QString& name, const QString& password);
    /// Takes the rights away as well.
    void removeUser(const QString& code);
    /// Forgets failed attempts and lock, too.
    void setPassword(const QString& code, const QString& password);
    /// `letters` are four: R, W, X, D in this order, in any case, each or "-".
    void setRights(const QString& code, const QString& program, const QString& letters);
    void unlock(const QString& code);
    /// The last entries of the audit trail, oldest first.
    std::vector<AuditEntry> lastAuditEntries(int count);

private:
    void update(const QString& code, const QString& assignments);

    Connection& m_connection;
};

} // namespace quorvane
