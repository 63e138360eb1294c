#pragma once

#include <QString>

namespace quorvane {

/// The right to answer at an address, held by at most one living process: the system takes it back when the
/// process ends, however it ends. Where addresses are files, its holder may remove one that a dead process
/// left, and the lock's own file names the holder's process for whoever looks for it.
class ChannelLock {
public:
    explicit ChannelLock(QString address) : m_file(address.append(QStringLiteral(".lock"))) {}
    ~ChannelLock() { release(); }
    ChannelLock(const ChannelLock&) = delete;
    ChannelLock& operator=(const ChannelLock&) = delete;

    /// False when another process holds it or the file cannot be made; does not wait.
    bool acquire();
    void release();

private:
    static constexpr qintptr none = -1;

    QString m_file;
    qintptr m_handle = none;
};

} // namespace quorvane
