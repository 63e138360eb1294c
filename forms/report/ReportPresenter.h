#pragma once

namespace quorvane::report {
class Report;
} // namespace quorvane::report

namespace dalvora {

/// Shows reports on the screen; tests record what is shown.
class ReportPresenter {
public:
    virtual ~ReportPresenter() = default;
    /// Shows a filled report in a window and returns when that has been closed.
    virtual void show(quorvane::report::Report& report) = 0;
};

} // namespace dalvora
