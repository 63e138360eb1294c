#include "platform/help/ChmArchive.h"

#include "platform/help/ByteReader.h"
#include "platform/help/LzxSection.h"
#include "platform/quorvane32/base/RunTimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace help {

namespace {

constexpr qint64 LargestFile = 64LL * 1024 * 1024;
constexpr qsizetype MostEntries = 20000;
constexpr quint32 LargestChunk = 64 * 1024;
constexpr auto PackedFolder = "::DataSpace/Storage/MSCompressed/";
constexpr auto ResetTable = "Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/InstanceData/ResetTable";

QByteArray readWholeFile(const QString& path) {
    const QString shown = QDir::toNativeSeparators(path);
    const QFileInfo info(path);
    if (!info.exists())
        throw quorvane::RunTimeError(quorvane::ErrorFileNotFound,
                                     QStringLiteral("No se encontró el archivo de ayuda %1").arg(shown));
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        throw quorvane::RunTimeError(quorvane::ErrorPermissionDenied,
                                     QStringLiteral("No se puede leer el archivo de ayuda %1").arg(shown));
    return file.size() > LargestFile ? QByteArray() : file.readAll();
}

} // namespace

ChmArchive::ChmArchive(const QString& path) : m_file(readWholeFile(path)) {
    if (!parse())
        throw quorvane::RunTimeError(
            quorvane::ErrorFileFormat,
            QStringLiteral("El archivo de ayuda %1 está dañado o no es un archivo de ayuda")
                .arg(QDir::toNativeSeparators(path)));
    unpack();
}

QString ChmArchive::key(const QString& name) {
    return name.startsWith(u'/') || name.startsWith(u':') ? name.toLower() : u'/' + name.toLower();
}

bool ChmArchive::parse() {
    ByteReader header(m_file);
    if (header.take(4) != QByteArrayView("ITSF"))
        return false;
    const quint32 version = header.u32();
    header.seek(0x48);
    const quint64 directoryOffset = header.u64();
    const quint64 directoryLength = header.u64();
    const quint64 contentOffset = version >= 3 ? header.u64() : directoryOffset + directoryLength;
    const auto size = static_cast<quint64>(m_file.size());
    if (!header.ok() || directoryOffset > size || contentOffset > size)
        return false;
    m_contentOffset = static_cast<qsizetype>(contentOffset);
    return parseDirectory(static_cast<qsizetype>(directoryOffset), directoryLength) && !m_entries.isEmpty();
}

bool ChmArchive::parseDirectory(qsizetype offset, quint64 length) {
    ByteReader directory(m_file, offset);
    if (directory.take(4) != QByteArrayView("ITSP"))
        return false;
    directory.skip(4);
    const quint32 headerLength = directory.u32();
    directory.skip(4);
    const quint32 chunkSize = directory.u32();
    if (!directory.ok() || headerLength < 0x54 || chunkSize < 0x20 || chunkSize > LargestChunk ||
        length < headerLength)
        return false;
    directory.seek(offset + static_cast<qsizetype>(headerLength));
    for (quint64 left = (length - headerLength) / chunkSize; left > 0 && directory.ok(); --left)
        parseChunk(directory.take(chunkSize));
    return true;
}

// Only listing chunks ("PMGL") are read; index chunks lead to the same entries and are passed over.
void ChmArchive::parseChunk(QByteArrayView chunk) {
    ByteReader reader(chunk);
    if (reader.take(4) != QByteArrayView("PMGL"))
        return;
    const quint32 freeSpace = reader.u32();
    if (freeSpace > static_cast<quint64>(chunk.size()))
        return;
    const qsizetype end = chunk.size() - static_cast<qsizetype>(freeSpace);
    reader.seek(0x14);
    while (reader.ok() && reader.position() < end && m_entries.size() < MostEntries) {
        const QString name = QString::fromUtf8(reader.take(reader.compressedNumber()));
        Entry entry;
        entry.section = reader.compressedNumber();
        entry.offset = reader.compressedNumber();
        entry.length = reader.compressedNumber();
        if (!reader.ok() || name.isEmpty() || m_entries.contains(key(name)))
            continue;
        m_entries.insert(key(name), entry);
        if (name.startsWith(u'/') && !name.endsWith(u'/'))
            m_names.append(name);
    }
}

void ChmArchive::unpack() {
    const QString folder = QLatin1StringView(PackedFolder);
    const auto content = m_entries.constFind(key(folder + QStringLiteral("Content")));
    const auto control = read(folder + QStringLiteral("ControlData"));
    const auto table = read(folder + QLatin1StringView(ResetTable));
    if (content == m_entries.cend() || content->section != 0 || !control || !table)
        return;
    // Of a file that was cut off, what is left of the packed part still holds pages.
    const QByteArrayView rest = QByteArrayView(m_file).sliced(m_contentOffset);
    const auto begin = std::min(content->offset, static_cast<quint64>(rest.size()));
    const auto length = std::min(content->length, static_cast<quint64>(rest.size()) - begin);
    LzxSection section = unpackLzx(rest.sliced(static_cast<qsizetype>(begin), static_cast<qsizetype>(length)),
                                   *control, *table, LargestFile);
    m_unpacked = std::move(section.bytes);
    m_goodBlocks = std::move(section.goodBlocks);
}

std::optional<QByteArray> ChmArchive::read(const QString& name) const {
    const auto found = m_entries.constFind(key(name));
    if (found == m_entries.cend())
        return std::nullopt;
    const Entry& entry = *found;
    if (entry.length == 0)
        return QByteArray();
    const QByteArrayView section =
        entry.section == 0 ? QByteArrayView(m_file).sliced(m_contentOffset) : QByteArrayView(m_unpacked);
    const auto size = static_cast<quint64>(section.size());
    if (entry.section > 1 || entry.offset > size || entry.length > size - entry.offset)
        return std::nullopt;
    const quint64 last = (entry.offset + entry.length - 1) / LzxBlockSize;
    for (quint64 block = entry.offset / LzxBlockSize; entry.section == 1 && block <= last; ++block) {
        if (!m_goodBlocks.at(static_cast<qsizetype>(block)))
            return std::nullopt;
    }
    return section.sliced(static_cast<qsizetype>(entry.offset), static_cast<qsizetype>(entry.length))
        .toByteArray();
}

} // namespace help
