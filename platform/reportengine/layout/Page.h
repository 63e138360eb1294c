#pragma once

#include "platform/quorvane32/base/Value.h"
#include <QtGlobal>
#include <vector>

namespace quorvane::report {

/// A section that has been laid out: what it shows, not yet as text.
struct Band {
    int section = 0;       ///< position in Definition::sections
    double top = 0;        ///< points from the page's upper edge
    qint64 row = -1;       ///< the row in report order that it stands for
    bool odd = false;      ///< details: the second of two rows, for the tinted ground
    bool repeated = false; ///< a group header that comes again on a further page of its group
    /// One an object of the section: a field's value, a sum or count; Empty where the object has none of its
    /// own or shows what is known at drawing only (page numbers, formulas, the date of printing).
    std::vector<Value> values;
    std::vector<bool> condition; ///< one an object: whether its condition holds (empty: none does)
};

/// A page, made when it is asked for and thrown away after use. What depends on the number of pages is filled
/// in when it is drawn.
struct Page {
    int number = 1;
    std::vector<Band> bands;
};

} // namespace quorvane::report
