#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <chrono>
#include <optional>

class QThread;
class QWinEventNotifier;

namespace quorvane {

class DdeClient;

/// One conversation over DDE, held by a thread of its own. To look for an application the library asks every
/// window of the desktop and waits for each: one that does not listen, of whatever program, holds it up
/// without end. Here it holds up that thread; the conversation can be given up at any time, and the thread
/// ends when the library lets it go.
class DdeConversation final : public QObject {
    Q_OBJECT
public:
    /// Begins to open it.
    DdeConversation(const QString& service, const QString& topic);
    /// Ends it, and waits for nothing.
    ~DdeConversation() override;

    /// How the last step ended: 0 or the error's number; nothing while it is on its way.
    std::optional<int> outcome() const { return m_outcome; }
    /// Time since it was begun.
    std::chrono::milliseconds age() const { return std::chrono::milliseconds(m_begin.elapsed()); }
    /// Begins to send a command; its answer is waited for that long.
    void execute(const QString& command, std::chrono::milliseconds longest);

    /// Begins to end it; nothing else may be asked of it then.
    void leave();
    bool hasLeft() const { return m_hasLeft; }

Q_SIGNALS:
    /// A step has ended.
    void answered();
    /// It has ended, and the application knows.
    void left();

private:
    void meet(quint32 process);
    void end(int error);

    QPointer<QThread> m_thread; ///< deletes itself
    DdeClient* m_client;
    QElapsedTimer m_begin;
    std::optional<int> m_outcome;
    bool m_hasLeft = false;
    void* m_process = nullptr;
    QWinEventNotifier* m_processEnd = nullptr;
};

} // namespace quorvane
