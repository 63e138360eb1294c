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

/// The terminal shows no letters as long as it lives.
class HiddenEntry {
public:
    HiddenEntry() {
        tcgetattr(STDIN_FILENO, &m_before);
        termios hidden = m_before;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    ~HiddenEntry() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before); }
    HiddenEntry(const HiddenEntry&) = delete;
    HiddenEntry& operator=(const HiddenEntry&) = delete;

private:
    termios m_before{};
};

#endif

QString readLine() {
    std::string line;
    if (!std::getline(std::cin, line))
        throw RunTimeError(ErrorInvalidCall, QStringLiteral("No se recibió ninguna contraseña"));
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
}

QString ask(const char* question) {
    std::cerr << question << std::flush;
    QString answer = readLine();
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
