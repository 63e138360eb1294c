#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace quorvane {

struct Company {
    QString code;
    QString name;
};

/// What the session asks of a person.
struct LoginQuestion {
    /// Companies to choose from.
    std::vector<Company> companies;
    /// The company offered.
    QString company;
    /// False when the program was started for this company: then it is not asked for.
    bool askCompany = true;
    /// The user offered; "" for none.
    QString user;
    /// Shown from the start: why the question is put ("" for no reason).
    QString message;
};

struct LoginAnswer {
    QString company;
    QString user;
    QString password;
};

/// Tries to sign in and returns why it was refused in Spanish, "" when it was not. Never raises.
using LoginAttempt = std::function<QString(const LoginAnswer&)>;

/// Asks a person who he is. The login window is one; tests answer for the person.
class LoginPrompt {
public:
    virtual ~LoginPrompt() = default;
    /// Asks until an attempt succeeds (true) or the person gives up (false).
    virtual bool ask(const LoginQuestion& question, const LoginAttempt& attempt) = 0;
};

} // namespace quorvane
