#pragma once

namespace quorvane {

/// Numbers of the errors that only the lookup raises.
enum LookupErrorNumber : int {
    /// The query file cannot be understood.
    ErrorInvalidFileFormat = 321,
    /// A query was called with fewer parameters than it declares.
    ErrorTooFewParameters = 3061,
};

} // namespace quorvane
