#pragma once

#include "platform/reportengine/definition/Definition.h"

// Parts of report definitions, for tests that build one without a file.

namespace quorvane::test {

inline report::Column textColumn(const QString& name) {
    report::Column column;
    column.name = name;
    return column;
}

inline report::Column numberColumn(const QString& name) {
    report::Column column = textColumn(name);
    column.type = report::ColumnType::Number;
    return column;
}

inline report::Column dateColumn(const QString& name) {
    report::Column column = textColumn(name);
    column.type = report::ColumnType::Date;
    return column;
}

inline report::Group group(int column, report::Period period = report::Period::None) {
    report::Group group;
    group.column = column;
    group.captionColumn = column;
    group.period = period;
    return group;
}

inline report::ReportObject field(report::FieldSource::Kind kind, int index = 0,
                                  int scope = report::FieldSource::WholeReport) {
    report::ReportObject object;
    object.kind = report::ObjectKind::Field;
    object.source = {kind, index, scope};
    return object;
}

inline report::ReportObject chart(int group, int column) {
    report::ReportObject object;
    object.kind = report::ObjectKind::Chart;
    object.chart.group = group;
    object.chart.column = column;
    return object;
}

inline report::Section section(report::SectionKind kind, double height,
                               std::vector<report::ReportObject> objects = {}, int group = 0) {
    report::Section section;
    section.kind = kind;
    section.height = height;
    section.group = group;
    section.objects = std::move(objects);
    return section;
}

} // namespace quorvane::test
