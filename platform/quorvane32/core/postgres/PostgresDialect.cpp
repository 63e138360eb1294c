#include "platform/quorvane32/core/postgres/PostgresDialect.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/SqlRewriter.h"
#include <algorithm>

namespace quorvane::postgres {

namespace {

/// The server folds the letters A to Z of an unquoted name and no others.
QString foldName(QString name) {
    for (QChar& c : name)
        if (c >= u'A' && c <= u'Z')
            c = QChar(c.unicode() + (u'a' - u'A'));
    return name;
}

/// What stands between a token's quotes: of a text, of "name", `name` or [name].
QString withoutQuotes(QStringView token) {
    const QChar close = token.back();
    return token.mid(1, token.size() - 2).toString().replace(QString(2, close), QString(close));
}

QString quotedName(const QString& name) {
    return u'"' + foldName(name).replace(u'"', QLatin1String("\"\"")) + u'"';
}

class Rewriter final : public SqlRewriter {
public:
    Rewriter(QStringView sql, const std::vector<SqlToken>& tokens) : SqlRewriter(sql, tokens, u"coalesce") {}

protected:
    void write(QString& out, std::size_t i) override {
        switch (token(i).kind) {
        case SqlToken::String:
            return writeText(out, i);
        case SqlToken::QuotedName:
            out += quotedName(withoutQuotes(text(i)));
            return;
        case SqlToken::Comment:
            out += u' '; // the server's comments nest, the ERP's do not
            return;
        case SqlToken::Word:
            // N'...' is the ERP server's mark of a Unicode text.
            if (isWord(i, u"n") && i + 1 < tokenCount() && token(i + 1).kind == SqlToken::String)
                return;
            break;
        default:
            break;
        }
        out += text(i);
    }

private:
    void writeText(QString& out, std::size_t i) {
        if (text(i).contains(QChar(u'\0')))
            throw RunTimeError(ErrorInvalidCall,
                               QStringLiteral("La base de datos no guarda textos con el carácter nulo"));
        // Touching a word or "&" it could become a text with escapes.
        const QChar last = out.isEmpty() ? QChar(u' ') : out.back();
        if (last.isLetterOrNumber() || last == u'_' || last == u'&')
            out += u' ';
        const std::size_t before = previousSignificant(i);
        if (isWord(before, u"as"))
            out += quotedName(literalText(text(i)));
        else if (token(i).dateLiteral)
            out += u'\'' + isoDate(literalText(text(i))) + u'\'';
        else
            out += isCompared(i, before) ? withoutEndBlanks(text(i)) : text(i).toString();
    }

    bool isCompared(std::size_t i, std::size_t before) const {
        constexpr QStringView comparisons[] = {u"=", u"<>", u"!=", u"<", u">", u"<=", u">="};
        const auto isComparison = [&](std::size_t place) {
            return place < tokenCount() &&
                   std::ranges::find(comparisons, text(place)) != std::end(comparisons);
        };
        return isComparison(nextSignificant(i)) || (isComparison(before) && !isAssignment(before));
    }

    /// True for the "=" of SET a = 'x', b = 'y': what is stored keeps its blanks.
    bool isAssignment(std::size_t i) const {
        while ((i = previousSignificant(i)) < tokenCount()) {
            if (isWord(i, u"set"))
                return true;
            constexpr QStringView conditions[] = {u"where", u"and", u"or", u"on", u"when", u"having"};
            if (std::ranges::any_of(conditions, [&](QStringView word) { return isWord(i, word); }))
                return false;
        }
        return false;
    }

    static QString withoutEndBlanks(QStringView literal) {
        qsizetype end = literal.size() - 1;
        while (end > 1 && literal[end - 1] == u' ')
            --end;
        return literal.left(end).toString() + u'\'';
    }
};

} // namespace

QString PostgresDialect::adapt(const QString& sql) {
    requireFilled(sql, m_tokens);
    markDateLiterals(sql, m_tokens, m_columns);
    return Rewriter(sql, m_tokens).run();
}

QString PostgresDialect::adaptCommand(const QString& sql) {
    tokenize(sql, m_tokens);
    requireOneStatement(sql, m_tokens);
    return adapt(sql);
}

QString PostgresDialect::adaptQuery(const QString& sql) {
    tokenize(sql, m_tokens);
    requireOneSelect(sql, m_tokens);
    return adapt(sql);
}

QString PostgresDialect::spelling(const QString& sql, const QString& name) const {
    for (const SqlToken& token : m_tokens) {
        const QStringView text = token.text(sql);
        const bool quoted = token.kind == SqlToken::QuotedName || token.kind == SqlToken::String;
        const QStringView word = quoted ? text.mid(1, text.size() - 2) : text;
        if (token.significant() && word.compare(name, Qt::CaseInsensitive) == 0)
            return word.toString();
    }
    return name;
}

} // namespace quorvane::postgres
