#pragma once

#include "platform/reportengine/output/FileInPlace.h"
#include <memory>
#include <vector>

struct lxw_workbook;
struct lxw_worksheet;

namespace quorvane::report {

/// A workbook that the library for workbooks writes row by row, with its faults made errors: the library
/// itself goes on when a disk is full and leaves rows out without a word.
class WorkbookFile {
public:
    /// Error 75 when the file cannot be made there.
    explicit WorkbookFile(const QString& path);
    ~WorkbookFile();
    WorkbookFile(const WorkbookFile&) = delete;
    WorkbookFile& operator=(const WorkbookFile&) = delete;

    lxw_workbook* book() { return m_book.get(); }
    /// A further sheet; the ones before it stay as they are. Error 61 when it finds no room for its rows.
    lxw_worksheet* addSheet(const QString& name);
    /// Error 61 when rows that were written found no room.
    void check() const;
    /// Packs the workbook and puts it into its place. Errors 61 and 75.
    void commit();

private:
    struct Release {
        void operator()(lxw_workbook* book) const;
    };
    [[noreturn]] void failTemporary() const;
    void pack();

    FileInPlace m_file;
    QString m_folder; ///< where the library keeps rows until they are packed
    std::unique_ptr<lxw_workbook, Release> m_book;
    std::vector<lxw_worksheet*> m_sheets;
};

/// A text as a cell takes it: at most 32,767 characters, none that the format's documents cannot hold, and
/// nothing that would be read as the format's own way of writing such characters.
QByteArray cellText(const QString& text);

/// How many bytes the packed files of the archive's folder have when unpacked; -1 when it is no whole
/// archive.
qint64 unpackedSize(const QString& archive, QByteArrayView folder);

} // namespace quorvane::report
