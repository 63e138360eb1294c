#include "tools/quorvane-admin/PasswordInput.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include <cstdio>
#include <iostream>
#include <string>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <termios.h>
#include <unistd.h>
#endif

namespace quorvane::admin {

namespace {

#ifdef Q_OS_WIN

bool atTerminal() {
    return _isatty(_fileno(stdin)) != 0;
}

class HiddenEntry {
public:
    HiddenEntry() : m_console(GetStdHandle(STD_INPUT_HANDLE)) {
        GetConsoleMode(m_console, &m_before);
        SetConsoleMode(m_console, m_before & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
    }
    ~HiddenEntry() { SetConsoleMode(m_console, m_before); }
    HiddenEntry(const HiddenEntry&) = delete;
    HiddenEntry& operator=(const HiddenEntry&) = delete;

private:
    HANDLE m_console;
    DWORD m_before = 0;
};

#else

bool atTerminal() {
    return isatty(STDIN_FILENO) != 0;
}

/// The terminal shows no letters as long as it lives and hands over every key, also the one that would end
/// the program and leave the terminal so.
class HiddenEntry {
public:
    HiddenEntry() {
        tcgetattr(STDIN_FILENO, &m_before);
        termios hidden = m_before;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    ~HiddenEntry() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before); }
    HiddenEntry(const HiddenEntry&) = delete;
    HiddenEntry& operator=(const HiddenEntry&) = delete;

private:
    termios m_before{};
};

#endif

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
    constexpr int interrupt = 3;
    constexpr int backspace = 8;
    constexpr int deleted = 127;
    std::string line;
    for (int key = std::cin.get(); key != '\n' && key != '\r'; key = std::cin.get()) {
        if (key == interrupt || key == std::char_traits<char>::eof())
            throw RunTimeError(ErrorDialogCancelled, QStringLiteral("Cancelado"));
        if (key == backspace || key == deleted)
            removeLetter(line);
        else
            line += static_cast<char>(key);
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
