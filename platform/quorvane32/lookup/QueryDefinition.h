#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include <QString>
#include <QStringList>
#include <vector>

namespace quorvane {

/// How a lookup column shows and sorts its values.
enum class ColumnFormat { Text, Date, Number };
enum class ColumnAlignment { Left, Centre, Right };

/// One column of the lookup window.
struct QueryColumn {
    QString caption;
    /// Field of the SELECT that it shows.
    QString field;
    /// Width in characters.
    int width = 12;
    ColumnAlignment alignment = ColumnAlignment::Left;
    ColumnFormat format = ColumnFormat::Text;
    /// Fixed decimals of a number; below 0 the number is shown in general form.
    int decimals = -1;
};

/// What a parameter holds decides which literal it becomes.
enum class ParameterKind { Text, Date, Number };

struct QueryParameter {
    QString name;
    ParameterKind kind = ParameterKind::Text;
    /// Stands in for a parameter that arrives empty.
    QString whenEmpty;
};

/// One named query of a query file: the statement with its parameters, and the window that shows its rows.
struct QueryDefinition {
    QString name;
    QString title;
    /// Shown instead of rows when there are none.
    QString emptyText;
    std::vector<QueryParameter> parameters;
    std::vector<QueryColumn> columns;
    /// Fields of the chosen row in the order in which they are returned; the first one is its code.
    QStringList returned;
    /// The statement; $1$, $2$ ... stand for the parameters.
    QString sql;

    /// The statement with every parameter put in as a literal, quotes doubled. Parameters past the declared
    /// ones are not used. Error 3061 when there are too few, 13 when a date or a number cannot be read, 5 for
    /// a text with a NUL.
    QString statement(const QStringList& values, const RegionalSettings& regional) const;
};

/// Calls `text(piece)` and `placeholder(number)` for the parts of a statement in their order. A $n$ inside a
/// quoted text or name, or behind "--", is text. Returns false when a quote is left open.
template<class Text, class Placeholder>
bool walkStatement(QStringView sql, Text&& text, Placeholder&& placeholder);

/// Position behind a placeholder $n$ at `start`, its number in `number`; `start` itself when there is none.
qsizetype placeholderEnd(QStringView sql, qsizetype start, int& number);

template<class Text, class Placeholder>
bool walkStatement(QStringView sql, Text&& text, Placeholder&& placeholder) {
    qsizetype done = 0;
    qsizetype i = 0;
    while (i < sql.size()) {
        const QChar c = sql[i];
        int number = 0;
        if (c == u'\'' || c == u'"' || c == u'[') {
            const qsizetype end = sql.indexOf(c == u'[' ? u']' : c, i + 1);
            if (end < 0)
                return false;
            i = end + 1;
        } else if (sql.sliced(i).startsWith(u"--")) {
            const qsizetype end = sql.indexOf(u'\n', i);
            i = end < 0 ? sql.size() : end;
        } else if (const qsizetype end = placeholderEnd(sql, i, number); end != i) {
            text(sql.sliced(done, i - done));
            placeholder(number);
            done = i = end;
        } else {
            ++i;
        }
    }
    text(sql.sliced(done));
    return true;
}

} // namespace quorvane
