#pragma once

#include "platform/quorvane32/core/DateLiterals.h"
#include <QByteArray>
#include <variant>
#include <vector>

namespace quorvane::sqlite {

/// A literal taken out of a statement and bound to it.
using Parameter = std::variant<qint64, double, QByteArray>;

/// The ERP server's SQL as SQLite reads it: TOP n becomes LIMIT, isnull() becomes ifnull(), and literals
/// against date columns become ISO dates.
///
/// The literals of INSERT, REPLACE, UPDATE and DELETE, also behind WITH, are taken out and bound: a save
/// sends the same few statements with other values, so each is compiled once and found again by its shape
/// (the text with "?" for every literal).
class SqliteDialect {
public:
    explicit SqliteDialect(DateColumns columns) : m_columns(std::move(columns)) {}

    /// A command taken apart. Only writing commands are: `bound` is false for the others (schema, pragmas),
    /// whose shape is their whole text and whose literals stay in it.
    struct Command {
        QString shape;
        bool bound = false;
        std::vector<SqlToken> literals;
    };
    /// Error 3705 for anything but one statement.
    Command split(const QString& sql);
    /// Which of the literals stand against a date column. Costs more than split and is the same for equal
    /// shapes.
    std::vector<bool> dateLiterals(const QString& sql);
    /// What SQLite compiles for a shape.
    QByteArray adaptShape(const QString& shape);
    /// The value of a literal; error 241 when a date column is given no date.
    static Parameter parameter(QStringView sql, const SqlToken& literal, bool isDate);

    struct Query {
        QByteArray sql;
        std::vector<Parameter> parameters;
    };
    /// Error 3705 for anything but one SELECT.
    Query adaptQuery(const QString& sql);

private:
    DateColumns m_columns;
    std::vector<SqlToken> m_tokens;
};

} // namespace quorvane::sqlite
