#pragma once

#include <QColor>
#include <QMap>
#include <QString>
#include <vector>

namespace quorvane::report::test {

/// A cell of a sheet as its file keeps it: nothing, a number or a text, and how it looks.
struct SheetCell {
    enum class Kind { Nothing, Number, Text };

    Kind kind = Kind::Nothing;
    double digits = 0;
    QString words;
    QString format; ///< of numbers, "General" when it has none of its own
    bool bold = false;
    QColor colour;
    QColor ground;

    bool isEmpty() const { return kind == Kind::Nothing; }
    double number() const;
    QString text() const;
    void setNumber(double number);
    void setText(const QString& text);
};

/// A workbook read back by the means of the format itself: its parts unpacked and read as XML.
class SheetReader {
public:
    explicit SheetReader(const QString& path);

    /// The names of the sheets.
    const QStringList& sheets() const { return m_names; }
    void open(int sheet);
    int rowCount() const { return static_cast<int>(m_rows.size()); }
    SheetCell cell(int row, int column) const;
    /// The row's texts, numbers as their digits, from the first column to the last that has something.
    QStringList row(int row) const;
    /// The first row whose first filled cell has the text; -1 when there is none.
    int rowOf(const QString& text) const;
    /// Rows above the line that stays while the others scroll.
    int frozenRows() const { return m_frozen; }
    double width(int column) const { return m_widths.value(column); }

private:
    struct Look {
        QString format = QStringLiteral("General");
        bool bold = false;
        QColor colour;
        QColor ground;
    };
    QByteArray part(const QString& name) const;
    void readNames();
    void readLooks();
    void readRows(const QByteArray& sheet);

    QString m_path;
    QStringList m_names;
    std::vector<Look> m_looks;
    std::vector<QMap<int, SheetCell>> m_rows;
    QMap<int, double> m_widths;
    int m_frozen = 0;
};

} // namespace quorvane::report::test
