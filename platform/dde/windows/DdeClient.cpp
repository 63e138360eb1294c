#include "platform/dde/windows/DdeClient.h"
#include "platform/dde/windows/DdeString.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane {

namespace {

/// Of what the library tells a client of its own accord nothing is of use here.
HDDEDATA CALLBACK ignore(UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR) {
    return nullptr;
}

quint32 partnerOf(HCONV conversation) {
    CONVINFO info = {};
    info.cb = sizeof info;
    DWORD process = 0;
    if (DdeQueryConvInfo(conversation, QID_SYNC, &info) != 0)
        GetWindowThreadProcessId(info.hwndPartner, &process);
    return process;
}

/// The number for a command that the library did not get done.
int errorOfExecute(UINT error) {
    switch (error) {
    case DMLERR_EXECACKTIMEOUT:
        return ErrorLinkTimeout;
    case DMLERR_NO_CONV_ESTABLISHED:
    case DMLERR_SERVER_DIED:
    case DMLERR_POSTMSG_FAILED:
    case DMLERR_INVALIDPARAMETER: // the conversation is none any more
        return ErrorLinkQuit;
    default: // refused or busy
        return ErrorLinkRefused;
    }
}

} // namespace

DdeClient::~DdeClient() {
    if (m_conversation)
        DdeDisconnect(static_cast<HCONV>(m_conversation));
    if (m_instance != 0)
        DdeUninitialize(m_instance);
}

bool DdeClient::connectTo(const QString& service, const QString& topic) {
    if (DdeInitializeW(&m_instance, &ignore, APPCMD_CLIENTONLY, 0) != DMLERR_NO_ERROR)
        return false;
    const DdeString wantedService(m_instance, service);
    const DdeString wantedTopic(m_instance, topic);
    // No name would stand for any.
    if (!wantedService.handle() || !wantedTopic.handle())
        return false;
    m_conversation = DdeConnect(m_instance, wantedService.handle(), wantedTopic.handle(), nullptr);
    return m_conversation != nullptr;
}

void DdeClient::open(const QString& service, const QString& topic) {
    if (!connectTo(service, topic)) {
        Q_EMIT answered(ErrorLinkNoAnswer);
        return;
    }
    Q_EMIT met(partnerOf(static_cast<HCONV>(m_conversation)));
    Q_EMIT answered(0);
}

void DdeClient::execute(const QString& command, std::chrono::milliseconds longest) {
    // With the NUL behind it, which ends the text for the application.
    const auto bytes = static_cast<DWORD>((command.size() + 1) * sizeof(char16_t));
    auto* data = reinterpret_cast<LPBYTE>(const_cast<ushort*>(command.utf16()));
    const bool done =
        DdeClientTransaction(data, bytes, static_cast<HCONV>(m_conversation), nullptr, 0, XTYP_EXECUTE,
                             static_cast<DWORD>(longest.count()), nullptr) != nullptr;
    Q_EMIT answered(done ? 0 : errorOfExecute(DdeGetLastError(m_instance)));
}

} // namespace quorvane
