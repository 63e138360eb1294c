#include "platform/quorvane32/core/DateLiterals.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane {

namespace {

bool isWord(QStringView text, QStringView word) {
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

/// Walks the significant tokens once, knowing what stands before and after each.
class DateLiteralMarker {
public:
    DateLiteralMarker(QStringView sql, std::vector<SqlToken>& tokens, const DateColumns& columns)
        : m_sql(sql), m_tokens(tokens), m_columns(columns) {
        m_significant.reserve(tokens.size());
        for (std::size_t i = 0; i < tokens.size(); ++i)
            if (tokens[i].significant())
                m_significant.push_back(i);
    }

    void run() {
        const bool insert = isWord(text(0), u"insert") || isWord(text(0), u"replace");
        for (std::size_t i = 0; i < m_significant.size(); ++i) {
            if (token(i).kind == SqlToken::String)
                token(i).dateLiteral = standsAgainstDate(i);
            else if (insert && isWord(text(i), u"values"))
                i = markValues(i);
        }
    }

private:
    SqlToken& token(std::size_t i) { return m_tokens[m_significant[i]]; }
    QStringView text(std::size_t i) const {
        return i < m_significant.size() ? m_tokens[m_significant[i]].text(m_sql) : QStringView();
    }

    bool isComparison(std::size_t i) const {
        const QStringView t = text(i);
        return t == u"=" || t == u"<" || t == u">" || t == u"<=" || t == u">=" || t == u"<>" || t == u"!=";
    }

    bool isDateColumn(std::size_t i) const {
        if (i >= m_significant.size())
            return false;
        const SqlToken& candidate = m_tokens[m_significant[i]];
        if (candidate.kind != SqlToken::Word && candidate.kind != SqlToken::QuotedName)
            return false;
        QStringView name = candidate.text(m_sql);
        if (candidate.kind == SqlToken::QuotedName)
            name = name.mid(1, name.size() - 2);
        return m_columns.isDate(name, m_sql, m_tokens);
    }

    /// The column may stand behind its table's name: column, or table . column.
    bool isDateColumnFrom(std::size_t i) const { return isDateColumn(text(i + 1) == u"." ? i + 2 : i); }

    bool standsAgainstDate(std::size_t i) const {
        if (i >= 2 && isComparison(i - 1) && isDateColumn(i - 2))
            return true;
        if (isComparison(i + 1) && isDateColumnFrom(i + 2))
            return true;
        if (i >= 2 && isWord(text(i - 1), u"between"))
            return isDateColumn(i - 2 - (isWord(text(i - 2), u"not") && i >= 3 ? 1 : 0));
        if (i >= 3 && isWord(text(i - 1), u"and") && isWord(text(i - 3), u"between"))
            return m_tokens[m_significant[i - 2]].dateLiteral;
        return standsInDateList(i);
    }

    /// column [NOT] IN ( 'a', 'b' ...
    bool standsInDateList(std::size_t i) const {
        while (i >= 2 && text(i - 1) == u"," && m_tokens[m_significant[i - 2]].kind == SqlToken::String)
            i -= 2;
        if (i < 3 || text(i - 1) != u"(" || !isWord(text(i - 2), u"in"))
            return false;
        return isDateColumn(isWord(text(i - 3), u"not") && i >= 4 ? i - 4 : i - 3);
    }

    /// Marks the literals of VALUES lists by the position of their column; returns the last token read.
    std::size_t markValues(std::size_t values) {
        const std::vector<bool> dates = insertColumns(values);
        int depth = 0;
        std::size_t position = 0;
        std::size_t i = values + 1;
        for (; i < m_significant.size(); ++i) {
            const QStringView t = text(i);
            if (t == u"(") {
                if (++depth == 1)
                    position = 0;
            } else if (t == u")") {
                --depth;
            } else if (t == u"," && depth == 1) {
                ++position;
            } else if (token(i).kind == SqlToken::String && depth == 1 && position < dates.size()) {
                token(i).dateLiteral = dates[position];
            }
        }
        return i - 1;
    }

    /// INSERT INTO table ( a, b, c ) VALUES: which of a, b, c are dates; without a list, the table's columns.
    std::vector<bool> insertColumns(std::size_t values) const {
        if (values == 3)
            return m_columns.ofTable(text(2));
        std::vector<bool> dates;
        std::size_t i = 0;
        while (i < values && text(i) != u"(")
            ++i;
        for (++i; i < values && text(i) != u")"; ++i)
            if (text(i) != u",")
                dates.push_back(isDateColumn(i));
        return dates;
    }

    QStringView m_sql;
    std::vector<SqlToken>& m_tokens;
    const DateColumns& m_columns;
    std::vector<std::size_t> m_significant;
};

} // namespace

void DateColumns::add(const QString& table, const QString& column, bool isDate) {
    m_tables[table.toLower()].push_back(isDate);
    Owners& owners = m_columns[column.toLower()];
    if (isDate)
        owners.dated.insert(table.toLower());
    else
        owners.elsewhere = true;
}

bool DateColumns::isDate(QStringView column, QStringView sql, const std::vector<SqlToken>& tokens) const {
    const auto found = m_columns.constFind(column.toString().toLower());
    if (found == m_columns.constEnd() || found->dated.isEmpty())
        return false;
    if (!found->elsewhere)
        return true;
    for (const SqlToken& token : tokens)
        if (token.kind == SqlToken::Word && found->dated.contains(token.text(sql).toString().toLower()))
            return true;
    return false;
}

void markDateLiterals(QStringView sql, std::vector<SqlToken>& tokens, const DateColumns& columns) {
    DateLiteralMarker(sql, tokens, columns).run();
}

QString isoDate(const QString& text) {
    if (text.trimmed().isEmpty())
        return QStringLiteral("1900-01-01");
    const QDate iso = QDate::fromString(text.left(10), Qt::ISODate);
    if (iso.isValid() && text.size() >= 10)
        return iso.toString(Qt::ISODate);
    try {
        return RegionalSettings().parseDate(text).toQDate().toString(Qt::ISODate);
    } catch (const RunTimeError&) {
        throw RunTimeError(ErrorDateLiteral,
                           QStringLiteral("'%1' no es una fecha que la base de datos acepte").arg(text));
    }
}

} // namespace quorvane
