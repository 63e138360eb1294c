#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QTextStream;

namespace quorvane::admin {

enum ExitCode : int { ExitSuccess = 0, ExitFailure = 1, ExitUsage = 2 };

/// The session's administrator: reads its command line, does one thing, tells it in Spanish.
class AdminProgram {
public:
    /// `password` supplies a new password when an order needs one.
    AdminProgram(QTextStream& out, QTextStream& errors, std::function<QString()> password)
        : m_out(out), m_errors(errors), m_password(std::move(password)) {}

    /// Runs the order in `arguments` (without the program's name) and returns the exit code.
    int run(QStringList arguments);

private:
    int perform(const QString& folder, const QStringList& order);
    int usage(const QString& why);

    QTextStream& m_out;
    QTextStream& m_errors;
    std::function<QString()> m_password;
};

} // namespace quorvane::admin
