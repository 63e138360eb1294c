#include "platform/quorvane32/core/SqlOperands.h"
#include <algorithm>

namespace quorvane {

namespace {

/// Words that can stand before a parenthesis without being a function.
constexpr QStringView wordsBeforeParenthesis[] = {
    u"all",    u"and",    u"as",    u"between", u"by",     u"case",      u"distinct", u"else",
    u"except", u"exists", u"from",  u"having",  u"in",     u"intersect", u"is",       u"join",
    u"like",   u"limit",  u"not",   u"on",      u"or",     u"over",      u"select",   u"set",
    u"then",   u"top",    u"union", u"using",   u"values", u"when",      u"where",
};

} // namespace

SqlOperands::SqlOperands(QStringView sql, const std::vector<SqlToken>& tokens)
    : m_sql(sql), m_tokens(tokens) {
    m_significant.reserve(tokens.size());
    for (std::size_t i = 0; i < tokens.size(); ++i)
        if (tokens[i].significant())
            m_significant.push_back(i);
    pairParentheses();
}

void SqlOperands::pairParentheses() {
    m_partner.assign(m_significant.size(), size());
    m_enclosing.assign(m_significant.size(), -1);
    std::vector<int> open;
    for (int i = 0; i < size(); ++i) {
        if (text(i) == u")" && !open.empty()) {
            m_partner[i] = open.back();
            m_partner[open.back()] = i;
            open.pop_back();
        }
        m_enclosing[i] = open.empty() ? -1 : open.back();
        if (text(i) == u"(")
            open.push_back(i);
    }
}

QStringView SqlOperands::text(int i) const {
    return inside(i) ? token(i).text(m_sql) : QStringView();
}

bool SqlOperands::is(int i, QStringView word) const {
    return inside(i) && token(i).kind == SqlToken::Word && text(i).compare(word, Qt::CaseInsensitive) == 0;
}

bool SqlOperands::isName(int i) const {
    return inside(i) && (token(i).kind == SqlToken::Word || token(i).kind == SqlToken::QuotedName);
}

QString SqlOperands::name(int i) const {
    if (!isName(i))
        return {};
    const QStringView whole = text(i);
    const bool quoted = token(i).kind == SqlToken::QuotedName;
    return (quoted ? whole.mid(1, whole.size() - 2) : whole).toString().toLower();
}

bool SqlOperands::opensArguments(int parenthesis) const {
    return text(parenthesis) == u"(" && isName(parenthesis - 1) &&
           std::ranges::none_of(wordsBeforeParenthesis,
                                [&](QStringView word) { return is(parenthesis - 1, word); });
}

int SqlOperands::nameEnd(int first) const {
    int last = first;
    while (text(last + 1) == u"." && isName(last + 2))
        last += 2;
    return last;
}

SqlRange SqlOperands::operandFrom(int first) const {
    const int last = isName(first) ? nameEnd(first) : first;
    const int parenthesis = isName(first) ? last + 1 : first;
    const bool pair = text(first) == u"(" || opensArguments(parenthesis);
    return {first, pair ? std::min(partner(parenthesis), size() - 1) : last};
}

SqlRange SqlOperands::operandUntil(int last) const {
    int first = last;
    if (text(last) == u")" && partner(last) < last) {
        first = partner(last);
        if (opensArguments(first))
            --first;
    }
    while (isName(first) && text(first - 1) == u"." && isName(first - 2))
        first -= 2;
    return {first, last};
}

SqlRange SqlOperands::bare(SqlRange operand) const {
    while (text(operand.first) == u"(" && partner(operand.first) == operand.last)
        operand = {operand.first + 1, operand.last - 1};
    return operand;
}

} // namespace quorvane
