#pragma once

#include "platform/reportengine/output/Output.h"
#include "platform/reportengine/output/TablePlan.h"
#include "platform/reportengine/sheet/SheetFormats.h"
#include "platform/reportengine/sheet/WorkbookFile.h"

namespace quorvane::report {

/// Writes a report's bands as the rows of a workbook: the first page's header, the columns' headings, one row
/// a detail with numbers and dates as such, and the lines of groups and totals. Sheets that are full go on in
/// a further one.
class SpreadsheetOutput {
public:
    static constexpr int rowsOfSheet = 1048576;

    /// Error 75 when the file cannot be made there.
    SpreadsheetOutput(const PageContext& context, const QString& path, int rowLimit = rowsOfSheet);

    /// Adds a page's bands. Error 61 when they find no room.
    void add(const Page& page);
    /// Puts the workbook into its place. Errors 61 and 75.
    void commit();

private:
    void openSheet();
    QString sheetName() const;
    void setUpPrinting();
    void setWidths();
    void addBand(const Page& page, const Band& band);
    void addHeading();
    void addLine(const Page& page, const Band& band, int line);
    void fillLine(int section, int line);
    void writeCell(const Page& page, const Band& band, const TableCell& cell, const QString& joined);
    bool writeValue(int column, const Value& value, const ReportObject& object, lxw_format* format);
    void writeText(int column, const QString& text, lxw_format* format);

    PageContext m_context;
    const Definition& m_definition;
    TablePlan m_plan;
    WorkbookFile m_file;
    SheetFormats m_formats;
    lxw_worksheet* m_sheet = nullptr;
    int m_rowLimit;
    int m_row = 0;
    int m_sheets = 0;
    bool m_headed = false;
    std::vector<bool> m_shown; ///< page headers that stand in the sheet already
};

} // namespace quorvane::report
