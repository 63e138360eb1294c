#include "platform/quorvane32/core/sqlite/SqliteDialect.h"
#include <algorithm>

namespace quorvane::sqlite {

namespace {

bool isWord(QStringView text, QStringView word) {
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

bool isBoundCommand(QStringView sql, const std::vector<SqlToken>& tokens) {
    constexpr QStringView commands[] = {u"insert", u"update", u"delete", u"replace", u"with"};
    const auto first = std::ranges::find_if(tokens, &SqlToken::significant);
    return first != tokens.end() &&
           std::ranges::any_of(commands, [&](QStringView word) { return isWord(first->text(sql), word); });
}

/// Follows the significant tokens of a statement and tells where SELECT [DISTINCT | ALL] TOP n or TOP ( n )
/// stands.
class SelectHead {
public:
    void read(const SqlToken& token, QStringView text) { m_place = following(token, text); }
    bool atTop() const { return m_place == Top; }
    bool atCount() const { return m_place == Count; }

private:
    enum Place : quint8 { Elsewhere, Select, Top, TopParenthesis, Count };

    Place following(const SqlToken& token, QStringView text) const {
        if (m_place == Top && text == u"(")
            return TopParenthesis;
        if (token.kind == SqlToken::Number)
            return m_place == Top || m_place == TopParenthesis ? Count : Elsewhere;
        if (token.kind != SqlToken::Word)
            return Elsewhere;
        if (m_place == Select && isWord(text, u"top"))
            return Top;
        const bool goesOn = m_place == Select && (isWord(text, u"distinct") || isWord(text, u"all"));
        return goesOn || isWord(text, u"select") ? Select : Elsewhere;
    }

    Place m_place = Elsewhere;
};

/// Calls `take` for every token and tells it whether the token is a literal to be bound. The number of a TOP
/// is none: the dialect moves it.
template<class Take> void forEachToken(QStringView sql, const std::vector<SqlToken>& tokens, Take take) {
    SelectHead head;
    for (const SqlToken& token : tokens) {
        if (token.significant())
            head.read(token, token.text(sql));
        const bool number = token.kind == SqlToken::Number && !head.atCount();
        take(token, number || token.kind == SqlToken::String);
    }
}

/// Writes a statement's tokens anew, with what SQLite spells otherwise. TOP n is remembered until the SELECT
/// that it belongs to ends: at its closing parenthesis or at the end of the statement.
class Rewriter {
public:
    Rewriter(QStringView sql, const std::vector<SqlToken>& tokens) : m_sql(sql), m_tokens(tokens) {}

    template<class WriteLiteral> QString run(WriteLiteral writeLiteral) {
        m_out.reserve(m_sql.size() + 32);
        m_limits.emplace_back();
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            const SqlToken& token = m_tokens[i];
            const QStringView text = token.text(m_sql);
            if (token.significant())
                m_head.read(token, text);
            if (token.kind == SqlToken::String) {
                writeLiteral(m_out, token);
            } else if (token.significant() && m_head.atTop()) {
                i = takeTop(i);
            } else if (token.kind == SqlToken::Word && isWord(text, u"isnull") && nextIs(i, u"(")) {
                m_out += u"ifnull";
            } else {
                writePlain(token, text);
            }
        }
        writeLimit();
        return m_out;
    }

private:
    std::size_t nextSignificant(std::size_t i) const {
        do
            ++i;
        while (i < m_tokens.size() && !m_tokens[i].significant());
        return i;
    }

    bool nextIs(std::size_t i, QStringView text) const {
        const std::size_t next = nextSignificant(i);
        return next < m_tokens.size() && m_tokens[next].text(m_sql) == text;
    }

    void writePlain(const SqlToken& token, QStringView text) {
        if (text == u"(")
            m_limits.emplace_back();
        if (text == u")" || (text == u";" && token.kind == SqlToken::Symbol))
            writeLimit();
        m_out += text;
        if (token.kind == SqlToken::Comment)
            m_inLineComment = text.startsWith(u"--");
        else if (token.kind == SqlToken::Blank)
            m_inLineComment = m_inLineComment && !text.contains(u'\n');
    }

    /// TOP n or TOP ( n ): drops it from the text and keeps n.
    std::size_t takeTop(std::size_t top) {
        std::size_t i = nextSignificant(top);
        const bool parenthesis = i < m_tokens.size() && m_tokens[i].text(m_sql) == u"(";
        if (parenthesis)
            i = nextSignificant(i);
        if (i >= m_tokens.size() || m_tokens[i].kind != SqlToken::Number) {
            m_out += m_tokens[top].text(m_sql);
            return top;
        }
        m_limits.back() = m_tokens[i].text(m_sql).toString();
        return parenthesis ? nextSignificant(i) : i;
    }

    void writeLimit() {
        if (m_limits.empty())
            return;
        if (!m_limits.back().isEmpty())
            m_out += QLatin1String(m_inLineComment ? "\nLIMIT " : " LIMIT ") + m_limits.back();
        m_limits.back().clear();
        if (m_limits.size() > 1)
            m_limits.pop_back();
    }

    QStringView m_sql;
    const std::vector<SqlToken>& m_tokens;
    QString m_out;
    SelectHead m_head;
    std::vector<QString> m_limits;
    bool m_inLineComment = false;
};

} // namespace

SqliteDialect::Command SqliteDialect::split(const QString& sql) {
    tokenize(sql, m_tokens);
    requireOneStatement(sql, m_tokens);
    Command command;
    command.bound = isBoundCommand(sql, m_tokens);
    if (!command.bound) {
        command.shape = sql;
        return command;
    }
    command.shape.reserve(sql.size());
    forEachToken(sql, m_tokens, [&](const SqlToken& token, bool isLiteral) {
        if (isLiteral) {
            command.shape += u'?';
            command.literals.push_back(token);
        } else {
            command.shape += token.text(sql);
        }
    });
    return command;
}

std::vector<bool> SqliteDialect::dateLiterals(const QString& sql) {
    tokenize(sql, m_tokens);
    markDateLiterals(sql, m_tokens, m_columns);
    std::vector<bool> dates;
    forEachToken(sql, m_tokens, [&](const SqlToken& token, bool isLiteral) {
        if (isLiteral)
            dates.push_back(token.dateLiteral);
    });
    return dates;
}

QByteArray SqliteDialect::adaptShape(const QString& shape) {
    tokenize(shape, m_tokens);
    return Rewriter(shape, m_tokens)
        .run([&](QString& out, const SqlToken& literal) { out += literal.text(shape); })
        .toUtf8();
}

Parameter SqliteDialect::parameter(QStringView sql, const SqlToken& literal, bool isDate) {
    const QStringView text = literal.text(sql);
    if (literal.kind == SqlToken::String) {
        const QString value = literalText(text);
        return (isDate ? isoDate(value) : value).toUtf8();
    }
    bool whole = false;
    const qint64 number = text.toLongLong(&whole);
    if (whole)
        return number;
    return text.toDouble();
}

SqliteDialect::Query SqliteDialect::adaptQuery(const QString& sql) {
    tokenize(sql, m_tokens);
    requireOneSelect(sql, m_tokens);
    markDateLiterals(sql, m_tokens, m_columns);
    Query query;
    query.sql = Rewriter(sql, m_tokens)
                    .run([&](QString& out, const SqlToken& literal) {
                        const QStringView text = literal.text(sql);
                        if (literal.dateLiteral) {
                            out += u'\'' + isoDate(literalText(text)) + u'\'';
                        } else if (text.contains(QChar(u'\0'))) {
                            // The compiler stops at a NUL; a bound value may hold one.
                            out += u'?';
                            query.parameters.emplace_back(literalText(text).toUtf8());
                        } else {
                            out += text;
                        }
                    })
                    .toUtf8();
    return query;
}

} // namespace quorvane::sqlite
