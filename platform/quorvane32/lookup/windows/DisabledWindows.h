#pragma once

#include <vector>

namespace quorvane {

/// This thread's windows take no input while one lives: a component that shows a window of its own knows
/// nothing of them, and a second command must not start under the first. At the end they are as they were,
/// and the one that was active is so again.
class DisabledWindows {
public:
    DisabledWindows();
    ~DisabledWindows();
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;

private:
    void* m_active;
    std::vector<void*> m_windows;
};

} // namespace quorvane
