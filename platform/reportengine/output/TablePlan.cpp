#include "platform/reportengine/output/TablePlan.h"
#include <algorithm>
#include <optional>
#include <tuple>

namespace quorvane::report {

namespace {

/// Objects that touch by less than this many points stand beside each other.
constexpr double touch = 1;

bool isWritten(const ReportObject& object) {
    return object.kind == ObjectKind::Field || (object.kind == ObjectKind::Text && !object.text.isEmpty());
}

int fieldCount(const Section& section) {
    return static_cast<int>(
        std::count_if(section.objects.begin(), section.objects.end(),
                      [](const ReportObject& object) { return object.kind == ObjectKind::Field; }));
}

bool shows(const Section& section) {
    return section.height > 0 && fieldCount(section) > 0;
}

bool isOfGroup(const Section& section) {
    return section.kind == SectionKind::GroupHeader || section.kind == SectionKind::GroupFooter;
}

/// The details that show something; else, of what shows anything, the header or footer of the innermost group
/// with the most fields, or the report's own when there are no groups.
std::vector<int> bodySections(const Definition& definition) {
    std::vector<int> details;
    std::optional<std::tuple<int, int, int>> best;
    for (int position = 0; position < static_cast<int>(definition.sections.size()); ++position) {
        const Section& section = definition.sections[position];
        if (!shows(section))
            continue;
        if (section.kind == SectionKind::Details)
            details.push_back(position);
        else if (isOfGroup(section) || section.kind == SectionKind::ReportFooter) {
            const std::tuple<int, int, int> rank(isOfGroup(section) ? section.group : -1, fieldCount(section),
                                                 position);
            best = best ? std::max(*best, rank) : rank;
        }
    }
    if (details.empty() && best)
        details.push_back(std::get<2>(*best));
    return details;
}

double overlap(const QRectF& rect, const TableColumn& column) {
    return std::min(rect.right(), column.right) - std::max(rect.left(), column.left);
}

/// Whether a rectangle and a column stand under each other for more than half of the narrower one.
bool standsUnder(const QRectF& rect, const TableColumn& column) {
    return overlap(rect, column) > std::min(rect.width(), column.right - column.left) / 2;
}

/// Objects in the same place of which at most one shows on a row, like "Sí" and "No".
bool takeTurns(const ReportObject& a, const ReportObject& b) {
    const QRectF shared = a.rect.intersected(b.rect);
    return (a.condition.hide || b.condition.hide) && shared.width() > touch && shared.height() > touch;
}

std::vector<int> writtenObjects(const Section& section) {
    std::vector<int> objects;
    for (int object = 0; object < static_cast<int>(section.objects.size()); ++object)
        if (isWritten(section.objects[object]))
            objects.push_back(object);
    return objects;
}

/// The section's written objects in lines, from the top down and from left to right.
std::vector<TableLine> linesOf(const Section& section) {
    std::vector<int> objects = writtenObjects(section);
    const auto rect = [&](int object) -> const QRectF& { return section.objects[object].rect; };
    std::stable_sort(objects.begin(), objects.end(),
                     [&](int a, int b) { return rect(a).top() < rect(b).top(); });
    std::vector<TableLine> lines;
    for (const int object : objects) {
        if (lines.empty() || rect(object).center().y() >= lines.back().bottom)
            lines.push_back({{}, false, rect(object).top(), rect(object).bottom()});
        lines.back().cells.push_back({object, -1});
    }
    for (TableLine& line : lines)
        std::stable_sort(line.cells.begin(), line.cells.end(), [&](TableCell a, TableCell b) {
            return rect(a.object).left() < rect(b.object).left();
        });
    return lines;
}

/// The cell that keeps a column from an object of its line; null when the column is free for it.
const TableCell* holderOf(const Section& section, const TableLine& line, int column, int object) {
    const auto holder = std::find_if(line.cells.begin(), line.cells.end(), [&](const TableCell& other) {
        return other.object != object && other.column == column &&
               !takeTurns(section.objects[other.object], section.objects[object]);
    });
    return holder == line.cells.end() ? nullptr : &*holder;
}

} // namespace

ColumnType contentType(const Definition& definition, const ReportObject& object) {
    if (object.kind != ObjectKind::Field)
        return ColumnType::Text;
    switch (object.source.kind) {
    case FieldSource::Kind::Column:
        return definition.columns[object.source.index].type;
    case FieldSource::Kind::Sum:
    case FieldSource::Kind::Count:
        return ColumnType::Number;
    default:
        return ColumnType::Text;
    }
}

TablePlan::TablePlan(const Definition& definition)
    : m_definition(definition), m_sections(definition.sections.size()) {
    makeColumns(bodySections(definition));
    for (int section = 0; section < static_cast<int>(m_sections.size()); ++section)
        if (!m_sections[section].isBody)
            placeSection(section);
    for (const SectionKind kind :
         {SectionKind::PageHeader, SectionKind::GroupHeader, SectionKind::ReportHeader})
        if (m_headingSection < 0)
            findHeadings(kind);
    widen();
}

void TablePlan::makeColumns(const std::vector<int>& body) {
    for (const int section : body)
        addToColumns(section);
    const auto top = [this](const TableColumn& column) {
        const ObjectPlace& first = column.objects.front();
        return m_definition.sections[first.section].objects[first.object].rect.top();
    };
    std::stable_sort(m_columns.begin(), m_columns.end(), [&](const TableColumn& a, const TableColumn& b) {
        return std::make_pair(a.left, top(a)) < std::make_pair(b.left, top(b));
    });
    for (const int section : body) {
        m_sections[section].isBody = true;
        m_sections[section].lines.resize(1);
    }
    for (int column = 0; column < static_cast<int>(m_columns.size()); ++column)
        for (const ObjectPlace& place : m_columns[column].objects)
            m_sections[place.section].lines.front().cells.push_back({place.object, column});
}

void TablePlan::addToColumns(int section) {
    const Section& body = m_definition.sections[section];
    for (const int object : writtenObjects(body)) {
        const QRectF& rect = body.objects[object].rect;
        if (TableColumn* column = columnFor(section, object)) {
            column->objects.push_back({section, object});
            column->left = std::min(column->left, rect.left());
            column->right = std::max(column->right, rect.right());
        } else
            m_columns.push_back({rect.left(), rect.right(), 0, {{section, object}}, {}});
    }
}

/// A column that is there already and takes the object in: within a section where objects take turns, in a
/// further details section where it stands under the others. Null when it needs one of its own, as every
/// field of a second line within a section does: a row of the report stays one row.
TableColumn* TablePlan::columnFor(int section, int object) {
    const ReportObject& added = m_definition.sections[section].objects[object];
    for (TableColumn& column : m_columns) {
        const auto fits = [&](const ObjectPlace& place) {
            return place.section != section ||
                   takeTurns(added, m_definition.sections[section].objects[place.object]);
        };
        if (standsUnder(added.rect, column) &&
            std::all_of(column.objects.begin(), column.objects.end(), fits))
            return &column;
    }
    return nullptr;
}

void TablePlan::placeSection(int section) {
    m_sections[section].lines = linesOf(m_definition.sections[section]);
    for (TableLine& line : m_sections[section].lines)
        placeLine(section, line);
}

/// Figures first, each under the column that it belongs to or the next free one; then the others.
void TablePlan::placeLine(int section, TableLine& line) const {
    const Section& placed = m_definition.sections[section];
    const auto isFigure = [&](const TableCell& cell) {
        return contentType(m_definition, placed.objects[cell.object]) == ColumnType::Number;
    };
    for (TableCell& cell : line.cells)
        if (isFigure(cell)) {
            int column = preferredColumn(placed.objects[cell.object]);
            while (holderOf(placed, line, column, cell.object))
                ++column;
            cell.column = column;
        }
    for (TableCell& cell : line.cells)
        if (!isFigure(cell))
            placeText(placed, line, cell);
    std::stable_sort(line.cells.begin(), line.cells.end(),
                     [](const TableCell& a, const TableCell& b) { return a.column < b.column; });
}

/// A text whose column is taken goes to the next one, unless that is taken too or lies outside the table:
/// then it is joined to the text that stands there.
void TablePlan::placeText(const Section& section, const TableLine& line, TableCell& cell) const {
    const ReportObject& object = section.objects[cell.object];
    const int wanted = preferredColumn(object);
    int column = wanted;
    const TableCell* holder = holderOf(section, line, wanted, cell.object);
    while (holderOf(section, line, column, cell.object))
        ++column;
    const auto isText = [&](int other) {
        return contentType(m_definition, section.objects[other]) == ColumnType::Text;
    };
    const bool isFar = column > wanted + 1 || column >= static_cast<int>(m_columns.size());
    cell.joined = holder && isFar && isText(cell.object) && isText(holder->object);
    cell.column = cell.joined ? wanted : column;
}

/// A figure's column, or the only one that a text stands above or below; else the one at the end of the text
/// from which it is written.
int TablePlan::preferredColumn(const ReportObject& object) const {
    if (contentType(m_definition, object) == ColumnType::Number) {
        const int column = columnUnder(object);
        if (column >= 0)
            return column;
    }
    const auto covers = [&](const TableColumn& column) { return standsUnder(object.rect, column); };
    if (std::count_if(m_columns.begin(), m_columns.end(), covers) == 1)
        return static_cast<int>(std::find_if(m_columns.begin(), m_columns.end(), covers) - m_columns.begin());
    const bool rightAligned = m_definition.styles[object.style].alignment.testFlag(Qt::AlignRight);
    const int last = static_cast<int>(m_columns.size()) - 1;
    if (rightAligned) {
        const auto column =
            std::find_if(m_columns.begin(), m_columns.end(), [&](const TableColumn& candidate) {
                return candidate.right >= object.rect.right() - touch;
            });
        return std::max(0, std::min(last, static_cast<int>(column - m_columns.begin())));
    }
    for (int column = last; column > 0; --column)
        if (m_columns[column].left <= object.rect.left() + touch)
            return column;
    return 0;
}

/// The column that a figure stands under: of those, the one that shows what it adds up, else the one that it
/// shares most with. -1 when it stands under none.
int TablePlan::columnUnder(const ReportObject& object) const {
    int best = -1;
    double most = 0;
    for (int column = 0; column < static_cast<int>(m_columns.size()); ++column) {
        const double shared = overlap(object.rect, m_columns[column]);
        if (shared <= 0)
            continue;
        const ObjectPlace& place = m_columns[column].objects.front();
        const ReportObject& shown = m_definition.sections[place.section].objects[place.object];
        const bool addsUp = object.source.kind != FieldSource::Kind::Count &&
                            contentType(m_definition, shown) == ColumnType::Number &&
                            shown.source.index == object.source.index;
        const double score = addsUp ? shared + m_definition.pageSize.width() : shared;
        if (score > most) {
            most = score;
            best = column;
        }
    }
    return best;
}

/// Looks for headings in the sections of a kind, from the last one (the nearest to the details) back.
void TablePlan::findHeadings(SectionKind kind) {
    for (int section = static_cast<int>(m_sections.size()) - 1; section >= 0 && m_headingSection < 0;
         --section) {
        if (m_definition.sections[section].kind != kind || m_sections[section].isBody ||
            m_definition.sections[section].height <= 0)
            continue;
        std::vector<TableLine>& lines = m_sections[section].lines;
        for (size_t above = lines.size(); above > 0; --above) {
            TableLine& line = lines[above - 1];
            const bool below = m_headingSection == section;
            // One column alone could take any text for its heading: only the last one is.
            if (below && m_columns.size() == 1)
                break;
            if (matchHeadings(section, line))
                m_headingSection = section;
            else if (below)
                break;
        }
    }
    if (m_headingSection >= 0)
        takeHeadings(m_headingSection);
}

/// A line names the columns when each of its texts stands above one column and, if there are more columns,
/// more than one does.
bool TablePlan::matchHeadings(int section, TableLine& line) const {
    const std::vector<ReportObject>& objects = m_definition.sections[section].objects;
    std::vector<bool> taken(m_columns.size());
    std::vector<TableCell> cells = line.cells;
    for (TableCell& cell : cells) {
        const ReportObject& text = objects[cell.object];
        if (text.kind != ObjectKind::Text || text.condition.hide)
            return false;
        cell.column = headedColumn(text, taken);
        if (cell.column < 0)
            return false;
        taken[cell.column] = true;
    }
    if (cells.size() < std::min<size_t>(2, m_columns.size()))
        return false;
    line.cells = std::move(cells);
    line.heading = true;
    return true;
}

/// The free column below a text; -1 when it stands above none or, as a title does, above columns that stand
/// side by side.
int TablePlan::headedColumn(const ReportObject& text, const std::vector<bool>& taken) const {
    int found = -1;
    double left = 0;
    double right = m_definition.pageSize.width();
    for (int column = 0; column < static_cast<int>(m_columns.size()); ++column) {
        if (!standsUnder(text.rect, m_columns[column]))
            continue;
        left = std::max(left, m_columns[column].left);
        right = std::min(right, m_columns[column].right);
        if (found < 0 && !taken[column])
            found = column;
    }
    return left < right - touch ? found : -1;
}

void TablePlan::takeHeadings(int section) {
    for (const TableLine& line : m_sections[section].lines)
        if (line.heading)
            for (const TableCell& cell : line.cells)
                m_columns[cell.column].headings.push_back({section, cell.object});
}

/// A figure or a date that finds no room shows as "####": the widest one decides, wherever it stands.
void TablePlan::widen() {
    for (TableColumn& column : m_columns)
        column.width = column.right - column.left;
    for (size_t section = 0; section < m_sections.size(); ++section)
        for (const TableLine& line : m_sections[section].lines)
            for (const TableCell& cell : line.cells) {
                const ReportObject& object = m_definition.sections[section].objects[cell.object];
                if (contentType(m_definition, object) != ColumnType::Text &&
                    cell.column < static_cast<int>(m_columns.size()))
                    m_columns[cell.column].width =
                        std::max(m_columns[cell.column].width, object.rect.width());
            }
}

} // namespace quorvane::report
