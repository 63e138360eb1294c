#pragma once

#include "platform/quorvane32/session/LoginPrompt.h"
#include <QDateTime>
#include <QString>
#include <utility>
#include <vector>

namespace quorvane {

class Connection;

struct UserRecord {
    QString code;
    QString name;
    QDateTime lockedUntil; ///< after wrong passwords; invalid when not locked so
    bool locked = false;   ///< by an administrator, until unlock()
    /// Program and letters, by program.
    std::vector<std::pair<QString, QString>> rights;
};

/// Keeps the session's users and companies. Every operation is one transaction. Errors: 5 for a value that is
/// not allowed, 3265 for an unknown user, 2627 for a new user or company that is there already, the
/// database's own.
class Administration {
public:
    explicit Administration(Connection& connection) : m_connection(connection) {}

    static constexpr int shortestPassword = 8;

    std::vector<UserRecord> users(const QDateTime& now);
    void addUser(const QString& code, const QString& name, const QString& password);
    /// Takes the rights away as well.
    void removeUser(const QString& code);
    /// Error 3265 for an unknown user, so that it is told before a password is asked for.
    void requireUser(const QString& code);
    /// Forgets failed attempts and their lock, too; an administrator's lock stays.
    void setPassword(const QString& code, const QString& password);
    /// `letters` are four: R, W, X, D in this order, in any case, each or "-".
    void setRights(const QString& code, const QString& program, const QString& letters);
    /// Keeps the user out until unlock(); who is signed in loses all rights within a second.
    void lock(const QString& code);
    /// Ends either kind of lock.
    void unlock(const QString& code);

    std::vector<Company> companies();
    /// Makes a company known that has its rows in the ERP's tables, or will have them.
    void addCompany(const QString& code, const QString& name);

private:
    void update(const QString& code, const QString& assignments);

    Connection& m_connection;
};

} // namespace quorvane
