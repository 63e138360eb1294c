#include "tools/quorvane-admin/Terminal.h"
#include <iostream>
#include <termios.h>
#include <unistd.h>

namespace quorvane::admin {

struct HiddenEntry::Terminal {
    termios before{};
};

bool atTerminal() {
    return isatty(STDIN_FILENO) != 0;
}

void showUtf8() {
    // Terminals of this system speak the user's encoding already, which is UTF-8.
}

std::string readKey() {
    const int key = std::cin.get();
    return key == std::char_traits<char>::eof() ? std::string() : std::string(1, static_cast<char>(key));
}

HiddenEntry::HiddenEntry() : m_terminal(std::make_unique<Terminal>()) {
    tcgetattr(STDIN_FILENO, &m_terminal->before);
    termios hidden = m_terminal->before;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
}

HiddenEntry::~HiddenEntry() {
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_terminal->before);
}

} // namespace quorvane::admin
