#pragma once

#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane::test {

/// Number of the run-time error that an operation ends with, 0 when it ends well.
template<class Operation> int errorOf(Operation&& operation) {
    try {
        operation();
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

} // namespace quorvane::test
