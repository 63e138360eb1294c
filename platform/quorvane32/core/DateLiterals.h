#pragma once

#include "platform/quorvane32/core/SqlLexer.h"
#include <QHash>
#include <QSet>
#include <QString>

namespace quorvane {

/// Which columns of a database are dates, as its catalogue tells.
class DateColumns {
public:
    /// Names in any case, the columns of a table in their order. A column name can be a date in one table and
    /// something else in another.
    void add(const QString& table, const QString& column, bool isDate);

    /// True when the name is a date in every table that has it, or in one that the statement names.
    bool isDate(QStringView column, QStringView sql, const std::vector<SqlToken>& tokens) const;

    /// Which columns of a table are dates, in the table's order; empty for an unknown table.
    std::vector<bool> ofTable(QStringView table) const { return m_tables.value(table.toString().toLower()); }

private:
    struct Owners {
        QSet<QString> dated;
        bool elsewhere = false;
    };
    QHash<QString, Owners> m_columns;
    QHash<QString, std::vector<bool>> m_tables;
};

/// Marks the text literals that stand against a date column: compared with it, assigned to it, in BETWEEN or
/// IN behind it, or at its place in VALUES.
void markDateLiterals(QStringView sql, std::vector<SqlToken>& tokens, const DateColumns& columns);

/// The ISO form (yyyy-mm-dd) of a date literal's text: day/month/year with "/", "-" or "." or ISO already;
/// the empty text is 1900-01-01, the ERP server's own reading. Error 241 when the text is no date.
QString isoDate(const QString& text);

} // namespace quorvane
