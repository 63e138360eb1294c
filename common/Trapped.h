#pragma once

#include "common/ShowMessage.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace dalvora {

/// Runs an operation the way every public operation of the record runs: a run-time error is told behind the
/// fixed text, and the result is then the fallback.
template<class Result, class Operation>
Result trapped(const QString& text, Result fallback, Operation&& operation) {
    try {
        return operation();
    } catch (const quorvane::RunTimeError& error) {
        ShowRunTimeError(text, error);
        return fallback;
    }
}

} // namespace dalvora
