#include "platform/quorvane32/core/sqlserver/SqlServerDialect.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <algorithm>
#include <utility>

namespace quorvane::sqlserver {

namespace {

/// Reserved words that begin a statement and have no place inside a SELECT, an INSERT, an UPDATE or a DELETE.
constexpr QStringView openingWords[] = {
    u"alter",     u"backup",   u"begin",       u"break",     u"bulk",       u"checkpoint", u"close",
    u"commit",    u"continue", u"create",      u"dbcc",      u"deallocate", u"declare",    u"delete",
    u"deny",      u"drop",     u"dump",        u"exec",      u"execute",    u"goto",       u"grant",
    u"if",        u"insert",   u"kill",        u"load",      u"merge",      u"open",       u"print",
    u"raiserror", u"readtext", u"reconfigure", u"restore",   u"return",     u"revert",     u"revoke",
    u"rollback",  u"save",     u"setuser",     u"shutdown",  u"truncate",   u"update",     u"updatetext",
    u"use",       u"waitfor",  u"while",       u"writetext",
};

[[noreturn]] void refuse(const QString& why) {
    throw RunTimeError(ErrorRefusedStatement, why);
}

/// The characters that the server may take for a blank or for the end of a line, and the lexer does not.
bool isDoubtful(QChar c) {
    return c != u' ' && c != u'\n' && c != u'\t' && c != u'\r' &&
           (c.isSpace() || c.category() == QChar::Other_Control || c.category() == QChar::Other_Format);
}

/// Error 3705 where the server, or ODBC, could read tokens in another way than the lexer.
void requireClear(QStringView sql, const std::vector<SqlToken>& tokens) {
    for (const SqlToken& token : tokens) {
        const QStringView text = token.text(sql);
        if (token.kind == SqlToken::String || token.kind == SqlToken::QuotedName)
            continue;
        const bool line = token.kind == SqlToken::Comment && text.startsWith(u"--");
        const bool comment = token.kind == SqlToken::Comment && !line;
        if (std::ranges::any_of(text, isDoubtful) || (comment && text.mid(2).contains(u"/*")) ||
            (line && text.chopped(text.endsWith(u'\r') ? 1 : 0).contains(u'\r')) ||
            (token.kind == SqlToken::Symbol && (text == u"{" || text == u"}")))
            refuse(QStringLiteral("La instrucción tiene un comentario o carácter que no se admite"));
    }
}

/// Walks over a statement and refuses the beginning of a second one (error 3705), which the server runs
/// without a ";" in front of it. Definitions hold such words in many places and are the administrator's.
class OneStatement {
public:
    void read(const QString& token, bool word) {
        if (m_first.isEmpty())
            m_first = token;
        else if (word && isChecked() && beginsAnother(token))
            refuse(QStringLiteral("Sólo se acepta una instrucción a la vez"));
        m_depth += token == u"(" ? 1 : token == u")" ? -1 : 0;
        m_before = token;
    }

private:
    bool isChecked() const {
        return m_first == u"select" || m_first == u"insert" || m_first == u"update" || m_first == u"delete";
    }
    bool beginsAnother(const QString& word) {
        if (std::ranges::find(openingWords, word) != std::end(openingWords))
            return true;
        if (m_depth > 0)
            return false;
        if (word == u"set") // UPDATE has one
            return m_first != u"update" || std::exchange(m_taken, true);
        if (word != u"select")
            return false;
        constexpr QStringView joins[] = {u"union", u"all", u"except", u"intersect"};
        if (std::ranges::find(joins, m_before) != std::end(joins))
            return false;
        return m_first != u"insert" || std::exchange(m_taken, true); // INSERT takes its rows from one
    }

    QString m_first;
    QString m_before;
    int m_depth = 0;
    bool m_taken = false;
};

void requireServersOne(QStringView sql, const std::vector<SqlToken>& tokens) {
    requireClear(sql, tokens);
    requireFilled(sql, tokens);
    OneStatement statement;
    for (const SqlToken& token : tokens)
        if (token.significant())
            statement.read(token.text(sql).toString().toLower(), token.kind == SqlToken::Word);
}

} // namespace

QString SqlServerDialect::adaptCommand(const QString& sql) {
    tokenize(sql, m_tokens);
    requireOneStatement(sql, m_tokens);
    requireServersOne(sql, m_tokens);
    if (m_readOnly)
        throw RunTimeError(ErrorPermissionDenied,
                           QStringLiteral("La base de datos es de sólo lectura según el perfil"));
    return sql;
}

QString SqlServerDialect::adaptQuery(const QString& sql) {
    tokenize(sql, m_tokens);
    requireOneSelect(sql, m_tokens);
    requireServersOne(sql, m_tokens);
    return sql;
}

} // namespace quorvane::sqlserver
