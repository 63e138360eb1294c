#include "platform/dde/ChannelLock.h"
#include <windows.h>

namespace quorvane {

// Several processes may listen at a pipe of one name here, so the lock is what keeps the second out: an
// object of the system that lives as long as a process has it open, in the session of the user who signed in.
bool ChannelLock::acquire() {
    if (m_handle != none)
        return true;
    const std::wstring name = (QStringLiteral("Local\\") + m_file).toStdWString();
    HANDLE mutex = CreateMutexW(nullptr, FALSE, name.c_str());
    if (mutex == nullptr)
        return false;
    if (GetLastError() == ERROR_ALREADY_EXISTS) {
        CloseHandle(mutex);
        return false;
    }
    m_handle = reinterpret_cast<qintptr>(mutex);
    return true;
}

void ChannelLock::release() {
    if (m_handle != none)
        CloseHandle(reinterpret_cast<HANDLE>(m_handle));
    m_handle = none;
}

} // namespace quorvane
