#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/tds/Tokens.h"

namespace dalvora::test::tds {

/// The message that the ERP's server has for an error of the embedded engine: its number, its class, its
/// words.
ServerMessage serverMessage(const quorvane::RunTimeError& error);
/// A message of the server by its number, for faults on demand; other numbers come as a plain error.
ServerMessage serverMessage(int number, const QString& name);

/// An error of the server on its way to the client.
class ServerFault : public std::exception {
public:
    ServerFault(int number, const QString& name) : message(serverMessage(number, name)) {}
    const char* what() const noexcept override { return "an error of the server"; }

    ServerMessage message;
};

/// Follows an error that ended one statement and not the batch.
ServerMessage statementTerminated();

} // namespace dalvora::test::tds
