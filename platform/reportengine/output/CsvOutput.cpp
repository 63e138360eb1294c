#include "platform/reportengine/output/CsvOutput.h"
#include "platform/quorvane32/base/NumberText.h"
#include "platform/reportengine/output/FileInPlace.h"
#include "platform/reportengine/output/LaidOut.h"
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

constexpr QByteArrayView utf8Mark = "\xef\xbb\xbf";

/// What a spreadsheet takes for the beginning of a formula.
bool startsFormula(const QString& text) {
    return !text.isEmpty() && u"=+-@\t\r"_s.contains(text.front());
}

bool isColumn(const ReportObject& object) {
    return object.kind == ObjectKind::Field && object.source.kind == FieldSource::Kind::Column;
}

void write(QFile& file, const QString& text) {
    // What cannot be written stays noted in the file and is raised when it takes its place.
    file.write(text.toUtf8());
}

} // namespace

QString plainNumber(double value, QChar decimalSeparator) {
    constexpr int digits = 15;
    return generalNumber(QByteArray::number(value, 'g', digits).toDouble(), decimalSeparator);
}

CsvOutput::CsvOutput(const PageContext& context)
    : m_context(context)
    , m_definition(*context.definition)
    , m_plan(m_definition)
    , m_separator(context.regional.decimalSeparator == u',' ? u';' : u',') {
    for (int section = 0; section < static_cast<int>(m_definition.sections.size()); ++section)
        if (m_definition.sections[section].kind == SectionKind::GroupHeader &&
            !m_plan.section(section).isBody)
            addGroupColumns(section);
}

/// Objects of a group header that say something about its lines: fields, and texts that only some groups
/// show. Those that share a place share a column.
void CsvOutput::addGroupColumns(int section) {
    const std::vector<ReportObject>& objects = m_definition.sections[section].objects;
    for (const TableLine& line : m_plan.section(section).lines) {
        std::vector<std::pair<int, size_t>> places;
        for (const TableCell& cell : line.cells) {
            const ReportObject& object = objects[cell.object];
            const bool tells = object.kind == ObjectKind::Field || object.condition.hide;
            if (!tells || isTold(section, object))
                continue;
            const auto shared = std::find_if(places.begin(), places.end(),
                                             [&](const auto& place) { return place.first == cell.column; });
            if (shared == places.end()) {
                places.emplace_back(cell.column, m_groups.size());
                m_groups.push_back({section, {cell.object}, groupName(object), {}});
                continue;
            }
            GroupColumn& column = m_groups[shared->second];
            column.objects.push_back(cell.object);
            if (column.name.isEmpty())
                column.name = groupName(object);
        }
    }
}

/// Whether the lines themselves or an outer group's header show the column already.
bool CsvOutput::isTold(int section, const ReportObject& object) const {
    const auto same = [&](int otherSection, int position) {
        const ReportObject& other = m_definition.sections[otherSection].objects[position];
        return isColumn(object) && isColumn(other) && other.source.index == object.source.index &&
               other.dateForm == object.dateForm;
    };
    const bool inBody =
        std::any_of(m_plan.columns().begin(), m_plan.columns().end(), [&](const TableColumn& column) {
            return std::any_of(column.objects.begin(), column.objects.end(),
                               [&](const ObjectPlace& place) { return same(place.section, place.object); });
        });
    return inBody || std::any_of(m_groups.begin(), m_groups.end(), [&](const GroupColumn& column) {
               return column.section != section && same(column.section, column.objects.front());
           });
}

QString CsvOutput::bodyName(const TableColumn& column) const {
    QStringList words;
    for (const ObjectPlace& place : column.headings) {
        Band band;
        band.section = place.section;
        words << fieldText(m_context, {}, band, place.object).simplified();
    }
    if (!words.isEmpty())
        return words.join(u' ');
    for (const ObjectPlace& place : column.objects) {
        const ReportObject& object = m_definition.sections[place.section].objects[place.object];
        if (isColumn(object))
            return m_definition.columns[object.source.index].name;
    }
    return {};
}

/// What the group's kind is called, unless the lines have a column of that name; else the column's own name.
QString CsvOutput::groupName(const ReportObject& object) const {
    if (!isColumn(object))
        return {};
    const auto isTaken = [this](const QString& name) {
        return std::any_of(m_plan.columns().begin(), m_plan.columns().end(), [&](const TableColumn& column) {
            return bodyName(column).compare(name, Qt::CaseInsensitive) == 0;
        });
    };
    for (const Group& group : m_definition.groups)
        if (group.column == object.source.index && !group.caption.isEmpty() && !isTaken(group.caption))
            return group.caption;
    return m_definition.columns[object.source.index].name;
}

QString CsvOutput::heading() const {
    QStringList names;
    for (const GroupColumn& column : m_groups)
        names << quoted(guarded(column.name));
    for (const TableColumn& column : m_plan.columns())
        names << quoted(guarded(bodyName(column)));
    return names.join(m_separator) + u"\r\n"_s;
}

QString CsvOutput::lines(const Page& page) {
    QString lines;
    for (const Band& band : page.bands) {
        if (m_plan.section(band.section).isBody)
            addLine(lines, page, band);
        else if (m_definition.sections[band.section].kind == SectionKind::GroupHeader && !band.repeated)
            takeGroup(page, band);
    }
    return lines;
}

void CsvOutput::takeGroup(const Page& page, const Band& band) {
    m_groupTexts.clear();
    for (GroupColumn& column : m_groups) {
        if (column.section == band.section) {
            column.text.clear();
            for (const int object : column.objects)
                if (column.text.isEmpty())
                    column.text = quoted(text(page, band, object));
        }
        m_groupTexts += column.text + m_separator;
    }
}

void CsvOutput::addLine(QString& lines, const Page& page, const Band& band) const {
    lines += m_groupTexts;
    int column = 0;
    bool filled = false;
    for (const TableCell& cell : m_plan.section(band.section).lines.front().cells) {
        for (; column < cell.column; ++column, filled = false)
            lines += m_separator;
        if (filled)
            continue;
        const QString told = text(page, band, cell.object);
        filled = !told.isEmpty();
        lines += quoted(told);
    }
    for (const int last = static_cast<int>(m_plan.columns().size()) - 1; column < last; ++column)
        lines += m_separator;
    lines += u"\r\n"_s;
}

QString CsvOutput::text(const Page& page, const Band& band, int object) const {
    const ReportObject& shown = m_definition.sections[band.section].objects[object];
    const bool hasValue = shown.kind == ObjectKind::Field && object < static_cast<int>(band.values.size()) &&
                          isShown(shown, band, object);
    if (hasValue && isNumber(band.values[object])) {
        const double number = band.values[object].toNumber(m_context.regional);
        if (std::isfinite(number))
            return plainNumber(number, m_context.regional.decimalSeparator);
    }
    const QString told = fieldText(m_context, page, band, object);
    const bool isDate = hasValue && band.values[object].get<Date>();
    return isDate ? told : guarded(told);
}

QString CsvOutput::quoted(const QString& text) const {
    const bool plain = std::none_of(text.begin(), text.end(), [this](QChar character) {
        return character == m_separator || character == u'"' || character == u'\r' || character == u'\n';
    });
    // Programs are free to drop blanks at the ends of a text that has no quotes.
    if (plain && (text.isEmpty() || (!text.front().isSpace() && !text.back().isSpace())))
        return text;
    return u'"' + QString(text).replace(u'"', u"\"\""_s) + u'"';
}

QString CsvOutput::guarded(const QString& text) const {
    return startsFormula(text) ? u'\'' + text : text;
}

bool writeCsv(const OutputSource& source, const QString& path, const OutputProgress& progress) {
    FileInPlace file(path);
    QFile& target = file.open();
    PageContext context;
    if (!layOutWhole(source, progress, context))
        return false;
    CsvOutput table(context);
    target.write(utf8Mark.data(), utf8Mark.size());
    write(target, table.heading());
    for (int page = 0; page < context.pageCount && target.error() == QFileDevice::NoError; ++page) {
        write(target, table.lines(source.layout->page(page)));
        if (progress && !progress(page + 1, context.pageCount))
            return false;
    }
    file.commit();
    return true;
}

} // namespace quorvane::report
