#pragma once

#include <QString>

namespace quorvane::report {

/// Where a definition is damaged and why; raised as error 321 "file, línea N: reason".
class Damage {
public:
    explicit Damage(QString file) : m_file(std::move(file)) {}

    /// The reason is Spanish and begins with a small letter. Line 0 is told as the first.
    [[noreturn]] void raise(qint64 line, const QString& reason) const;

private:
    QString m_file;
};

/// A part of the file as a message quotes it: short, and without line ends or control characters.
QString quoted(const QString& text);

} // namespace quorvane::report
