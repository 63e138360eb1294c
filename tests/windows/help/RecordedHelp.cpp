#include "tests/windows/help/RecordedHelp.h"
#include <cstring>
#include <windows.h>

extern "C" __declspec(dllexport) RecordedHelpCall* recordedCall() {
    static RecordedHelpCall call;
    return &call;
}

extern "C" __declspec(dllexport) HWND WINAPI
    HtmlHelpA(HWND owner, LPCSTR file, UINT command, DWORD_PTR data) {
    RecordedHelpCall& call = *recordedCall();
    ++call.calls;
    call.owner = owner;
    call.command = command;
    call.data = data;
    std::strncpy(call.file, file ? file : "", sizeof call.file - 1);
    const bool isText = (command == 0 || command == 2) && data != 0;
    std::strncpy(call.text, isText ? reinterpret_cast<const char*>(data) : "", sizeof call.text - 1);
    return call.showsNothing ? nullptr : GetDesktopWindow();
}
