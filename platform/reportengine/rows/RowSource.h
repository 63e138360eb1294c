#pragma once

#include "platform/quorvane32/base/Value.h"
#include <QString>

namespace quorvane::report {

/// The rows of a report as they come from whoever feeds it, forward only; before the first row when handed
/// over. Errors of the source leave it as RunTimeError.
class RowSource {
public:
    virtual ~RowSource() = default;
    virtual int columnCount() const = 0;
    virtual QString columnName(int column) const = 0;
    /// Moves to the next row; false past the last one.
    virtual bool next() = 0;
    virtual Value value(int column) = 0;
};

} // namespace quorvane::report
