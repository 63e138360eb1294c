#pragma once

#include "platform/reportengine/output/Output.h"
#include <QtPlugin>

namespace quorvane::report {

/// What the module of the spreadsheets offers: the library for workbooks brings others with it, which no
/// start of a program should wait for.
class SpreadsheetWriter {
public:
    virtual ~SpreadsheetWriter() = default;
    virtual bool write(const OutputSource& source, const QString& path, const OutputProgress& progress) = 0;
};

} // namespace quorvane::report

#define QUORVANE_SPREADSHEET_WRITER "quorvane.SpreadsheetWriter/1"
Q_DECLARE_INTERFACE(quorvane::report::SpreadsheetWriter, QUORVANE_SPREADSHEET_WRITER)
