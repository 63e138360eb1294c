#pragma once

#include <QString>
#include <ostream>

// So that a failed comparison shows texts as text. GoogleTest finds these beside the types they print.

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
