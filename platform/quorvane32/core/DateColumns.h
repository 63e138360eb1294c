#pragma once

#include <QHash>
#include <QString>
#include <vector>

namespace quorvane {

/// Which columns of a database are dates, as its catalogue tells. A column name can be a date in one table
/// and something else in another.
class DateColumns {
public:
    /// Names in any case, the columns of a table in their order.
    void add(const QString& table, const QString& column, bool isDate);

    // All names that follow are asked for in lower case.

    /// True when some table has a date column of this name, or all tables that have the name at all.
    bool isDateSomewhere(const QString& column) const { return m_names.value(column).dated; }
    bool isDateEverywhere(const QString& column) const;
    bool isDateIn(const QString& table, const QString& column) const;
    bool hasTable(const QString& table) const { return m_tables.contains(table); }
    /// Which columns of a table are dates, in the table's order; empty for an unknown table.
    std::vector<bool> ofTable(const QString& table) const;

private:
    struct Column {
        QString name;
        bool isDate = false;
    };
    struct Use {
        bool dated = false;
        bool otherwise = false;
    };
    QHash<QString, Use> m_names;
    QHash<QString, std::vector<Column>> m_tables;
};

} // namespace quorvane
