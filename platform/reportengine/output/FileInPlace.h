#pragma once

#include <QFile>
#include <QString>

namespace quorvane::report {

/// A file that an output writes: it grows under another name beside its place and takes it when it is whole.
/// Until then, and when it never gets so far, what was there before stays as it was.
class FileInPlace {
public:
    explicit FileInPlace(QString path);
    /// Leaves nothing behind that was not put into place.
    ~FileInPlace();
    FileInPlace(const FileInPlace&) = delete;
    FileInPlace& operator=(const FileInPlace&) = delete;

    /// Where to write meanwhile, for a library that opens its files itself.
    const QString& temporaryPath() const { return m_temporary; }
    /// Opens the file for writing. Error 75 when it cannot be made there.
    QFile& open();
    /// Puts the file into its place, closing it first when it was opened here. Errors 61 (full disk) and 75
    /// when it could not be written whole or cannot take the place.
    void commit();

    /// Error 61 or 75 for this path, with what the system says about it.
    [[noreturn]] void fail(bool full, const QString& reason) const;

private:
    void closeWhole();

    QString m_path;
    QString m_temporary;
    QFile m_file;
};

} // namespace quorvane::report
