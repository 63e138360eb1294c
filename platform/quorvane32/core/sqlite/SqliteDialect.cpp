#include "platform/quorvane32/core/sqlite/SqliteDialect.h"
#include "platform/quorvane32/core/SqlRewriter.h"
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

constexpr QStringView nullFunction = u"ifnull";

/// A query with its date literals in ISO; a text that holds a NUL becomes a parameter, since the compiler
/// stops at a NUL.
class QueryRewriter final : public SqlRewriter {
public:
    QueryRewriter(QStringView sql, const std::vector<SqlToken>& tokens, std::vector<Parameter>& parameters)
        : SqlRewriter(sql, tokens, nullFunction), m_parameters(parameters) {}

protected:
    void write(QString& out, std::size_t i) override {
        const bool literal = token(i).kind == SqlToken::String;
        if (literal && token(i).dateLiteral) {
            out += u'\'' + isoDate(literalText(text(i))) + u'\'';
        } else if (literal && text(i).contains(QChar(u'\0'))) {
            out += u'?';
            m_parameters.emplace_back(literalText(text(i)).toUtf8());
        } else {
            out += text(i);
        }
    }

private:
    std::vector<Parameter>& m_parameters;
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
    return SqlRewriter(shape, m_tokens, nullFunction).run().toUtf8();
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
    query.sql = QueryRewriter(sql, m_tokens, query.parameters).run().toUtf8();
    return query;
}

} // namespace quorvane::sqlite
