#include "platform/reportengine/sheet/SheetFormats.h"
#include <algorithm>
#include <xlsxwriter.h>

namespace quorvane::report {

namespace {

/// Letters up to this size fit in a row of the usual height.
constexpr double usualSize = 11;
constexpr double lineSpacing = 1.4;
/// A rule within this many points above a line belongs to it.
constexpr double ruleReach = 1.5;
constexpr double strongStroke = 1;

unsigned colourOf(const QColor& colour) {
    return colour.isValid() ? colour.rgb() & 0xffffffU : 0;
}

std::string numberFormat(const NumberFormat& format) {
    if (format.decimals < 0)
        return "General";
    std::string text = format.thousands.isEmpty() ? "0" : "#,##0";
    if (format.decimals > 0)
        text.append(1, '.').append(format.decimals, '0');
    return text;
}

int alignmentOf(Qt::Alignment alignment) {
    if (alignment.testFlag(Qt::AlignRight))
        return LXW_ALIGN_RIGHT;
    return alignment.testFlag(Qt::AlignHCenter) ? LXW_ALIGN_CENTER : LXW_ALIGN_LEFT;
}

/// Totals stand out whatever their style says, but for those that are the report's very lines.
bool isTotal(const Section& section, const ReportObject& object, bool body) {
    return !body && (section.kind == SectionKind::GroupFooter || section.kind == SectionKind::ReportFooter) &&
           object.kind == ObjectKind::Field &&
           (object.source.kind == FieldSource::Kind::Sum || object.source.kind == FieldSource::Kind::Count);
}

} // namespace

std::string cellFormat(const Definition& definition, const ReportObject& object) {
    if (object.kind != ObjectKind::Field)
        return "General";
    switch (contentType(definition, object)) {
    case ColumnType::Number:
        return numberFormat(object.format);
    case ColumnType::Date:
        // Months have Spanish names whatever the spreadsheet speaks.
        if (object.dateForm == DateForm::Month)
            return "[$-C0A]mmmm yyyy";
        return object.dateForm == DateForm::Year ? "yyyy" : "dd/mm/yyyy";
    default:
        // A cell of the general format would run a text like "=A1" once somebody edits it.
        return "@";
    }
}

SheetFormats::SheetFormats(const Definition& definition, const TablePlan& plan, lxw_workbook* book)
    : m_definition(definition), m_plan(plan), m_book(book) {
    const size_t sections = definition.sections.size();
    m_objects.resize(sections);
    m_fillers.resize(sections);
    m_heights.resize(sections);
    for (size_t section = 0; section < sections; ++section) {
        m_objects[section].resize(definition.sections[section].objects.size());
        for (const TableLine& line : plan.section(static_cast<int>(section)).lines)
            addLine(static_cast<int>(section), line);
    }
}

void SheetFormats::addLine(int section, const TableLine& line) {
    const Section& shown = m_definition.sections[section];
    const bool body = m_plan.section(section).isBody;
    Look look = body ? Look() : lineLook(section, line);
    double size = 0;
    for (const TableCell& cell : line.cells) {
        const ReportObject& object = shown.objects[cell.object];
        const std::string number = cellFormat(m_definition, object);
        look.bold = line.heading || isTotal(shown, object, body);
        look.indented = isIndented(object, cell.column);
        m_objects[section][cell.object] = {formatFor(object.style, number, look),
                                           formatFor(object.condition.style, number, look)};
        size = std::max(size, m_definition.styles[object.style].size);
    }
    const bool filled = look.ground.isValid() || look.rule.isValid();
    look.bold = look.indented = false;
    m_fillers[section].push_back(filled ? formatFor(0, "General", look) : nullptr);
    m_heights[section].push_back(size > usualSize ? size * lineSpacing : 0);
}

/// A text that begins where the column to its left ends with its figures.
bool SheetFormats::isIndented(const ReportObject& object, int column) const {
    if (column == 0 || column >= static_cast<int>(m_plan.columns().size()) ||
        alignmentOf(m_definition.styles[object.style].alignment) != LXW_ALIGN_LEFT)
        return false;
    const ObjectPlace& left = m_plan.columns()[column - 1].objects.front();
    const int style = m_definition.sections[left.section].objects[left.object].style;
    return alignmentOf(m_definition.styles[style].alignment) == LXW_ALIGN_RIGHT;
}

SheetFormats::Look SheetFormats::lineLook(int section, const TableLine& line) const {
    Look look;
    const double middle = (line.top + line.bottom) / 2;
    for (const ReportObject& object : m_definition.sections[section].objects) {
        const Style& style = m_definition.styles[object.style];
        if (object.kind == ObjectKind::Box && object.rect.top() <= middle && middle <= object.rect.bottom() &&
            style.background.isValid())
            look.ground = style.background;
        const double below = line.top - object.rect.top();
        if (object.kind == ObjectKind::Line && object.rect.height() < ruleReach && below >= 0 &&
            below <= 2 * ruleReach) {
            look.rule = style.colour;
            look.strong = object.stroke >= strongStroke;
        }
    }
    return look;
}

lxw_format* SheetFormats::formatFor(int style, const std::string& number, const Look& look) {
    lxw_format*& format =
        m_made[{style, number, look.ground.isValid() ? look.ground.rgba() : 0,
                look.rule.isValid() ? look.rule.rgba() : 0, look.strong, look.bold, look.indented}];
    if (!format)
        format = made(style, number, look);
    return format;
}

lxw_format* SheetFormats::made(int style, const std::string& number, const Look& look) const {
    const Style& shown = m_definition.styles[style];
    lxw_format* format = workbook_add_format(m_book);
    const QString family = shown.family.section(u',', 0, 0).trimmed();
    if (!family.isEmpty())
        format_set_font_name(format, family.toUtf8().constData());
    format_set_font_size(format, shown.size);
    if (look.bold || shown.bold)
        format_set_bold(format);
    if (shown.italic)
        format_set_italic(format);
    if (colourOf(shown.colour) != 0)
        format_set_font_color(format, colourOf(shown.colour));
    format_set_align(format, static_cast<uint8_t>(alignmentOf(shown.alignment)));
    format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
    if (look.indented)
        format_set_indent(format, 1);
    if (number != "General")
        format_set_num_format(format, number.c_str());
    const QColor ground = look.ground.isValid() ? look.ground : shown.background;
    if (ground.isValid()) {
        format_set_pattern(format, LXW_PATTERN_SOLID);
        format_set_bg_color(format, colourOf(ground));
    }
    if (look.rule.isValid()) {
        format_set_top(format, look.strong ? LXW_BORDER_MEDIUM : LXW_BORDER_THIN);
        format_set_top_color(format, colourOf(look.rule));
    }
    return format;
}

} // namespace quorvane::report
