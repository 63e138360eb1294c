#pragma once

#include <QString>

namespace quorvane::report {

/// A field object of a clicked line: its name and the text that it shows.
struct LineField {
    QString name;
    QString text;
};

} // namespace quorvane::report
