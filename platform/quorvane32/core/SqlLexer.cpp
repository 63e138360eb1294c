#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane {

namespace {

bool isBlank(QChar c) {
    return c == u' ' || c == u'\n' || c == u'\t' || c == u'\r';
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool startsWord(QChar c) {
    const char16_t u = c.unicode();
    return (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || u == u'_' || u == u'@' || u == u'#' ||
           u >= 0x80;
}

bool continuesWord(QChar c) {
    return startsWord(c) || isDigit(c) || c == u'$';
}

/// One pass over the text; each take... function returns the end of the token that starts at `from`.
class Scanner {
public:
    explicit Scanner(QStringView sql) : m_sql(sql) {}

    SqlToken next(qsizetype from) const {
        const QChar c = m_sql[from];
        if (isBlank(c))
            return {from, runEnd(from, isBlank) - from, SqlToken::Blank};
        if (c == u'\'')
            return quoted(from, u'\'', SqlToken::String);
        if (c == u'"')
            return quoted(from, u'"', SqlToken::QuotedName);
        if (c == u'`')
            return quoted(from, u'`', SqlToken::QuotedName);
        if (c == u'[')
            return quoted(from, u']', SqlToken::QuotedName);
        if (startsWord(c))
            return {from, runEnd(from, continuesWord) - from, SqlToken::Word};
        if (isDigit(c) || (c == u'.' && isDigit(at(from + 1))))
            return {from, numberEnd(from) - from, SqlToken::Number};
        if (c == u'-' && at(from + 1) == u'-')
            return {from, lineEnd(from) - from, SqlToken::Comment};
        if (c == u'/' && at(from + 1) == u'*')
            return blockComment(from);
        return {from, symbolLength(from), SqlToken::Symbol};
    }

private:
    QChar at(qsizetype i) const { return i < m_sql.size() ? m_sql[i] : QChar(); }

    template<class Test> qsizetype runEnd(qsizetype from, Test test) const {
        while (from < m_sql.size() && test(m_sql[from]))
            ++from;
        return from;
    }

    SqlToken quoted(qsizetype from, QChar close, SqlToken::Kind kind) const {
        for (qsizetype i = from + 1; i < m_sql.size(); ++i) {
            if (m_sql[i] != close)
                continue;
            if (at(i + 1) != close || i + 1 >= m_sql.size())
                return {from, i + 1 - from, kind};
            ++i;
        }
        return {from, m_sql.size() - from, kind, true};
    }

    qsizetype numberEnd(qsizetype from) const {
        qsizetype i = runEnd(from, isDigit);
        if (at(i) == u'.')
            i = runEnd(i + 1, isDigit);
        if (at(i) == u'e' || at(i) == u'E') {
            const qsizetype digits = i + (at(i + 1) == u'+' || at(i + 1) == u'-' ? 2 : 1);
            if (isDigit(at(digits)))
                i = runEnd(digits, isDigit);
        }
        return i;
    }

    qsizetype lineEnd(qsizetype from) const {
        return runEnd(from, [](QChar c) { return c != u'\n'; });
    }

    SqlToken blockComment(qsizetype from) const {
        const auto close = m_sql.indexOf(QStringView(u"*/"), from + 2);
        return close < 0 ? SqlToken{from, m_sql.size() - from, SqlToken::Comment, true}
                         : SqlToken{from, close + 2 - from, SqlToken::Comment};
    }

    qsizetype symbolLength(qsizetype from) const {
        const QChar c = m_sql[from];
        const QChar following = at(from + 1);
        const bool pair = (c == u'<' && (following == u'=' || following == u'>')) ||
                          (c == u'>' && following == u'=') || (c == u'!' && following == u'=') ||
                          (c == u'|' && following == u'|');
        return pair ? 2 : 1;
    }

    QStringView m_sql;
};

[[noreturn]] void refuse(const QString& why) {
    throw RunTimeError(ErrorRefusedStatement, why);
}

} // namespace

void tokenize(QStringView sql, std::vector<SqlToken>& tokens) {
    tokens.clear();
    const Scanner scanner(sql);
    for (qsizetype at = 0; at < sql.size(); at += tokens.back().length)
        tokens.push_back(scanner.next(at));
}

QString literalText(QStringView literal) {
    return literal.mid(1, literal.size() - 2).toString().replace(QLatin1String("''"), QLatin1String("'"));
}

QStringList statementsOf(const QString& script) {
    std::vector<SqlToken> tokens;
    tokenize(script, tokens);
    QStringList statements;
    qsizetype start = 0;
    bool any = false;
    for (const SqlToken& token : tokens) {
        const bool ends = token.kind == SqlToken::Symbol && token.text(script) == u";";
        if (ends && any)
            statements.append(script.mid(start, token.start - start));
        if (ends)
            start = token.start + 1;
        any = !ends && (any || token.significant());
    }
    if (any)
        statements.append(script.mid(start));
    return statements;
}

void requireOneStatement(QStringView sql, const std::vector<SqlToken>& tokens) {
    bool ended = false;
    bool any = false;
    for (const SqlToken& token : tokens) {
        if (token.open)
            refuse(QStringLiteral("La instrucción tiene un texto o comentario sin cerrar"));
        // An engine's compiler stops at a NUL: a DELETE would run without the condition behind it.
        if (token.kind != SqlToken::String && token.text(sql).contains(QChar(u'\0')))
            refuse(QStringLiteral("La instrucción tiene un carácter nulo fuera de sus textos"));
        if (!token.significant())
            continue;
        if (token.text(sql) == u";") {
            ended = true;
            continue;
        }
        if (ended)
            refuse(QStringLiteral("Sólo se acepta una instrucción a la vez"));
        any = true;
    }
    if (!any)
        refuse(QStringLiteral("La instrucción está vacía"));
}

void requireOneSelect(QStringView sql, const std::vector<SqlToken>& tokens) {
    requireOneStatement(sql, tokens);
    bool first = true;
    for (const SqlToken& token : tokens) {
        if (!token.significant())
            continue;
        const bool word = token.kind == SqlToken::Word;
        if (first && !(word && token.text(sql).compare(u"select", Qt::CaseInsensitive) == 0))
            refuse(QStringLiteral("Una consulta sólo puede ser una instrucción SELECT"));
        if (word && token.text(sql).compare(u"into", Qt::CaseInsensitive) == 0)
            refuse(QStringLiteral("Una consulta no puede guardar datos"));
        first = false;
    }
}

void requireFilled(QStringView sql, const std::vector<SqlToken>& tokens) {
    const auto isColonAt = [&](qsizetype place) {
        return place >= 0 && place < sql.size() && sql[place] == u':';
    };
    for (const SqlToken& token : tokens) {
        const QStringView text = token.text(sql);
        const bool cast = isColonAt(token.start + 1) || isColonAt(token.start - 1);
        const bool symbol =
            token.kind == SqlToken::Symbol && (text == u"$" || text == u"?" || (text == u":" && !cast));
        constexpr qsizetype enoughToFindIt = 32;
        if (symbol || (token.kind == SqlToken::Word && (text.startsWith(u'@') || text.contains(u'$'))))
            refuse(QStringLiteral("La instrucción tiene un parámetro sin valor: %1")
                       .arg(sql.mid(token.start, enoughToFindIt)));
    }
}

} // namespace quorvane
