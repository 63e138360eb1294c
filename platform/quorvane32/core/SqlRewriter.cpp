#include "platform/quorvane32/core/SqlRewriter.h"

namespace quorvane {

namespace {

bool same(QStringView text, QStringView word) {
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

} // namespace

SelectHead::Place SelectHead::following(const SqlToken& token, QStringView text) const {
    if (m_place == Top && text == u"(")
        return TopParenthesis;
    if (token.kind == SqlToken::Number)
        return m_place == Top || m_place == TopParenthesis ? Count : Elsewhere;
    if (token.kind != SqlToken::Word)
        return Elsewhere;
    if (m_place == Select && same(text, u"top"))
        return Top;
    const bool goesOn = m_place == Select && (same(text, u"distinct") || same(text, u"all"));
    return goesOn || same(text, u"select") ? Select : Elsewhere;
}

QString SqlRewriter::run() {
    constexpr qsizetype roomForChanges = 32;
    m_out.reserve(m_sql.size() + roomForChanges);
    m_limits.emplace_back();
    for (std::size_t i = 0; i < m_tokens.size(); ++i) {
        if (m_tokens[i].significant())
            m_head.read(m_tokens[i], text(i));
        if (m_tokens[i].significant() && m_head.atTop())
            i = takeTop(i);
        else if (isWord(i, u"isnull") && nextIs(i, u"("))
            m_out += m_nullFunction;
        else
            writeAround(i);
    }
    writeLimit();
    return m_out;
}

bool SqlRewriter::isWord(std::size_t i, QStringView word) const {
    return i < m_tokens.size() && m_tokens[i].kind == SqlToken::Word && same(text(i), word);
}

std::size_t SqlRewriter::nextSignificant(std::size_t i) const {
    do
        ++i;
    while (i < m_tokens.size() && !m_tokens[i].significant());
    return i;
}

std::size_t SqlRewriter::previousSignificant(std::size_t i) const {
    while (i > 0)
        if (m_tokens[--i].significant())
            return i;
    return m_tokens.size();
}

bool SqlRewriter::nextIs(std::size_t i, QStringView wanted) const {
    const std::size_t next = nextSignificant(i);
    return next < m_tokens.size() && text(next) == wanted;
}

/// A token with the LIMIT that comes before it.
void SqlRewriter::writeAround(std::size_t i) {
    const SqlToken& token = m_tokens[i];
    if (token.kind == SqlToken::Symbol) {
        if (text(i) == u"(")
            m_limits.emplace_back();
        if (text(i) == u")" || text(i) == u";")
            writeLimit();
    }
    write(m_out, i);
    if (token.kind == SqlToken::Comment)
        m_inLineComment = text(i).startsWith(u"--");
    else if (token.kind == SqlToken::Blank)
        m_inLineComment = m_inLineComment && !text(i).contains(u'\n');
}

/// TOP n or TOP ( n ): drops it from the text and keeps n.
std::size_t SqlRewriter::takeTop(std::size_t top) {
    std::size_t i = nextSignificant(top);
    const bool parenthesis = i < m_tokens.size() && text(i) == u"(";
    if (parenthesis)
        i = nextSignificant(i);
    if (i >= m_tokens.size() || m_tokens[i].kind != SqlToken::Number) {
        m_out += text(top);
        return top;
    }
    m_limits.back() = text(i).toString();
    return parenthesis ? nextSignificant(i) : i;
}

void SqlRewriter::writeLimit() {
    if (m_limits.empty())
        return;
    if (!m_limits.back().isEmpty())
        m_out += QLatin1String(m_inLineComment ? "\nLIMIT " : " LIMIT ") + m_limits.back();
    m_limits.back().clear();
    if (m_limits.size() > 1)
        m_limits.pop_back();
}

} // namespace quorvane
