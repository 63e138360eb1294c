#include "platform/reportengine/output/LaidOut.h"

namespace quorvane::report {

namespace {

/// Short enough for a cancel to answer at once.
constexpr std::chrono::milliseconds slice{40};

} // namespace

bool layOutWhole(const OutputSource& source, const OutputProgress& progress, PageContext& context) {
    Layout& layout = *source.layout;
    while (layout.advance(slice))
        if (progress && !progress(0, layout.pageCount()))
            return false;
    context = source.context;
    context.pageCount = layout.pageCount();
    context.groups = &layout.groups();
    return true;
}

} // namespace quorvane::report
