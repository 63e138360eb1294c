#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

namespace quorvane::qtsql {

/// One error as a driver tells it.
struct ServerFault {
    QByteArray state; ///< SQLSTATE, "" when the driver has none
    int number = 0;   ///< the server's or the driver's own number
    QString text;     ///< one sentence, without the driver's marks in front
};

/// The errors of one operation, the first one first.
using ServerFaults = std::vector<ServerFault>;

/// The first line of a message without its end and without what stands in front of the server's sentence: the
/// marks of drivers in brackets and the word for its severity.
QString sentenceOf(const QString& message);

/// One of the ERP server's numbers with its usual Spanish sentence, or with `sentence`, and what the
/// server said in brackets.
RunTimeError serverError(int number, const QString& said, const char* sentence = nullptr);

/// An error that has no number of its own: `code` is the server's.
RunTimeError unknownError(const QString& code, const QString& said);

/// Error 429 when it is the ODBC driver manager that tells that it has no such driver; else nothing.
std::optional<RunTimeError> missingDriver(const ServerFaults& faults, const QString& place);

/// Why a place could not be reached.
RunTimeError unreachableError(int number, const QString& sentence, const QString& place, const QString& said);

} // namespace quorvane::qtsql
