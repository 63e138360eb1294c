#include "tests/support/SmallDisk.h"
#include <QFile>
#include <gtest/gtest.h>
#include <sys/mount.h>

namespace dalvora::test {

SmallDisk::SmallDisk(int kilobytes) {
    m_mounted = mountWith(kilobytes, 0);
}

bool SmallDisk::mountWith(int kilobytes, unsigned long flags) const {
    const QByteArray size = "size=" + QByteArray::number(kilobytes) + 'k';
    return mount("tmpfs", QFile::encodeName(path()).constData(), "tmpfs", flags, size.constData()) == 0;
}

void SmallDisk::grow(int kilobytes) {
    EXPECT_TRUE(mountWith(kilobytes, MS_REMOUNT));
}

SmallDisk::~SmallDisk() {
    if (m_mounted)
        umount2(QFile::encodeName(path()).constData(), MNT_DETACH);
}

void SmallDisk::fill() const {
    QFile file(filler());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered));
    const QByteArray page(4096, 'x');
    while (file.write(page) == page.size()) {
    }
    while (file.write("x", 1) == 1) {
    }
}

void SmallDisk::empty() const {
    EXPECT_TRUE(QFile::remove(filler()));
}

} // namespace dalvora::test
