#include "platform/reportengine/sheet/SpreadsheetOutput.h"
#include <algorithm>
#include <cmath>
#include <optional>
#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

/// Spreadsheets measure columns in digits of 7 pixels behind 5 pixels of margin, at 96 pixels an inch.
constexpr double pixelsAPoint = 96.0 / 72.0;
constexpr double pixelsADigit = 7;
constexpr double marginPixels = 5;
constexpr double leastDigits = 4;
/// More rows than these would leave no room for what scrolls below them.
constexpr int mostFrozenRows = 12;

double digitsOf(double width) {
    // One more than the object's own, since programs differ in the widths of their letters.
    return std::max(leastDigits, (width * pixelsAPoint - marginPixels) / pixelsADigit + 1);
}

/// The serial number of a date as a spreadsheet counts it. They know no dates before 1900 and count a 29
/// February of that year that never was, so dates are sure from 1 March 1900 on only.
std::optional<double> serialOf(Date date, DateForm form) {
    constexpr double firstSure = 61;
    if (date.serial() < firstSure)
        return std::nullopt;
    const QDate day = date.toQDate();
    if (form == DateForm::Short || !day.isValid())
        return date.serial();
    // What stands for a month or a year is its first day, so that equal names are equal values.
    const int month = form == DateForm::Month ? day.month() : 1;
    return std::max(firstSure, Date::fromYmd(day.year(), month, 1).serial());
}

bool isPageHeader(SectionKind kind) {
    return kind == SectionKind::PageHeader;
}

bool isAboveHeading(SectionKind kind) {
    return isPageHeader(kind) || kind == SectionKind::ReportHeader;
}

} // namespace

SpreadsheetOutput::SpreadsheetOutput(const PageContext& context, const QString& path, int rowLimit)
    : m_context(context)
    , m_definition(*context.definition)
    , m_plan(m_definition)
    , m_file(path)
    , m_formats(m_definition, m_plan, m_file.book())
    , m_rowLimit(rowLimit)
    , m_shown(m_definition.sections.size()) {
    lxw_doc_properties properties{};
    QByteArray title = m_definition.title.toUtf8();
    properties.title = title.data();
    workbook_set_properties(m_file.book(), &properties);
    openSheet();
}

void SpreadsheetOutput::openSheet() {
    ++m_sheets;
    m_sheet = m_file.addSheet(sheetName());
    m_row = 0;
    setWidths();
    setUpPrinting();
    // Document numbers are texts: no green corners for them.
    worksheet_ignore_errors(m_sheet, LXW_IGNORE_NUMBER_STORED_AS_TEXT, "A1:XFD1048576");
}

/// The report's title without the characters that names of sheets cannot have.
QString SpreadsheetOutput::sheetName() const {
    constexpr qsizetype longest = 31;
    QString name = m_definition.title;
    for (const QChar forbidden : u"[]:*?/\\'"_s)
        name.replace(forbidden, u' ');
    name = name.simplified();
    if (name.isEmpty())
        name = u"Reporte"_s;
    const QString number = m_sheets > 1 ? u" (%1)"_s.arg(m_sheets) : QString();
    return name.left(longest - number.size()).trimmed() + number;
}

void SpreadsheetOutput::setWidths() {
    for (size_t column = 0; column < m_plan.columns().size(); ++column)
        worksheet_set_column(m_sheet, static_cast<lxw_col_t>(column), static_cast<lxw_col_t>(column),
                             digitsOf(m_plan.columns()[column].width), nullptr);
}

void SpreadsheetOutput::setUpPrinting() {
    constexpr uint8_t a4 = 9;
    if (m_definition.pageSize.width() > m_definition.pageSize.height())
        worksheet_set_landscape(m_sheet);
    worksheet_set_paper(m_sheet, a4);
    worksheet_fit_to_pages(m_sheet, 1, 0);
    worksheet_set_footer(m_sheet, "&RPágina &P de &N");
}

void SpreadsheetOutput::add(const Page& page) {
    for (const Band& band : page.bands)
        addBand(page, band);
    m_file.check();
}

void SpreadsheetOutput::addBand(const Page& page, const Band& band) {
    const SectionKind kind = m_definition.sections[band.section].kind;
    if (kind == SectionKind::PageFooter || band.repeated)
        return;
    if (isPageHeader(kind)) {
        if (m_shown[band.section])
            return;
        m_shown[band.section] = true;
    }
    if (!isAboveHeading(kind))
        addHeading();
    const TableSection& section = m_plan.section(band.section);
    for (int line = 0; line < static_cast<int>(section.lines.size()); ++line)
        if (!section.lines[line].heading)
            addLine(page, band, line);
}

/// The headings once, behind what stands at the head of the report, whichever section they come from.
void SpreadsheetOutput::addHeading() {
    if (m_headed)
        return;
    m_headed = true;
    if (m_plan.headingSection() < 0)
        return;
    const int first = m_row;
    Band band;
    band.section = m_plan.headingSection();
    const std::vector<TableLine>& lines = m_plan.section(band.section).lines;
    for (int line = 0; line < static_cast<int>(lines.size()); ++line)
        if (lines[line].heading)
            addLine({}, band, line);
    if (m_row > mostFrozenRows || m_row == first)
        return;
    worksheet_freeze_panes(m_sheet, m_row, 0);
    worksheet_repeat_rows(m_sheet, first, m_row - 1);
}

/// A line that has nothing to show takes no row, but for the report's own lines.
void SpreadsheetOutput::addLine(const Page& page, const Band& band, int line) {
    if (m_row >= m_rowLimit) {
        openSheet();
        m_headed = false;
        addHeading();
    }
    const TableSection& section = m_plan.section(band.section);
    if (!section.isBody) {
        const auto& cells = section.lines[line].cells;
        const bool empty = std::all_of(cells.begin(), cells.end(), [&](const TableCell& cell) {
            return fieldText(m_context, page, band, cell.object).isEmpty();
        });
        if (empty)
            return;
        fillLine(band.section, line);
    }
    const std::vector<TableCell>& cells = section.lines[line].cells;
    for (size_t at = 0; at < cells.size();) {
        const TableCell& cell = cells[at];
        QString joined;
        for (++at; at < cells.size() && cells[at].joined; ++at)
            joined += u' ' + fieldText(m_context, page, band, cells[at].object);
        writeCell(page, band, cell, joined);
    }
    ++m_row;
}

void SpreadsheetOutput::fillLine(int section, int line) {
    if (const double height = m_formats.height(section, line); height > 0)
        worksheet_set_row(m_sheet, m_row, height, nullptr);
    lxw_format* filler = m_formats.filler(section, line);
    if (!filler)
        return;
    for (size_t column = 0; column < m_plan.columns().size(); ++column)
        worksheet_write_blank(m_sheet, m_row, static_cast<lxw_col_t>(column), filler);
}

/// What a cell cannot hold as a value is written as it reads on the page.
void SpreadsheetOutput::writeCell(const Page& page, const Band& band, const TableCell& cell,
                                  const QString& joined) {
    const ReportObject& object = m_definition.sections[band.section].objects[cell.object];
    if (!isShown(object, band, cell.object))
        return writeText(cell.column, joined.trimmed(), m_formats.format(band.section, cell.object, false));
    lxw_format* format =
        m_formats.format(band.section, cell.object, styleOf(object, band, cell.object) != object.style);
    const bool hasValue = object.kind == ObjectKind::Field && joined.isEmpty() &&
                          cell.object < static_cast<int>(band.values.size());
    if (!hasValue || !writeValue(cell.column, band.values[cell.object], object, format))
        writeText(cell.column, fieldText(m_context, page, band, cell.object) + joined, format);
}

/// False for a value that a cell cannot hold.
bool SpreadsheetOutput::writeValue(int column, const Value& value, const ReportObject& object,
                                   lxw_format* format) {
    const auto place = static_cast<lxw_col_t>(column);
    if (const QString* text = value.get<QString>()) {
        writeText(column, *text, format);
        return true;
    }
    if (const Date* date = value.get<Date>()) {
        const std::optional<double> serial = serialOf(*date, object.dateForm);
        return serial && worksheet_write_number(m_sheet, m_row, place, *serial, format) == LXW_NO_ERROR;
    }
    if (!isNumber(value))
        return false;
    const double number = value.toNumber(m_context.regional);
    return std::isfinite(number) &&
           worksheet_write_number(m_sheet, m_row, place, number, format) == LXW_NO_ERROR;
}

void SpreadsheetOutput::writeText(int column, const QString& text, lxw_format* format) {
    if (!text.isEmpty())
        worksheet_write_string(m_sheet, m_row, static_cast<lxw_col_t>(column), cellText(text).constData(),
                               format);
}

void SpreadsheetOutput::commit() {
    addHeading();
    m_file.commit();
}

} // namespace quorvane::report
