#pragma once

#include "platform/quorvane32/core/SqlLexer.h"
#include <QString>
#include <vector>

namespace quorvane {

/// Follows the significant tokens of a statement and tells where SELECT [DISTINCT | ALL] TOP n or TOP ( n )
/// stands.
class SelectHead {
public:
    void read(const SqlToken& token, QStringView text) { m_place = following(token, text); }
    bool atTop() const { return m_place == Top; }
    bool atCount() const { return m_place == Count; }

private:
    enum Place : quint8 { Elsewhere, Select, Top, TopParenthesis, Count };
    Place following(const SqlToken& token, QStringView text) const;

    Place m_place = Elsewhere;
};

/// Writes a statement's tokens anew for a database that spells the ERP server's SQL otherwise: TOP n becomes
/// LIMIT n at the end of its SELECT (at its closing parenthesis or at the end of the statement), isnull() the
/// database's own function. What else a database spells otherwise is its dialect's: it writes the tokens.
class SqlRewriter {
public:
    /// `nullFunction` takes the place of isnull.
    SqlRewriter(QStringView sql, const std::vector<SqlToken>& tokens, QStringView nullFunction)
        : m_sql(sql), m_tokens(tokens), m_nullFunction(nullFunction) {}
    virtual ~SqlRewriter() = default;
    SqlRewriter(const SqlRewriter&) = delete;
    SqlRewriter& operator=(const SqlRewriter&) = delete;

    QString run();

protected:
    /// Writes one token, as it is unless a dialect says otherwise.
    virtual void write(QString& out, std::size_t i) { out += text(i); }

    const SqlToken& token(std::size_t i) const { return m_tokens[i]; }
    QStringView text(std::size_t i) const { return m_tokens[i].text(m_sql); }
    /// True for a word in any case.
    bool isWord(std::size_t i, QStringView word) const;
    /// The place of the next or previous token that is neither blank nor comment; tokenCount() for none.
    std::size_t nextSignificant(std::size_t i) const;
    std::size_t previousSignificant(std::size_t i) const;
    std::size_t tokenCount() const { return m_tokens.size(); }

private:
    bool nextIs(std::size_t i, QStringView wanted) const;
    void writeAround(std::size_t i);
    std::size_t takeTop(std::size_t top);
    void writeLimit();

    QStringView m_sql;
    const std::vector<SqlToken>& m_tokens;
    QStringView m_nullFunction;
    QString m_out;
    SelectHead m_head;
    /// The TOP of every SELECT that is open, "" for none.
    std::vector<QString> m_limits;
    bool m_inLineComment = false;
};

} // namespace quorvane
