#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

namespace dalvora::demo {

/// The rows of a CSV file with a header row: fields separated by ",", quoted with '"' where they hold one (a
/// quote inside is doubled). Blanks around a field are dropped.
class CsvTable {
public:
    /// Error 13 when a row has not as many fields as the header or a quote is not closed.
    static CsvTable parse(const QByteArray& utf8);

    std::size_t rowCount() const { return m_rows.size(); }
    /// Position of a column; error 3265 for an unknown one.
    qsizetype column(const QString& name) const;
    const QString& text(std::size_t row, qsizetype column) const { return m_rows[row][column]; }

private:
    QStringList m_names;
    std::vector<QStringList> m_rows;
};

} // namespace dalvora::demo
