#pragma once

#include <QString>
#include <QStringView>
#include <optional>

namespace dalvora {

class DBTable;

/// How an entered code is looked up.
struct CodeCheck {
    QStringView statement;
    QStringView placeholder; ///< of the code; the company's is Empresa
    QStringView notFound;    ///< what the message says before the code
    QStringView codeField;
    QStringView textField; ///< empty when the code has no description
};

struct FoundCode {
    QString code;
    QString text;
};

/// The first row of the statement, or nothing. Raises the database's errors.
std::optional<FoundCode> findCode(const CodeCheck& check, const DBTable& table, const QString& code);

/// Tells that a code does not exist; always False.
bool tellNotFound(const CodeCheck& check, const QString& code);

} // namespace dalvora
