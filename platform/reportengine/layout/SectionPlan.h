#pragma once

#include "platform/reportengine/definition/Definition.h"
#include <vector>

namespace quorvane::report {

/// Sections that follow each other, and their height together.
struct SectionList {
    std::vector<int> sections; ///< positions in Definition::sections
    double height = 0;
    double kept = 0; ///< the height before the first one that begins a page

    int size() const { return static_cast<int>(sections.size()); }
};

/// Which sections come where, worked out once: what ends with a group and what begins with it depends only on
/// the outermost group that changes.
struct SectionPlan {
    explicit SectionPlan(const Definition& definition);

    SectionList reportHeader;
    SectionList pageHeader;
    SectionList details;
    SectionList reportFooter;
    SectionList pageFooter;
    /// By the outermost group that ends: the footers of all groups within it, innermost first. The last one,
    /// for no group, is empty.
    std::vector<SectionList> footersFrom;
    /// By the outermost group that begins: the headers of all groups within it, itself first.
    std::vector<SectionList> headersFrom;
    /// By how many groups go on: the headers that come again on a new page.
    std::vector<SectionList> repeated;
};

} // namespace quorvane::report
