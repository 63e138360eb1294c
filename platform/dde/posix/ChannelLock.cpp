#include "platform/dde/ChannelLock.h"
#include <QFile>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quorvane {

bool ChannelLock::acquire() {
    if (m_handle != none)
        return true;
    const int descriptor =
        ::open(QFile::encodeName(m_file).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0)
        return false;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor);
        return false;
    }
    m_handle = descriptor;
    // Only for people and tools; a full disk takes nothing from the lock itself.
    const QByteArray process = QByteArray::number(static_cast<qint64>(::getpid())) + '\n';
    // Cut behind what is written: to empty the file first would cost a start the freeing of its block.
    [[maybe_unused]] const bool told = ::write(descriptor, process.constData(), process.size()) > 0 &&
                                       ::ftruncate(descriptor, process.size()) == 0;
    return true;
}

void ChannelLock::release() {
    // The file stays: removing it would let a third process lock a new one beside a waiting second.
    if (m_handle != none)
        ::close(static_cast<int>(m_handle));
    m_handle = none;
}

} // namespace quorvane
