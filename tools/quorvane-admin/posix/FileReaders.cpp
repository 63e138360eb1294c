#include "tools/quorvane-admin/FileReaders.h"
#include <QFile>

namespace quorvane::admin {

bool othersMayRead(const QString& file) {
    return (QFile::permissions(file) & (QFileDevice::ReadGroup | QFileDevice::ReadOther)) != 0;
}

} // namespace quorvane::admin
