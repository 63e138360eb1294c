#pragma once

#include <QString>

namespace quorvane::qtsql {

/// How a server reads the statements of the ERP's programs.
class Dialect {
public:
    virtual ~Dialect() = default;
    /// The statement as the server shall see it. Error 3705 for anything but one statement with all its
    /// values.
    virtual QString adaptCommand(const QString& sql) = 0;
    /// The same; error 3705 also for anything but a SELECT that stores nothing.
    virtual QString adaptQuery(const QString& sql) = 0;
    /// How the statement spells the name of a column that the server gave for it.
    virtual QString spelling(const QString& sql, const QString& name) const = 0;
};

} // namespace quorvane::qtsql
