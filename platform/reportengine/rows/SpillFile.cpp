#include "platform/reportengine/rows/SpillFile.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>

namespace quorvane::report {

SpillFile::SpillFile(const QString& folder)
    : m_folder(folder.isEmpty() ? QDir::tempPath() : folder)
    , m_file(QDir(m_folder).filePath(QStringLiteral("quorvane-informe-XXXXXX"))) {}

void SpillFile::append(QByteArrayView bytes) {
    if (!m_file.isOpen())
        open();
    if (!m_file.seek(m_size))
        fail(u"No se puede grabar");
    // A disk that fills up takes a part and refuses the rest.
    for (qsizetype done = 0; done < bytes.size();) {
        const qint64 written = m_file.write(bytes.data() + done, bytes.size() - done);
        if (written <= 0)
            fail(u"No se puede grabar");
        done += written;
    }
    m_size += bytes.size();
}

qsizetype SpillFile::read(qint64 offset, char* bytes, qsizetype least, qsizetype most) {
    if (!m_file.seek(offset))
        fail(u"No se puede leer");
    qsizetype done = 0;
    do {
        const qint64 got = m_file.read(bytes + done, most - done);
        if (got <= 0)
            fail(u"No se puede leer");
        done += got;
    } while (done < least);
    return done;
}

void SpillFile::open() {
    // Unbuffered: what is written is on its way to the disk, and so a full one is told at once.
    if (!static_cast<QFile&>(m_file).open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        fail(u"No se puede crear");
}

void SpillFile::fail(const char16_t* what) {
    if (m_file.error() == QFileDevice::ResourceError)
        throw RunTimeError(
            ErrorDiskFull,
            QStringLiteral("No queda espacio en el disco para las filas del informe (carpeta temporal %1)")
                .arg(m_folder));
    throw RunTimeError(ErrorPathAccess,
                       QStringLiteral("%1 el archivo temporal del informe en la carpeta %2 (%3)")
                           .arg(QString::fromUtf16(what), m_folder, m_file.errorString()));
}

} // namespace quorvane::report
