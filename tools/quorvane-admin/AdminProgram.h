#pragma once

#include "tools/quorvane-admin/Order.h"
#include <QString>
#include <QStringList>
#include <functional>

class QTextStream;

namespace quorvane::admin {

/// The ERP's administrator: reads its command line, does one thing, tells it in Spanish. What it can do
/// stands in the tables of orders, a file for each group; this class finds the order and tells what went
/// wrong.
class AdminProgram {
public:
    /// `password` supplies a new password when an order needs one.
    AdminProgram(QTextStream& out, QTextStream& errors, std::function<QString()> password)
        : m_out(out), m_errors(errors), m_password(std::move(password)) {}

    /// Runs the order in `arguments` (without the program's name) and returns the exit code.
    int run(const QStringList& arguments);

private:
    int perform(const Order& order, const CommandLine& line);
    int help(const QString& orderName);
    int usage(const QString& why);

    QTextStream& m_out;
    QTextStream& m_errors;
    std::function<QString()> m_password;
};

} // namespace quorvane::admin
