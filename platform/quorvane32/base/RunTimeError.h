#pragma once

#include <QString>
#include <exception>

namespace quorvane {

/// Numbers of the run-time errors that the programs of the ERP test for or show.
enum RunTimeErrorNumber : int {
    ErrorCommandFailed = -2147217900, ///< a command failed for a reason without a number of its own
    ErrorStatementTimeout = -2,
    ErrorInvalidCall = 5,
    ErrorOverflow = 6,
    ErrorOutOfMemory = 7,
    ErrorSubscript = 9,
    ErrorTypeMismatch = 13,
    ErrorFileNotFound = 53,
    ErrorFileExists = 58,
    ErrorDiskFull = 61,
    ErrorPermissionDenied = 70,
    ErrorPathAccess = 75,
    ErrorObjectNotSet = 91,
    ErrorInvalidNull = 94,
    ErrorSyntax = 102,
    ErrorNoSuchColumn = 207,
    ErrorNoSuchTable = 208,
    ErrorDateLiteral = 241,
    ErrorLinkNoAnswer = 282,
    ErrorLinkRefused = 285,
    ErrorLinkTimeout = 286,
    ErrorLinkFormat = 290,
    ErrorLinkQuit = 291,
    ErrorLinkNotOpen = 293,
    ErrorLinkTopic = 297,
    ErrorFileFormat = 321,
    ErrorPropertyValue = 380,
    ErrorReadOnlyProperty = 383,
    ErrorCannotCreateObject = 429,
    ErrorNoSuchProperty = 438,
    ErrorPrinter = 482,
    ErrorNullNotAllowed = 515,
    ErrorForeignKey = 547,
    ErrorDeadlock = 1205,
    ErrorLockTimeout = 1222,
    ErrorDuplicateKey = 2627,
    ErrorObjectExists = 2714,
    ErrorNoCurrentRecord = 3021,
    ErrorItemNotFound = 3265,
    ErrorDatabaseFormat = 3343,
    ErrorObjectClosed = 3704,
    ErrorRefusedStatement = 3705,
    ErrorConnectionLost = 3709,
    ErrorTransactionFailed = 3930,
    ErrorNoSuchDatabase = 4060,
    ErrorNumberTooLarge = 8115,
    ErrorTextTooLong = 8152,
    ErrorLoginFailed = 18456,
    ErrorDialogCancelled = 32755,
};

/// The one exception type of the system: a number and a description in Spanish, as message boxes show them.
class RunTimeError : public std::exception {
public:
    RunTimeError(int number, QString description)
        : m_number(number), m_description(std::move(description)), m_utf8(m_description.toUtf8()) {}

    int number() const { return m_number; }
    const QString& description() const { return m_description; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    int m_number;
    QString m_description;
    QByteArray m_utf8;
};

/// Raises the given number with its standard Spanish description (6 "Desbordamiento", 9 "Subíndice fuera del
/// intervalo", 13 "No coinciden los tipos", ...).
[[noreturn]] void raise(int number);

} // namespace quorvane
