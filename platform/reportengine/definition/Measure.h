#pragma once

namespace quorvane::report {

/// A measure of the file in points.
constexpr double points(double millimetres) {
    return millimetres * 72 / 25.4;
}

} // namespace quorvane::report
