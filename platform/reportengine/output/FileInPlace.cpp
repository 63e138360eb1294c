#include "platform/reportengine/output/FileInPlace.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>
#include <QUuid>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

std::filesystem::path systemPath(const QString& path) {
    return std::filesystem::path(path.toStdU16String());
}

} // namespace

FileInPlace::FileInPlace(QString path)
    : m_path(std::move(path))
    , m_temporary(m_path + u'.' + QUuid::createUuid().toString(QUuid::Id128).left(8) + u".parcial"_s)
    , m_file(m_temporary) {}

FileInPlace::~FileInPlace() {
    m_file.close();
    QFile::remove(m_temporary);
}

QFile& FileInPlace::open() {
    if (!m_file.open(QIODevice::WriteOnly))
        fail(m_file.error() == QFileDevice::ResourceError, m_file.errorString());
    return m_file;
}

void FileInPlace::closeWhole() {
    if (!m_file.isOpen())
        return;
    const bool flushed = m_file.flush();
    // An error of an earlier write stays noted.
    if (!flushed || m_file.error() != QFileDevice::NoError)
        fail(m_file.error() == QFileDevice::ResourceError, m_file.errorString());
    m_file.close();
}

void FileInPlace::commit() {
    closeWhole();
    std::error_code failure;
    std::filesystem::rename(systemPath(m_temporary), systemPath(m_path), failure);
    if (failure)
        fail(failure == std::errc::no_space_on_device, QString::fromLocal8Bit(failure.message().c_str()));
}

void FileInPlace::fail(bool full, const QString& reason) const {
    const QString file = QDir::toNativeSeparators(m_path);
    if (full)
        throw RunTimeError(ErrorDiskFull, u"No hay espacio en el disco para escribir «%1»."_s.arg(file));
    throw RunTimeError(ErrorPathAccess, u"No se puede escribir «%1»: %2"_s.arg(file, reason));
}

} // namespace quorvane::report
