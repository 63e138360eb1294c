#include "tests/support/SmallDisk.h"
#include <QFile>

namespace dalvora::test {

// No program may mount a disk of its own here: tests that want one are skipped.

SmallDisk::SmallDisk(int kilobytes) : m_mounted(mountWith(kilobytes, 0)) {}

SmallDisk::~SmallDisk() = default;

bool SmallDisk::mountWith(int, unsigned long) const {
    return false;
}

void SmallDisk::fill() const {}

void SmallDisk::grow(int) {}

void SmallDisk::empty() const {}

} // namespace dalvora::test
