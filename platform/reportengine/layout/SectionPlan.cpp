#include "platform/reportengine/layout/SectionPlan.h"

namespace quorvane::report {

namespace {

void add(SectionList& list, const Definition& definition, int section) {
    const Section& added = definition.sections[section];
    list.sections.push_back(section);
    if (list.kept == list.height && !added.newPageBefore)
        list.kept += added.height;
    list.height += added.height;
}

void append(SectionList& list, const Definition& definition, const SectionList& more) {
    for (const int section : more.sections)
        add(list, definition, section);
}

SectionList sectionsOf(const Definition& definition, SectionKind kind, int group = 0) {
    SectionList list;
    for (int i = 0; i < static_cast<int>(definition.sections.size()); ++i)
        if (definition.sections[i].kind == kind && definition.sections[i].group == group)
            add(list, definition, i);
    return list;
}

} // namespace

SectionPlan::SectionPlan(const Definition& definition)
    : reportHeader(sectionsOf(definition, SectionKind::ReportHeader))
    , pageHeader(sectionsOf(definition, SectionKind::PageHeader))
    , details(sectionsOf(definition, SectionKind::Details))
    , reportFooter(sectionsOf(definition, SectionKind::ReportFooter))
    , pageFooter(sectionsOf(definition, SectionKind::PageFooter))
    , footersFrom(definition.groups.size() + 1)
    , headersFrom(definition.groups.size() + 1)
    , repeated(definition.groups.size() + 1) {
    const int groups = static_cast<int>(definition.groups.size());
    for (int group = groups - 1; group >= 0; --group) {
        footersFrom[group] = footersFrom[group + 1];
        append(footersFrom[group], definition, sectionsOf(definition, SectionKind::GroupFooter, group));
        headersFrom[group] = sectionsOf(definition, SectionKind::GroupHeader, group);
        append(headersFrom[group], definition, headersFrom[group + 1]);
    }
    for (int group = 0; group < groups; ++group) {
        repeated[group + 1] = repeated[group];
        for (const int section : sectionsOf(definition, SectionKind::GroupHeader, group).sections)
            if (definition.sections[section].repeatOnPage)
                add(repeated[group + 1], definition, section);
    }
}

} // namespace quorvane::report
