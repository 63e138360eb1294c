#include "platform/quorvane32/lookup/windows/DisabledWindows.h"
#include <windows.h>

namespace quorvane {

namespace {

BOOL CALLBACK disable(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<void*>*>(list)->push_back(window);
        EnableWindow(window, FALSE);
    }
    return TRUE;
}

} // namespace

DisabledWindows::DisabledWindows() : m_active(GetActiveWindow()) {
    EnumThreadWindows(GetCurrentThreadId(), disable, reinterpret_cast<LPARAM>(&m_windows));
}

DisabledWindows::~DisabledWindows() {
    for (void* window : m_windows)
        EnableWindow(static_cast<HWND>(window), TRUE);
    if (auto* active = static_cast<HWND>(m_active); active && IsWindow(active))
        SetForegroundWindow(active);
}

} // namespace quorvane
