#include "tools/quorvane-admin/PasswordInput.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "tools/quorvane-admin/Terminal.h"
#include <iostream>
#include <string>

namespace quorvane::admin {

namespace {

QString textOf(std::string line) {
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
}

QString readLine() {
    std::string line;
    if (!std::getline(std::cin, line))
        throw RunTimeError(ErrorInvalidCall, QStringLiteral("No se recibió ninguna contraseña"));
    return textOf(std::move(line));
}

/// The last letter, which may be several bytes.
void removeLetter(std::string& line) {
    constexpr int continuationMask = 0xC0;
    constexpr int continuation = 0x80;
    while (line.size() > 1 && (line.back() & continuationMask) == continuation)
        line.pop_back();
    if (!line.empty())
        line.pop_back();
}

QString readKeys() {
    constexpr char interrupt = 3;
    constexpr char backspace = 8;
    constexpr char deleted = 127;
    std::string line;
    for (std::string key = readKey(); key != "\n" && key != "\r"; key = readKey()) {
        if (key.empty() || key.front() == interrupt)
            throw RunTimeError(ErrorDialogCancelled, QStringLiteral("Cancelado"));
        if (key.front() == backspace || key.front() == deleted)
            removeLetter(line);
        else
            line += key;
    }
    return textOf(std::move(line));
}

QString ask(const char* question) {
    std::cerr << question << std::flush;
    QString answer = readKeys();
    std::cerr << '\n';
    return answer;
}

} // namespace

QString readPassword() {
    if (!atTerminal())
        return readLine();
    const HiddenEntry hidden;
    QString password = ask("Contraseña: ");
    if (ask("Repita la contraseña: ") != password)
        throw RunTimeError(ErrorInvalidCall, QStringLiteral("Las contraseñas no coinciden"));
    return password;
}

} // namespace quorvane::admin
