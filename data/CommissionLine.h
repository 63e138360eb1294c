#pragma once

#include <QString>
#include <QStringList>

namespace dalvora {

class DBTable;

/// The three kinds of detail lines, numbered as the record's `Grilla` tells them.
enum class LineKind : int {
    Producto = 1,
    Monto = 2,
    Precio = 3,
};

/// A detail line of a commission scheme as grids and record see it: columns of text by number. Every
/// operation shows its own errors; none leaves it.
class CommissionLine {
public:
    virtual ~CommissionLine() = default;
    CommissionLine(const CommissionLine&) = delete;
    CommissionLine& operator=(const CommissionLine&) = delete;

    /// The column's text; "" for a column that the line does not have.
    virtual QString TextValue(int column) const = 0;
    /// Converts, checks and stores an entered text; false when it was refused, which is told and leaves the
    /// line as it was.
    virtual bool setTextValue(int column, const QString& pValue) = 0;
    /// True when the line is complete; otherwise the lack is told and `SysErrorCol` is its column.
    virtual bool Validate() = 0;
    /// One empty text for every column: the choices come from the record.
    QStringList ListValue(int column) const;
    /// Takes the current values as those that the database holds.
    virtual void PostRead() = 0;
    /// Whether any value differs from its saved copy.
    virtual bool SysRecordModified() const = 0;
    /// Whether every value is empty; such lines are neither checked nor written.
    virtual bool SysRecordNull() const = 0;

    /// The line came from the database.
    bool SysRecordFound = false;
    /// Column of the last failed check, 0 when none.
    qint16 SysErrorCol = 0;

protected:
    explicit CommissionLine(const DBTable& table) : m_table(table) {}
    const DBTable& table() const { return m_table; }

private:
    const DBTable& m_table;
};

} // namespace dalvora
