#pragma once

#include <QObject>
#include <QString>
#include <chrono>

namespace quorvane {

/// The DDE library's side of one conversation. What the library opens in a thread belongs to that thread: a
/// client is used and deleted in the thread that it lives in, and its calls last as long as the library
/// likes.
class DdeClient final : public QObject {
    Q_OBJECT
public:
    ~DdeClient() override;

    /// Looks for the application; tells with whom it talks, then 0, or 282.
    void open(const QString& service, const QString& topic);
    /// Sends a command; tells 0, 285, 286 or 291.
    void execute(const QString& command, std::chrono::milliseconds longest);

Q_SIGNALS:
    void met(quint32 process);
    void answered(int error);

private:
    bool connectTo(const QString& service, const QString& topic);

    unsigned long m_instance = 0;
    void* m_conversation = nullptr;
};

} // namespace quorvane
