#pragma once

#include "platform/quorvane32/core/SqlLexer.h"
#include <QString>
#include <vector>

namespace quorvane {

/// Positions of significant tokens, both ends included.
struct SqlRange {
    int first = 0;
    int last = 0;
};

/// The significant tokens of a statement by position, its parentheses in pairs, and the operands that begin
/// or end at a token: enough to see what stands against what, without a grammar. A position outside the
/// statement holds an empty text and is no name.
class SqlOperands {
public:
    SqlOperands(QStringView sql, const std::vector<SqlToken>& tokens);

    int size() const { return static_cast<int>(m_significant.size()); }
    /// The token's place among all tokens of the statement.
    std::size_t tokenIndex(int i) const { return m_significant[i]; }
    QStringView text(int i) const;
    bool isString(int i) const { return inside(i) && token(i).kind == SqlToken::String; }
    /// True for a word in any case, never for a quoted name.
    bool is(int i, QStringView word) const;
    bool isName(int i) const;
    /// A name in lower case without its quotes.
    QString name(int i) const;

    /// The other parenthesis of the pair; the statement's size where there is none.
    int partner(int parenthesis) const { return inside(parenthesis) ? m_partner[parenthesis] : size(); }
    /// The open parenthesis around a token, -1 for none.
    int enclosing(int i) const { return inside(i) ? m_enclosing[i] : -1; }
    /// True for the open parenthesis of a function's arguments.
    bool opensArguments(int parenthesis) const;

    /// The last part of a name that begins here: table . column.
    int nameEnd(int first) const;
    /// The operand that begins or ends at a token: a name with its qualifiers, a function with its arguments,
    /// a parenthesis, or the one token.
    SqlRange operandFrom(int first) const;
    SqlRange operandUntil(int last) const;
    /// Without the parentheses around a whole operand.
    SqlRange bare(SqlRange operand) const;

private:
    bool inside(int i) const { return i >= 0 && i < size(); }
    const SqlToken& token(int i) const { return m_tokens[m_significant[i]]; }
    void pairParentheses();

    QStringView m_sql;
    const std::vector<SqlToken>& m_tokens;
    std::vector<std::size_t> m_significant;
    std::vector<int> m_partner;
    std::vector<int> m_enclosing;
};

} // namespace quorvane
