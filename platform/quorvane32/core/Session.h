#pragma once

#include <QString>

namespace quorvane {

class Connection;

/// What a program tells the session about itself.
struct ApplicationInfo {
    /// Folder of the program, without a trailing separator.
    QString path;
    /// Name or full path of the help file.
    QString helpFile;
    int major = 0;
    int minor = 0;
    int revision = 0;
};

/// Event codes of the audit trail.
enum AuditCode : int {
    AuditStart = 2,
    AuditEnd = 3,
    AuditDelete = 4,
    AuditChange = 5,
    AuditCreate = 6,
    AuditRead = 7,
};

/// The ERP's session service as its programs use it: who is signed in to which company with which rights, and
/// the audit trail. Programs and tests see this interface; ErpSession is the real one.
class Session {
public:
    virtual ~Session() = default;

    virtual void SetApplication(const ApplicationInfo& application) = 0;
    /// Any text that identifies the client machine.
    virtual void SetClientInfo(const QString& info) = 0;
    /// Signs the user in to a company and opens the connection, which must outlive the session's use: the
    /// session begins and ends what is read over it. `cancel` comes back true when the user gave up. Errors
    /// of the profile and of the database leave it as RunTimeError.
    virtual void Initialize(Connection& connection, const QString& module, const QString& program,
                            const QString& version, const QString& company, bool& cancel) = 0;
    virtual QString CompanyName() const = 0;
    virtual QString CompanyCode() const = 0;
    /// Code of the user signed in.
    virtual QString UserName() const = 0;
    /// Four letters R, W, X, D (read, write, execute, delete), each replaced by "-" where it is not granted.
    /// Asked for when an operation begins: what it then reads is one state of the database.
    virtual QString AccessRights() const = 0;
    /// What the user should be told once after signing in, in Spanish; "" for nothing.
    virtual QString Warning() const { return {}; }
    /// Adds an entry to the audit trail. What has been committed stays committed whatever becomes of its
    /// entry: an entry that cannot be stored now is kept and stored with the next one.
    virtual void Audit(int code, const QString& text) = 0;
};

} // namespace quorvane
