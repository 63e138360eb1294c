#include "tools/quorvane-admin/FileReaders.h"
#include <QFile>

// The toolkit's switch: it reads a file's list of access rights only while this is not 0.
extern Q_CORE_EXPORT int qt_ntfs_permission_lookup;

namespace quorvane::admin {

bool othersMayRead(const QString& file) {
    ++qt_ntfs_permission_lookup;
    const QFile::Permissions permissions = QFile::permissions(file);
    --qt_ntfs_permission_lookup;
    return (permissions & (QFileDevice::ReadGroup | QFileDevice::ReadOther)) != 0;
}

} // namespace quorvane::admin
