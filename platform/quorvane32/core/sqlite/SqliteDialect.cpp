#include "platform/quorvane32/core/sqlite/SqliteDialect.h"

namespace quorvane::sqlite {

namespace {

bool isWord(QStringView text, QStringView word) {
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

bool isBoundCommand(QStringView sql, const std::vector<SqlToken>& tokens) {
    for (const SqlToken& token : tokens)
        if (token.significant())
            return isWord(token.text(sql), u"insert") || isWord(token.text(sql), u"update") ||
                   isWord(token.text(sql), u"delete");
    return false;
}

bool isLiteral(const SqlToken& token) {
    return token.kind == SqlToken::String || token.kind == SqlToken::Number;
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
            if (token.kind == SqlToken::String) {
                writeLiteral(m_out, token);
            } else if (token.kind == SqlToken::Word && isWord(text, u"top") &&
                       isWord(m_lastWord, u"select")) {
                i = takeTop(i);
            } else if (token.kind == SqlToken::Word && isWord(text, u"isnull") && nextIs(i, u"(")) {
                m_out += u"ifnull";
            } else {
                writePlain(token, text);
            }
            if (token.significant())
                m_lastWord = text;
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
            m_out += QLatin1String(" LIMIT ") + m_limits.back();
        m_limits.back().clear();
        if (m_limits.size() > 1)
            m_limits.pop_back();
    }

    QStringView m_sql;
    const std::vector<SqlToken>& m_tokens;
    QString m_out;
    QStringView m_lastWord;
    std::vector<QString> m_limits;
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
    for (const SqlToken& token : m_tokens) {
        if (isLiteral(token)) {
            command.shape += u'?';
            command.literals.push_back(token);
        } else {
            command.shape += token.text(sql);
        }
    }
    return command;
}

std::vector<bool> SqliteDialect::dateLiterals(const QString& sql) {
    tokenize(sql, m_tokens);
    markDateLiterals(sql, m_tokens, m_columns);
    std::vector<bool> dates;
    for (const SqlToken& token : m_tokens)
        if (isLiteral(token))
            dates.push_back(token.dateLiteral);
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
