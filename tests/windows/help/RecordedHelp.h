#pragma once

#include <cstdint>

/// The last call of a HtmlHelpA that shows nothing. Plain C, since it crosses a library's border.
struct RecordedHelpCall {
    int calls;
    void* owner;
    char file[1024]; ///< empty when none was given
    unsigned command;
    std::uintptr_t data;
    char text[256];    ///< what the data points to, for commands that take a text
    bool showsNothing; ///< set by a test: the next calls give no window
};
