#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/layout/Page.h"

namespace quorvane::report {

/// What a page is drawn with besides itself.
struct PageContext {
    const Definition* definition = nullptr;
    RegionalSettings regional;
    int pageCount = 0;                                      ///< 0 while it is not known yet: "Página 3"
    const std::vector<struct GroupEntry>* groups = nullptr; ///< for charts
};

/// The text that an object of a band shows: fields as their format says, texts as they are, "" for the rest.
QString fieldText(const PageContext& context, const Page& page, const Band& band, int object);

} // namespace quorvane::report
