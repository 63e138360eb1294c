#pragma once

#include "platform/reportengine/output/Output.h"

namespace quorvane::report {

/// Lays the whole report out, so that its number of pages and its charts are known, and completes what pages
/// are drawn with. False when the progress stopped it, which is asked with no page done yet.
bool layOutWhole(const OutputSource& source, const OutputProgress& progress, PageContext& context);

} // namespace quorvane::report
