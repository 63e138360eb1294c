#pragma once

#include <QStringList>
#include <QStringView>
#include <vector>

namespace quorvane {

/// One token of a statement; its text is sql.mid(start, length).
struct SqlToken {
    enum Kind : quint8 { Word, QuotedName, String, Number, Symbol, Blank, Comment };

    qsizetype start = 0;
    qsizetype length = 0;
    Kind kind = Blank;
    /// A literal that was left open at the end of the text.
    bool open = false;
    /// A text literal that stands against a date column (see markDateLiterals).
    bool dateLiteral = false;

    QStringView text(QStringView sql) const { return sql.mid(start, length); }
    bool significant() const { return kind != Blank && kind != Comment; }
};

/// Splits a statement into tokens that cover it without a gap. Never fails: what it does not know is a Symbol
/// of one character; <=, >=, <>, != and || are one Symbol.
void tokenize(QStringView sql, std::vector<SqlToken>& tokens);

/// What a text literal stands for: without its quotes, doubled quotes made single.
QString literalText(QStringView literal);

/// The statements of a script, which stand before a ";" each.
QStringList statementsOf(const QString& script);

/// Error 3705 unless the tokens are exactly one statement with no NUL outside its texts, and for a query one
/// SELECT that stores nothing (no INTO). A trailing ";" is allowed.
void requireOneStatement(QStringView sql, const std::vector<SqlToken>& tokens);
void requireOneSelect(QStringView sql, const std::vector<SqlToken>& tokens);
/// Error 3705 for a value that nobody filled in: $Codigo$ would open a text for some server, ? and :name an
/// operator, @name stand for a variable.
void requireFilled(QStringView sql, const std::vector<SqlToken>& tokens);

} // namespace quorvane
