#include "platform/dde/windows/DdeConversation.h"
#include "platform/dde/windows/DdeClient.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QThread>
#include <QTimer>
#include <QWinEventNotifier>
#include <windows.h>

namespace quorvane {

DdeConversation::DdeConversation(const QString& service, const QString& topic)
    : m_thread(new QThread), m_client(new DdeClient) {
    m_begin.start();
    m_client->moveToThread(m_thread);
    connect(m_client, &DdeClient::met, this, &DdeConversation::meet);
    connect(m_client, &DdeClient::answered, this, &DdeConversation::end);
    connect(m_client, &QObject::destroyed, this, [this] {
        m_hasLeft = true;
        Q_EMIT left();
    });
    connect(m_thread, &QThread::finished, m_client, &QObject::deleteLater);
    // Not with the thread's own signal, which comes while the client may still have to wait: a thread's
    // deletion waits for the thread.
    connect(m_client, &QObject::destroyed, m_thread, &QObject::deleteLater);
    m_thread->start();
    QMetaObject::invokeMethod(m_client,
                              [client = m_client, service, topic] { client->open(service, topic); });
}

DdeConversation::~DdeConversation() {
    leave();
    delete m_processEnd;
    if (m_process)
        CloseHandle(m_process);
}

void DdeConversation::leave() {
    if (m_thread)
        m_thread->quit();
}

void DdeConversation::execute(const QString& command, std::chrono::milliseconds longest) {
    m_outcome.reset();
    QMetaObject::invokeMethod(m_client,
                              [client = m_client, command, longest] { client->execute(command, longest); });
}

// The library tells of an application that ends only where the system does; its process tells in any case.
void DdeConversation::meet(quint32 process) {
    // So that the application may bring its window to the front.
    AllowSetForegroundWindow(process);
    m_process = OpenProcess(SYNCHRONIZE, FALSE, process);
    if (!m_process)
        return;
    m_processEnd = new QWinEventNotifier(m_process, this);
    connect(m_processEnd, &QWinEventNotifier::activated, this, [this] {
        m_processEnd->setEnabled(false);
        // An answer that it left behind comes first.
        constexpr std::chrono::milliseconds underWay(200);
        QTimer::singleShot(underWay, this, [this] { end(ErrorLinkQuit); });
    });
}

void DdeConversation::end(int error) {
    if (m_outcome)
        return;
    m_outcome = error;
    Q_EMIT answered();
}

} // namespace quorvane
