#include "tests/tds/ServerErrors.h"

#include <QRegularExpression>
#include <algorithm>
#include <iterator>

namespace dalvora::test::tds {

using namespace quorvane;

namespace {

struct Known {
    int number;
    int severity;
    int state;
    const char* text; ///< %1 stands for the name that it is about
};

constexpr int duplicateIndexRow = 2601;
constexpr int plainError = 50000;

constexpr Known knownErrors[] = {
    {ErrorSyntax, 15, 1, "Incorrect syntax near '%1'."},
    {195, 15, 1, "'%1' is not a recognized SET option."},
    {ErrorNoSuchColumn, 16, 1, "Invalid column name '%1'."},
    {ErrorNoSuchTable, 16, 1, "Invalid object name '%1'."},
    {229, 14, 5, "The SELECT permission was denied on the object '%1', database 'empresa', schema 'dbo'."},
    {ErrorDateLiteral, 16, 1, "Conversion failed when converting date and/or time from character string."},
    {ErrorNullNotAllowed, 16, 2,
     "Cannot insert the value NULL into column '%1'; column does not allow nulls."},
    {ErrorForeignKey, 16, 0, "The statement conflicted with the FOREIGN KEY constraint '%1'."},
    {911, 16, 1, "Database '%1' does not exist. Make sure that the name is entered correctly."},
    {ErrorDeadlock, 13, 51,
     "Transaction (Process ID 51) was deadlocked on lock resources with another process and has been chosen "
     "as the deadlock victim. Rerun the transaction."},
    {ErrorLockTimeout, 16, 51, "Lock request time out period exceeded."},
    {duplicateIndexRow, 14, 1, "Cannot insert duplicate key row in object '%1' with unique index 'unico'."},
    {ErrorDuplicateKey, 14, 1, "Violation of PRIMARY KEY constraint. Cannot insert duplicate key in '%1'."},
    {ErrorObjectExists, 16, 6, "There is already an object named '%1' in the database."},
    {2812, 16, 62, "Could not find stored procedure '%1'."},
    {3902, 16, 1, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION."},
    {3903, 16, 1, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION."},
    {3952, 16, 1, "Snapshot isolation transaction failed accessing database '%1'."},
    {3971, 16, 1, "The server failed to resume the transaction. Desc:%1."},
    {ErrorNoSuchDatabase, 11, 1, "Cannot open database \"%1\" requested by the login. The login failed."},
    {ErrorNumberTooLarge, 16, 2, "Arithmetic overflow error converting numeric to data type numeric."},
    {ErrorLoginFailed, 14, 1, "Login failed for user '%1'."},
};

struct EngineWords {
    const char* pattern; ///< captures the name
    int number;
};

constexpr EngineWords engineWords[] = {
    {"no such table: ([^\\]]+)", ErrorNoSuchTable},
    {"no such column: ([^\\]]+)", ErrorNoSuchColumn},
    {"has no column named ([^\\]]+)", ErrorNoSuchColumn},
    {"near \"(.*)\": syntax error", ErrorSyntax},
    {"unrecognized token: \"(.*)\"", ErrorSyntax},
    {"incomplete (input)", ErrorSyntax},
    {"UNIQUE constraint failed: (?:index ')?(\\w+)", ErrorDuplicateKey},
    {"NOT NULL constraint failed: ([\\w.]+)", ErrorNullNotAllowed},
    {"FOREIGN KEY constraint (failed)", ErrorForeignKey},
    {"table (.*) already exists", ErrorObjectExists},
};

} // namespace

ServerMessage serverMessage(int number, const QString& name) {
    const auto* known = std::ranges::find(knownErrors, number, &Known::number);
    if (known == std::end(knownErrors))
        return {number, 16, 1, name, 1};
    QString text = QString::fromLatin1(known->text);
    text.replace(QStringLiteral("%1"), name);
    return {number, known->severity, known->state, text, 1};
}

ServerMessage serverMessage(const RunTimeError& error) {
    for (const EngineWords& words : engineWords) {
        const auto match = QRegularExpression(QString::fromLatin1(words.pattern)).match(error.description());
        if (match.hasMatch())
            return serverMessage(words.number, match.captured(1));
    }
    if (error.number() == ErrorRefusedStatement)
        return serverMessage(ErrorSyntax, error.description());
    if (std::ranges::find(knownErrors, error.number(), &Known::number) != std::end(knownErrors))
        return serverMessage(error.number(), {});
    return serverMessage(plainError, error.description());
}

ServerMessage statementTerminated() {
    return {3621, 0, 0, QStringLiteral("The statement has been terminated."), 1};
}

} // namespace dalvora::test::tds
