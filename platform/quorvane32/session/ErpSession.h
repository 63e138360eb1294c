#pragma once

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/session/Accounts.h"
#include "platform/quorvane32/session/AuditTrail.h"
#include "platform/quorvane32/session/LoginPrompt.h"
#include "platform/quorvane32/session/Profile.h"
#include <QDateTime>
#include <QString>
#include <chrono>
#include <functional>
#include <optional>

namespace quorvane {

/// The session over a profile and the session's tables.
///
/// It keeps a connection of its own beside the program's: an audit entry or a look at the rights never stands
/// in the program's transaction, never touches the errors and affected rows of the program's last statement,
/// and waits for another program's lock only shortly.
class ErpSession final : public Session {
public:
    /// The clocks, so that tests need not wait.
    struct Clock {
        std::function<QDateTime()> wall = [] { return QDateTime::currentDateTime(); };
        std::function<std::chrono::steady_clock::time_point()> steady = [] {
            return std::chrono::steady_clock::now();
        };
    };

    /// `profileFolder` holds quorvane.ini. `prompt` (not owned) asks who signs in; a null one means that
    /// nobody can be asked.
    ErpSession(QString profileFolder, LoginPrompt* prompt);
    ErpSession(QString profileFolder, LoginPrompt* prompt, Clock clock);

    void SetApplication(const ApplicationInfo& application) override { m_application = application; }
    void SetClientInfo(const QString& info) override { m_client = info; }
    /// Errors: those of Profile::load; 5 for a company, user or program that may not be signed in to and
    /// nobody to ask; 3343 for a database of another layout; the database's own.
    void Initialize(Connection& connection, const QString& module, const QString& program,
                    const QString& version, const QString& company, bool& cancel) override;
    QString CompanyName() const override { return m_company.name; }
    QString CompanyCode() const override { return m_company.code; }
    QString UserName() const override { return m_user; }
    /// Read anew when a second has passed, so that a right withdrawn meanwhile is gone; "----" for a user who
    /// was removed. While the database cannot be read they stay what they were. A program asks for them when
    /// an operation begins: what it then reads from its connection is one state of the database.
    QString AccessRights() const override;
    /// A database that cannot be written is opened for reading: then this says so, and the rights hold
    /// neither W nor D.
    QString Warning() const override { return m_warning; }
    void Audit(int code, const QString& text) override;

    /// Audit entries that could not be stored yet.
    std::size_t WaitingAuditEntries() const { return m_audit.waiting(); }

private:
    void openOwn(const QString& connectString);
    bool signIn(const QString& company);
    void signInAutomatically(const QString& company);
    bool askWhoSignsIn(const QString& company);
    QString attempt(const LoginAnswer& answer);
    const Company* findCompany(const QString& code) const;
    void noticeReadOnly();
    QString readRights() const;

    QString m_folder;
    LoginPrompt* m_prompt;
    Clock m_clock;
    ApplicationInfo m_application;
    QString m_client;
    Profile m_profile;
    Connection* m_programs = nullptr; ///< the program's connection
    mutable Connection m_own;
    mutable Accounts m_accounts{m_own};
    AuditTrail m_audit{m_own};
    std::vector<Company> m_companies;
    Company m_company;
    QString m_user;
    QString m_program;
    QString m_warning;
    bool m_readOnly = false;
    mutable QString m_rights;
    mutable std::optional<std::chrono::steady_clock::time_point> m_rightsRead;
};

} // namespace quorvane
