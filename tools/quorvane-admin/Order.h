#pragma once

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Profile.h"
#include "tools/quorvane-admin/CommandLine.h"
#include <functional>

class QTextStream;

namespace quorvane::admin {

/// What the program tells the shell. docs/users.md lists them.
enum ExitCode : int {
    ExitSuccess = 0,
    ExitFailure = 1,  ///< an error that was told
    ExitUsage = 2,    ///< a wrong command line: nothing was done
    ExitFindings = 3, ///< a check that found something
};

/// What an order works with: the profile's database and the person's terminal.
struct Desk {
    Connection& connection;
    QString folder; ///< of the profile
    Profile profile;
    QTextStream& out;
    QTextStream& progress; ///< beside the output: how far long work is
    std::function<QString()> password;

    /// The database's name for messages.
    QString database() const;
    /// Adds an entry to the audit trail of a database; never a password.
    void audit(Connection& database, int code, const QString& text, const QString& company = {}) const;
};

/// What an order needs of the database before it begins.
enum class Needs {
    Place,    ///< a database, or the name of an embedded one that can be made
    Database, ///< any
    Tables,   ///< the session's tables in a layout that this program works with
};

/// One order of the command line. Raises RunTimeError for what goes wrong, UsageError for arguments that
/// mean nothing.
struct Order {
    const char16_t* name;
    const char* arguments;
    const char* meaning;
    int least; ///< words behind the order
    int most;
    std::span<const Option> options;
    Needs needs;
    ExitCode (*perform)(Desk& desk, const CommandLine& line);
};

/// Arguments of an order that mean nothing.
class UsageError : public std::exception {
public:
    explicit UsageError(QString text) : m_text(std::move(text)), m_utf8(m_text.toUtf8()) {}
    const QString& text() const { return m_text; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_text;
    QByteArray m_utf8;
};

// The orders, a file for each group.
std::span<const Order> tableOrders();
std::span<const Order> userOrders();
std::span<const Order> auditOrders();
std::span<const Order> moveOrders();
std::span<const Order> checkOrders();

/// Opens the database of a profile for administration: long work is not cut off by the time for a statement
/// that programs use.
void openForAdministration(Connection& connection, const Profile& profile, const QString& folder);

/// Makes the empty file of an embedded database that is not there yet. Error 75 when it cannot be made.
void makeMissingFile(const Profile& profile, const QString& folder);

} // namespace quorvane::admin
