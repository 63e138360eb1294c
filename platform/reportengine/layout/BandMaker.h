#pragma once

#include "platform/reportengine/layout/Page.h"
#include "platform/reportengine/layout/Totals.h"

namespace quorvane::report {

/// Whether a value passes a condition's test. Null is neither negative, positive nor zero; blanks are empty.
bool conditionHolds(Condition::Test test, const Value& value);

/// A section with the values that its objects show. `row` is null when there are no
/// rows: columns are Empty then. A condition on the column that a sum adds up looks at the sum.
Band makeBand(const Definition& definition, int section, const RowReader* row, const Totals& totals);

} // namespace quorvane::report
