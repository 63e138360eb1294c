#pragma once

#include <QString>
#include <windows.h>

#include <ddeml.h>

namespace quorvane {

/// A name in the DDE library's table of strings. Longer ones than the table takes (255 characters) are none.
class DdeString {
public:
    DdeString(DWORD instance, const QString& text)
        : m_instance(instance)
        , m_handle(DdeCreateStringHandleW(instance, reinterpret_cast<LPCWSTR>(text.utf16()), CP_WINUNICODE)) {
    }
    ~DdeString() {
        if (m_handle)
            DdeFreeStringHandle(m_instance, m_handle);
    }
    DdeString(const DdeString&) = delete;
    DdeString& operator=(const DdeString&) = delete;

    HSZ handle() const { return m_handle; }

private:
    DWORD m_instance;
    HSZ m_handle;
};

} // namespace quorvane
