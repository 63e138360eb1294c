#pragma once

#include <QByteArray>
#include <QString>
#include <variant>
#include <vector>

namespace bench {

/// The cells of a workbook's first sheet, to be written again straight through the library for workbooks.
class SheetCells {
public:
    /// Reads a workbook back.
    explicit SheetCells(const QString& workbook);

    qsizetype count() const { return static_cast<qsizetype>(m_cells.size()); }
    /// Writes them row by row, each in one of as many formats as there were.
    void write(const QString& path) const;

private:
    struct Cell {
        unsigned row = 0;
        unsigned short column = 0;
        int format = 0;
        std::variant<std::monostate, double, QByteArray> value;
    };

    std::vector<Cell> m_cells;
    int m_formats = 0;
};

} // namespace bench
