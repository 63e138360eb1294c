#pragma once

#include "platform/quorvane32/base/SpanishText.h"
#include "platform/quorvane32/base/Value.h"
#include "platform/reportengine/definition/Definition.h"
#include <vector>

namespace quorvane::report {

/// One column of a key, with the way it counts.
struct KeyPart {
    int column = 0; ///< position in Definition::columns
    ColumnType type = ColumnType::Text;
    Period period = Period::None;
    bool descending = false;
};

/// The report's groups, outermost first.
std::vector<KeyPart> groupParts(const Definition& definition);
/// What the rows are sorted by: the groups, then the sort keys that no group has already; nothing when the
/// rows come in order. A sort key gives its group the direction.
std::vector<KeyPart> sortParts(const Definition& definition);

/// Appends bytes whose order is that of the values: texts as in a Spanish list without letter case, numbers
/// and dates by size, what is Null or has not the part's type first. No key begins another of the same part.
void appendKey(const KeyPart& part, const Value& value, SpanishKey& key);

/// The first eight bytes as one number: most comparisons end there.
quint64 keyPrefix(QByteArrayView key);
/// Order of two whole keys.
int compareKeys(QByteArrayView a, QByteArrayView b);

} // namespace quorvane::report
