#pragma once

#include "platform/quorvane32/session/LoginPrompt.h"
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace quorvane {

class Connection;

/// Who may sign in and with which rights, as the session's tables tell it. Three wrong passwords in a row
/// lock a user for five minutes; count and lock stand in the database, so that starting the program again
/// does not help. The database's errors leave the operations as RunTimeError.
class Accounts {
public:
    explicit Accounts(Connection& connection) : m_connection(connection) {}

    static constexpr int mostFailures = 3;
    static constexpr int lockSeconds = 300;
    /// The lock's end of a user whom an administrator has locked: the last second of the year 9999. An older
    /// program takes it for a long lock and keeps the user out as well.
    static constexpr qint64 lockedForGood = 253402300799;
    /// The layout that this program makes, and the oldest that it works with: the number in ses_esquema.
    static constexpr qint64 layoutVersion = 2;
    static constexpr qint64 oldestLayout = 1;

    /// The layout of the database's tables. Error 3343 when it is no database of the ERP.
    qint64 layout(const QString& databaseName);
    /// Error 3343 when this program does not work with the database's layout, or it has none.
    void checkLayout(const QString& databaseName);
    /// The companies with these codes, in their order; codes that the database does not know are left out.
    std::vector<Company> companies(const QStringList& codes);
    /// The user's code as it is stored; nothing for an unknown one.
    std::optional<QString> userCode(const QString& user);
    /// True when an administrator has locked the user.
    bool isLockedForGood(const QString& user);
    /// Why the user may not sign in with this password, in Spanish; "" when he may.
    QString refusal(const QString& user, const QString& password, const QDateTime& now);
    /// The four letters of a user's rights in a program; nothing when none were ever given, or an
    /// administrator has locked the user.
    std::optional<QString> rights(const QString& user, const QString& program);

private:
    void forgetFailures(const QString& user);
    /// Notes a wrong password; true when the user is locked from now on.
    bool noteFailure(const QString& user, const QDateTime& now);
    bool noteUnstoredFailure(const QString& user, const QDateTime& now);

    Connection& m_connection;
    /// Failures that the database could not take (locked, read-only) and the locks that followed from them.
    QHash<QString, int> m_unstoredFailures;
    QHash<QString, QDateTime> m_unstoredLocks;
};

} // namespace quorvane
