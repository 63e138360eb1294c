#pragma once

#include <QByteArrayView>
#include <QTemporaryFile>

namespace quorvane::report {

/// The temporary file of a report with very many rows. It is made at the first append and gone with this
/// object; where the system can, it never has a name, so that not even a killed program leaves it behind.
class SpillFile {
public:
    /// In the given folder, the system's one for temporary files when it is empty.
    explicit SpillFile(const QString& folder);

    qint64 size() const { return m_size; }
    /// Error 61 when the disk is full, 75 when the folder or the file cannot be written.
    void append(QByteArrayView bytes);
    /// Reads as many bytes as there are, up to `most`. Error 75 when they are fewer than `least`.
    qsizetype read(qint64 offset, char* bytes, qsizetype least, qsizetype most);

private:
    void open();
    [[noreturn]] void fail(const char16_t* what);

    QString m_folder;
    QTemporaryFile m_file;
    qint64 m_size = 0;
};

} // namespace quorvane::report
