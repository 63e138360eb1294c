#include "platform/reportengine/sheet/WorkbookFile.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>
#include <QStorageInfo>
#include <QtEndian>
#include <cerrno>
#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

constexpr char rowsFolder[] = "xl/worksheets/";
/// A disk with less room than this is full, whatever the last write said.
constexpr qint64 leastRoom = 256 * 1024LL;

bool isFull(int systemError) {
#ifdef EDQUOT
    // Where users have shares of a disk, theirs may be full before the disk is.
    if (systemError == EDQUOT)
        return true;
#endif
    return systemError == ENOSPC;
}

bool isFull(const QString& file) {
    const QStorageInfo disk(QFileInfo(file).absolutePath());
    return disk.isValid() && disk.bytesAvailable() < leastRoom;
}

} // namespace

void WorkbookFile::Release::operator()(lxw_workbook* book) const {
    lxw_workbook_free(book);
}

WorkbookFile::WorkbookFile(const QString& path) : m_file(path), m_folder(QDir::tempPath()) {
    m_file.open().close();
    QByteArray folder = QDir::toNativeSeparators(m_folder).toUtf8();
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    m_book.reset(workbook_new_opt(m_file.temporaryPath().toUtf8().constData(), &options));
    if (!m_book)
        raise(ErrorOutOfMemory);
}

WorkbookFile::~WorkbookFile() {
    // The library closes them only when it packs the workbook.
    for (lxw_worksheet* sheet : m_sheets) {
        std::fclose(sheet->optimize_tmpfile);
        sheet->optimize_tmpfile = nullptr;
    }
}

lxw_worksheet* WorkbookFile::addSheet(const QString& name) {
    lxw_worksheet* sheet = workbook_add_worksheet(m_book.get(), name.toUtf8().constData());
    if (!sheet)
        failTemporary();
    m_sheets.push_back(sheet);
    return sheet;
}

void WorkbookFile::failTemporary() const {
    throw RunTimeError(ErrorDiskFull, u"No hay espacio en la carpeta temporal «%1»."_s.arg(
                                          QDir::toNativeSeparators(m_folder)));
}

void WorkbookFile::check() const {
    for (const lxw_worksheet* sheet : m_sheets)
        if (std::ferror(sheet->optimize_tmpfile) != 0)
            failTemporary();
}

void WorkbookFile::commit() {
    pack();
    m_file.commit();
}

void WorkbookFile::pack() {
    qint64 written = 0;
    for (const lxw_worksheet* sheet : m_sheets) {
        // The flush makes a disk that is full tell it now.
        if (std::fflush(sheet->optimize_tmpfile) != 0)
            failTemporary();
        written += std::ftell(sheet->optimize_tmpfile);
    }
    errno = 0;
    const lxw_error failure = workbook_close(m_book.release());
    const int systemError = errno;
    m_sheets.clear();
    const qint64 packed = unpackedSize(m_file.temporaryPath(), rowsFolder);
    if (failure == LXW_NO_ERROR && packed >= written)
        return;
    if (failure == LXW_ERROR_CREATING_TMPFILE || (failure == LXW_NO_ERROR && packed >= 0))
        failTemporary();
    m_file.fail(isFull(systemError) || isFull(m_file.temporaryPath()),
                QString::fromUtf8(lxw_strerror(failure)));
}

QByteArray cellText(const QString& text) {
    constexpr qsizetype longest = 32767;
    const bool plain = std::none_of(text.begin(), text.end(), [](QChar character) {
        return character == u'_' || character.isSurrogate() || character >= u'\ufffe';
    });
    if (plain)
        return QStringView(text).left(longest).toUtf8();
    // "_x0041_" would be read as "A": its first character is written in that way itself.
    QString safe = QString(text).replace("_x"_L1, "_x005F_x"_L1);
    safe.remove(u'\ufffe').remove(u'\uffff');
    if (safe.size() > longest)
        safe.truncate(safe.at(longest - 1).isHighSurrogate() ? longest - 1 : longest);
    return safe.toUtf8();
}

qint64 unpackedSize(const QString& archive, QByteArrayView folder) {
    // An archive ends with a record that tells where its directory stands; the program that packs writes no
    // comment behind it.
    constexpr qsizetype endSize = 22;
    constexpr qsizetype entrySize = 46;
    QFile file(archive);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(file.size() - endSize))
        return -1;
    const QByteArray end = file.read(endSize);
    if (end.size() != endSize || !end.startsWith("PK\x05\x06"))
        return -1;
    const auto number = [](const QByteArray& bytes, qsizetype at) {
        return qFromLittleEndian<quint32>(bytes.constData() + at);
    };
    const auto shortNumber = [](const QByteArray& bytes, qsizetype at) {
        return qFromLittleEndian<quint16>(bytes.constData() + at);
    };
    if (!file.seek(number(end, 16)))
        return -1;
    const QByteArray directory = file.read(number(end, 12));
    qint64 size = 0;
    for (qsizetype at = 0; at < directory.size();) {
        if (directory.size() - at < entrySize || number(directory, at) != 0x02014b50)
            return -1;
        const qsizetype name = shortNumber(directory, at + 28);
        if (directory.mid(at + entrySize, name).startsWith(folder))
            size += number(directory, at + 24);
        at += entrySize + name + shortNumber(directory, at + 30) + shortNumber(directory, at + 32);
    }
    return size;
}

} // namespace quorvane::report
