// The other program of a DDE conversation, written on the system's library alone. What it does is in the
// environment variable DDE_DOUBLE:
//
//   answer      answers the topic and accepts every command
//   refuse      answers the topic and refuses every command
//   busy        answers the topic and is busy with every command
//   stuck       answers the topic and does not come back from a command
//   hung        has its service's name registered and takes no messages any more
//   window      has a window, no DDE, and takes no messages any more
//   die         ends when it is asked for its topic
//   die-command ends in the middle of a command
//   done-die    accepts a command and ends right behind it
//   late        begins to answer after a second and accepts everything
//   mute        runs and answers nothing
//   ask-ansi    asks: sends DDE_DOUBLE_SAY as a program without Unicode does, and ends with the library's
//   error
//
// It writes what it sees to the file DDE_DOUBLE_LOG, line by line: "cwd FOLDER", "ready", "command HEX". It
// ends by itself after five minutes, hung or not.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <windows.h>

#include <ddeml.h>

namespace {

constexpr DWORD fiveMinutes = 300000;
constexpr DWORD aSecond = 1000;
const wchar_t* const serviceName = L"Emisión de Documentos";
const wchar_t* const topicName = L"Lorbadeno";

std::wstring variable(const wchar_t* name) {
    const wchar_t* value = _wgetenv(name);
    return value ? value : L"";
}

bool mode(const wchar_t* name) {
    return variable(L"DDE_DOUBLE") == name;
}

void tell(const std::string& line) {
    if (FILE* log = _wfopen(variable(L"DDE_DOUBLE_LOG").c_str(), L"ab")) {
        std::fprintf(log, "%s\n", line.c_str());
        std::fclose(log);
    }
}

std::string utf8(const wchar_t* text) {
    char bytes[3 * MAX_PATH];
    const int length = WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, sizeof bytes, nullptr, nullptr);
    return length > 0 ? std::string(bytes, length - 1) : std::string();
}

void tellCommand(HDDEDATA data) {
    std::string bytes(DdeGetData(data, nullptr, 0, 0), '\0');
    DdeGetData(data, reinterpret_cast<LPBYTE>(bytes.data()), static_cast<DWORD>(bytes.size()), 0);
    std::string line = "command ";
    for (const char byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(byte));
        line += digits;
    }
    tell(line);
}

ULONG_PTR execute(HDDEDATA data) {
    tellCommand(data);
    if (mode(L"stuck"))
        Sleep(fiveMinutes);
    if (mode(L"die-command"))
        TerminateProcess(GetCurrentProcess(), 3);
    if (mode(L"done-die"))
        PostQuitMessage(0);
    if (mode(L"busy"))
        return DDE_FBUSY;
    return mode(L"refuse") ? DDE_FNOTPROCESSED : DDE_FACK;
}

HDDEDATA CALLBACK called(UINT type, UINT, HCONV, HSZ, HSZ, HDDEDATA data, ULONG_PTR, ULONG_PTR) {
    ULONG_PTR answer = 0;
    if (type == XTYP_CONNECT) {
        if (mode(L"die"))
            TerminateProcess(GetCurrentProcess(), 3);
        answer = TRUE;
    }
    if (type == XTYP_EXECUTE)
        answer = execute(data);
    return reinterpret_cast<HDDEDATA>(answer);
}

int ask() {
    DWORD instance = 0;
    DdeInitializeA(&instance, &called, APPCMD_CLIENTONLY, 0);
    const HCONV conversation =
        DdeConnect(instance, DdeCreateStringHandleW(instance, serviceName, CP_WINUNICODE),
                   DdeCreateStringHandleW(instance, topicName, CP_WINUNICODE), nullptr);
    const std::wstring wide = variable(L"DDE_DOUBLE_SAY");
    char bytes[1000];
    const int length =
        WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, bytes, sizeof bytes, nullptr, nullptr);
    if (conversation && DdeClientTransaction(reinterpret_cast<LPBYTE>(bytes), length, conversation, nullptr,
                                             0, XTYP_EXECUTE, aSecond, nullptr))
        return 0;
    return static_cast<int>(DdeGetLastError(instance));
}

void offer() {
    DWORD instance = 0;
    DdeInitializeW(&instance, &called, APPCLASS_STANDARD, 0);
    DdeNameService(instance, DdeCreateStringHandleW(instance, serviceName, CP_WINUNICODE), nullptr,
                   DNS_REGISTER);
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    if (mode(L"ask-ansi"))
        return ask();
    tell("process " + std::to_string(GetCurrentProcessId()));
    wchar_t folder[MAX_PATH] = L"";
    GetCurrentDirectoryW(MAX_PATH, folder);
    tell("cwd " + utf8(folder));
    if (mode(L"window"))
        CreateWindowExW(0, L"STATIC", L"No escucha", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                        nullptr, nullptr);
    else if (!mode(L"mute") && !mode(L"late"))
        offer();
    tell("ready");
    if (mode(L"window") || mode(L"hung")) {
        Sleep(fiveMinutes);
        return 4;
    }
    const UINT_PTR late = mode(L"late") ? SetTimer(nullptr, 0, aSecond, nullptr) : 0;
    const UINT_PTR end = SetTimer(nullptr, 0, fiveMinutes, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && !message.hwnd && message.wParam == end)
            return 4;
        if (message.message == WM_TIMER && !message.hwnd && message.wParam == late) {
            KillTimer(nullptr, late);
            offer();
        }
        DispatchMessageW(&message);
    }
    return 0;
}
