#pragma once

#include <algorithm>
#include <array>

namespace quorvane::report {

/// The usual sizes, 1 being that on paper.
inline constexpr std::array zoomSteps{0.25, 0.33, 0.5, 0.67, 0.75, 1.0, 1.25, 1.5, 2.0, 3.0, 4.0};

/// The usual size above or below one; the last one has no next.
constexpr double nextZoom(double zoom, bool larger) {
    constexpr double nearly = 0.005;
    if (larger) {
        const auto* next = std::find_if(zoomSteps.begin(), zoomSteps.end(),
                                        [zoom](double step) { return step > zoom + nearly; });
        return next == zoomSteps.end() ? zoomSteps.back() : *next;
    }
    double next = zoomSteps.front();
    for (const double step : zoomSteps)
        if (step < zoom - nearly)
            next = step;
    return next;
}

} // namespace quorvane::report
