#include "platform/dde/ChannelLock.h"
#include <QFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace quorvane {

#ifdef Q_OS_UNIX

bool ChannelLock::acquire() {
    if (m_descriptor >= 0)
        return true;
    const int descriptor =
        ::open(QFile::encodeName(m_file).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0)
        return false;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor);
        return false;
    }
    m_descriptor = descriptor;
    // Only for people and tools; a full disk takes nothing from the lock itself.
    const QByteArray process = QByteArray::number(static_cast<qint64>(::getpid())) + '\n';
    [[maybe_unused]] const bool told =
        ::ftruncate(descriptor, 0) == 0 && ::write(descriptor, process.constData(), process.size()) > 0;
    return true;
}

void ChannelLock::release() {
    // The file stays: removing it would let a third process lock a new one beside a waiting second.
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

#else

// A pipe vanishes with its process, and the first server of a name keeps others out: nothing to guard.
bool ChannelLock::acquire() {
    m_descriptor = 0;
    return true;
}

void ChannelLock::release() {
    m_descriptor = -1;
}

#endif

} // namespace quorvane
