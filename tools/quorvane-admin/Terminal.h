#pragma once

#include <memory>
#include <string>

namespace quorvane::admin {

/// Whether a person types what the program reads.
bool atTerminal();

/// The terminal shows what is written to it as UTF-8 from here on.
void showUtf8();

/// The next key that a person presses while entries are hidden, as UTF-8: a letter or a part of one. Empty
/// when there is none any more.
std::string readKey();

/// The terminal shows no letters as long as it lives and hands over every key, also the one that would end
/// the program and leave the terminal so.
class HiddenEntry {
public:
    HiddenEntry();
    ~HiddenEntry();
    HiddenEntry(const HiddenEntry&) = delete;
    HiddenEntry& operator=(const HiddenEntry&) = delete;

private:
    struct Terminal;
    std::unique_ptr<Terminal> m_terminal;
};

} // namespace quorvane::admin
