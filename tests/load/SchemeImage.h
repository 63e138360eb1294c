#pragma once

#include "tests/load/LoadHistory.h"

namespace dalvora::test {

/// One line of a scheme in a form that is the same whether it comes from a record or from the database.
struct LineImage {
    int kind = 0; ///< 1 product, 2 amount, 3 price list
    QString code;
    QString mark; ///< its "calculo"
    QString rest; ///< everything else
    bool operator<(const LineImage& other) const {
        return std::tie(kind, code, mark, rest) < std::tie(other.kind, other.code, other.mark, other.rest);
    }
};

/// A scheme as one save wrote it, or as a reader saw it.
struct SchemeImage {
    QString code;
    QString description;
    QString rest;
    std::vector<LineImage> lines;
};

/// The cells that an image amounts to. What no save can have written is told in `faults`: lines of another
/// mark, too few or too many of them, one user's lines of two saves.
std::vector<LoadCell> cellsOf(SchemeImage image, QStringList& faults);

} // namespace dalvora::test
