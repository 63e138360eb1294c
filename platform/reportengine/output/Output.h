#pragma once

#include "platform/reportengine/layout/Layout.h"
#include "platform/reportengine/output/FieldText.h"
#include <QString>
#include <functional>

class QPrinter;

namespace quorvane::report {

/// Told after each page how many are written and how many there are; false stops the output.
using OutputProgress = std::function<bool(int done, int total)>;

/// What an output works on: a laid-out report and what it is drawn with. Pages are laid out as they are
/// needed.
struct OutputSource {
    Layout* layout = nullptr;
    PageContext context;
};

// Each writes beside the file and moves it into place when it is whole, so a full disk or a stop leaves what
// was there. Result false: stopped by the progress. Error 75 with the system's reason when it cannot be
// written.

/// Portable document with the report's pages.
bool writePdf(const OutputSource& source, const QString& path, const OutputProgress& progress);
/// Office Open XML workbook: one row a detail with numbers and dates as such, headings, group subtotals.
bool writeSpreadsheet(const OutputSource& source, const QString& path, const OutputProgress& progress);
/// Comma-separated values (";" where "," is the decimal separator), UTF-8 with its mark, one line a detail.
bool writeCsv(const OutputSource& source, const QString& path, const OutputProgress& progress);
/// Pages first to last (from 1) on the printer, as many copies as given.
bool printPages(const OutputSource& source, QPrinter& printer, int first, int last, int copies,
                const OutputProgress& progress);

} // namespace quorvane::report
