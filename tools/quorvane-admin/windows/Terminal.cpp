#include "tools/quorvane-admin/Terminal.h"
#include <QString>
#include <cstdio>
#include <io.h>
#include <windows.h>

namespace quorvane::admin {

struct HiddenEntry::Terminal {
    HANDLE console = GetStdHandle(STD_INPUT_HANDLE);
    DWORD before = 0;
};

bool atTerminal() {
    return _isatty(_fileno(stdin)) != 0;
}

void showUtf8() {
    SetConsoleOutputCP(CP_UTF8);
}

std::string readKey() {
    // Read as bytes, the console would give letters with accents in the code page of old programs.
    const HANDLE console = GetStdHandle(STD_INPUT_HANDLE);
    std::wstring letter;
    do {
        wchar_t unit = 0;
        DWORD count = 0;
        if (ReadConsoleW(console, &unit, 1, &count, nullptr) == FALSE || count == 0)
            return {};
        letter += unit;
    } while (IS_HIGH_SURROGATE(letter.back()));
    return QString::fromStdWString(letter).toStdString();
}

HiddenEntry::HiddenEntry() : m_terminal(std::make_unique<Terminal>()) {
    GetConsoleMode(m_terminal->console, &m_terminal->before);
    constexpr DWORD lineEntry = ENABLE_ECHO_INPUT | ENABLE_LINE_INPUT | ENABLE_PROCESSED_INPUT;
    SetConsoleMode(m_terminal->console, m_terminal->before & ~lineEntry);
}

HiddenEntry::~HiddenEntry() {
    SetConsoleMode(m_terminal->console, m_terminal->before);
}

} // namespace quorvane::admin
