#include "platform/quorvane32/core/DateLiterals.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/SqlOperands.h"
#include <QSet>
#include <QTime>
#include <algorithm>

namespace quorvane {

namespace {

/// Functions that give a date for dates.
constexpr QStringView dateFunctions[] = {u"isnull", u"ifnull", u"coalesce", u"nullif", u"max", u"min"};

/// Words that end the list of a SELECT.
constexpr QStringView wordsAfterList[] = {u"from",  u"where",  u"group",     u"having", u"order",    u"limit",
                                          u"union", u"except", u"intersect", u"on",     u"returning"};

/// Tells which columns and operands of one statement are dates.
class StatementDates {
public:
    StatementDates(const SqlOperands& sql, const DateColumns& columns) : m_sql(sql), m_columns(columns) {
        for (int i = 0; i < sql.size(); ++i)
            if (sql.isName(i) && columns.hasTable(sql.name(i)))
                m_tables.insert(sql.name(i));
    }

    bool isDate(SqlRange operand) const {
        operand = m_sql.bare(operand);
        if (m_sql.operandUntil(operand.last).first != operand.first)
            return false;
        if (m_sql.text(operand.last) == u")")
            return isDateFunction(m_sql.partner(operand.last)) && anyDate(m_sql.partner(operand.last));
        return isDateColumn(operand.last);
    }

    bool isDateFunction(int parenthesis) const {
        return m_sql.opensArguments(parenthesis) && std::ranges::any_of(dateFunctions, [&](QStringView name) {
                   return m_sql.is(parenthesis - 1, name);
               });
    }

    /// True when an item of the list in parentheses is a date.
    bool anyDate(int parenthesis) const {
        const int close = m_sql.partner(parenthesis);
        for (int item = parenthesis + 1; item < close; ++item) {
            const SqlRange operand = m_sql.operandFrom(item);
            if ((m_sql.text(operand.last + 1) == u"," || operand.last + 1 == close) && isDate(operand))
                return true;
            while (item < close && m_sql.text(item) != u",")
                item = m_sql.text(item) == u"(" ? m_sql.partner(item) + 1 : item + 1;
        }
        return false;
    }

private:
    bool isDateColumn(int i) const {
        const QString column = m_sql.name(i);
        if (!m_columns.isDateSomewhere(column))
            return false;
        if (m_columns.isDateEverywhere(column))
            return true;
        const bool qualified = m_sql.text(i - 1) == u".";
        const QSet<QString> tables = qualified ? tablesOf(m_sql.name(i - 2)) : m_tables;
        const auto isDateIn = [&](const QString& table) { return m_columns.isDateIn(table, column); };
        // A qualifier of a sub-select tells nothing.
        return std::ranges::any_of(tables.isEmpty() ? m_tables : tables, isDateIn);
    }

    /// The tables that a qualifier stands for: those with this alias (table [AS] alias), or of this name.
    QSet<QString> tablesOf(const QString& qualifier) const {
        QSet<QString> tables;
        for (int i = 1; i < m_sql.size(); ++i) {
            if (m_sql.name(i) != qualifier || m_sql.text(i + 1) == u".")
                continue;
            const QString table = m_sql.name(m_sql.is(i - 1, u"as") ? i - 2 : i - 1);
            if (m_tables.contains(table))
                tables.insert(table);
        }
        if (tables.isEmpty() && m_tables.contains(qualifier))
            tables.insert(qualifier);
        return tables;
    }

    const SqlOperands& m_sql;
    const DateColumns& m_columns;
    QSet<QString> m_tables;
};

/// Finds the text literals of one statement that stand against dates.
class DateLiteralMarker {
public:
    DateLiteralMarker(QStringView sql, std::vector<SqlToken>& tokens, const DateColumns& columns)
        : m_tokens(tokens), m_columns(columns), m_sql(sql, tokens), m_dates(m_sql, columns) {}

    void run() {
        for (int i = 0; i < m_sql.size(); ++i)
            if (m_sql.isString(i))
                mark(i, standsAgainstDate(i));
        for (int i = 0; i < m_sql.size(); ++i)
            if (m_sql.enclosing(i) < 0 && startsInsert(i))
                return markInserted(i);
    }

private:
    void mark(int i, bool isDate) { m_tokens[m_sql.tokenIndex(i)].dateLiteral = isDate; }

    bool isComparison(int i) const {
        constexpr QStringView comparisons[] = {u"=", u"<", u">", u"<=", u">=", u"<>", u"!="};
        return std::ranges::find(comparisons, m_sql.text(i)) != std::end(comparisons);
    }

    bool standsAgainstDate(int i) const {
        const SqlRange literal = withParentheses(i);
        const int before = literal.first - 1;
        const int after = literal.last + 1;
        if (isComparison(before) && m_dates.isDate(m_sql.operandUntil(before - 1)))
            return true;
        if (isComparison(after) && m_dates.isDate(m_sql.operandFrom(after + 1)))
            return true;
        return isBoundOfDate(before) || isSubjectOfDates(after) || isItemBesideDate(i);
    }

    /// The literal with the parentheses around it alone, but not those of IN or of a function.
    SqlRange withParentheses(int i) const {
        SqlRange range{i, i};
        while (m_sql.text(range.first - 1) == u"(" && m_sql.text(range.last + 1) == u")" &&
               !m_sql.opensArguments(range.first - 1) && !m_sql.is(range.first - 2, u"in"))
            range = {range.first - 1, range.last + 1};
        return range;
    }

    /// The operand before BETWEEN or IN, or before their NOT.
    bool isSubjectDate(int keyword) const {
        return m_dates.isDate(m_sql.operandUntil(m_sql.is(keyword - 1, u"not") ? keyword - 2 : keyword - 1));
    }

    /// date [NOT] BETWEEN 'a' AND 'b'
    bool isBoundOfDate(int before) const {
        if (m_sql.is(before, u"between"))
            return isSubjectDate(before);
        if (!m_sql.is(before, u"and"))
            return false;
        const int between = m_sql.operandUntil(before - 1).first - 1;
        return m_sql.is(between, u"between") && isSubjectDate(between);
    }

    /// 'a' [NOT] BETWEEN date AND date, 'a' [NOT] IN ( date, ...
    bool isSubjectOfDates(int after) const {
        const int keyword = m_sql.is(after, u"not") ? after + 1 : after;
        if (m_sql.is(keyword, u"in"))
            return m_sql.text(keyword + 1) == u"(" && m_dates.anyDate(keyword + 1);
        if (!m_sql.is(keyword, u"between"))
            return false;
        const SqlRange low = m_sql.operandFrom(keyword + 1);
        return m_dates.isDate(low) ||
               (m_sql.is(low.last + 1, u"and") && m_dates.isDate(m_sql.operandFrom(low.last + 2)));
    }

    /// date [NOT] IN ( 'a', 'b' ..., isnull ( date, 'a' )
    bool isItemBesideDate(int i) const {
        const int list = m_sql.enclosing(i);
        const bool starts = i - 1 == list || m_sql.text(i - 1) == u",";
        const bool ends = i + 1 == m_sql.partner(list) || m_sql.text(i + 1) == u",";
        if (list < 0 || !starts || !ends || m_sql.is(list + 1, u"select"))
            return false;
        if (m_sql.is(list - 1, u"in"))
            return isSubjectDate(list - 1);
        return m_dates.isDateFunction(list) && m_dates.anyDate(list);
    }

    /// Not the function replace().
    bool startsInsert(int i) const {
        return m_sql.is(i, u"insert") || (m_sql.is(i, u"replace") && m_sql.isName(i + 1) && i == 0) ||
               (m_sql.is(i, u"replace") && m_sql.is(i + 1, u"into"));
    }

    /// INSERT [OR ...] [INTO] table [( a, b, c )] VALUES ( ..., ... ), ... or SELECT ...: marks the literals
    /// at the places of dates.
    void markInserted(int insert) {
        int i = insert + (m_sql.is(insert + 1, u"or") ? 3 : 1);
        if (m_sql.is(i, u"into"))
            ++i;
        i = m_sql.nameEnd(i);
        const QString table = m_sql.name(i++);
        std::vector<bool> dates = m_columns.ofTable(table);
        if (m_sql.text(i) == u"(" && !m_sql.is(i + 1, u"select")) {
            dates = listedColumns(table, i);
            i = m_sql.partner(i) + 1;
        }
        for (; i < m_sql.size(); ++i) {
            if (m_sql.enclosing(i) >= 0)
                continue;
            if (m_sql.is(i, u"values"))
                markValues(i + 1, dates);
            else if (m_sql.is(i, u"select"))
                markSelected(i + 1, dates);
        }
    }

    std::vector<bool> listedColumns(const QString& table, int parenthesis) const {
        std::vector<bool> dates;
        for (int i = parenthesis + 1; i < m_sql.partner(parenthesis); ++i)
            if (m_sql.isName(i))
                dates.push_back(m_columns.hasTable(table) ? m_columns.isDateIn(table, m_sql.name(i))
                                                          : m_columns.isDateEverywhere(m_sql.name(i)));
        return dates;
    }

    void markValues(int i, const std::vector<bool>& dates) {
        while (m_sql.text(i) == u"(") {
            const int close = m_sql.partner(i);
            markItems(i + 1, close, dates);
            i = m_sql.text(close + 1) == u"," ? close + 2 : close + 1;
        }
    }

    void markSelected(int first, const std::vector<bool>& dates) {
        while (m_sql.is(first, u"distinct") || m_sql.is(first, u"all"))
            ++first;
        if (m_sql.is(first, u"top"))
            first = m_sql.operandFrom(first + 1).last + 1;
        int end = first;
        while (end < m_sql.size() && m_sql.text(end) != u";" &&
               std::ranges::none_of(wordsAfterList, [&](QStringView word) { return m_sql.is(end, word); }))
            end = m_sql.text(end) == u"(" ? m_sql.partner(end) + 1 : end + 1;
        markItems(first, std::min(end, m_sql.size()), dates);
    }

    /// Items from a token up to an end, separated by commas; an item that is a literal alone (perhaps with an
    /// alias behind it) is marked by its position.
    void markItems(int first, int end, const std::vector<bool>& dates) {
        std::size_t position = 0;
        for (int i = first; i < end && position < dates.size(); ++position) {
            const SqlRange operand = m_sql.operandFrom(i);
            const SqlRange item = m_sql.bare(operand);
            while (i < end && m_sql.text(i) != u",")
                i = m_sql.text(i) == u"(" ? m_sql.partner(i) + 1 : i + 1;
            const int alias = m_sql.is(operand.last + 1, u"as") ? operand.last + 2 : operand.last + 1;
            const bool alone = operand.last + 1 >= i || (m_sql.isName(alias) && alias + 1 >= i);
            if (item.first == item.last && m_sql.isString(item.first) && alone)
                mark(item.first, dates[position]);
            ++i;
        }
    }

    std::vector<SqlToken>& m_tokens;
    const DateColumns& m_columns;
    SqlOperands m_sql;
    StatementDates m_dates;
};

/// yyyy-mm-dd, every digit of it, of the years that a date can hold; an invalid day for anything else.
QDate isoDay(QStringView text) {
    constexpr int firstYear = 100;
    const bool isIso = text.size() == 10 && text[4] == u'-' && text[7] == u'-';
    const QDate day = isIso ? QDate::fromString(text.toString(), Qt::ISODate) : QDate();
    return day.isValid() && day.year() >= firstYear ? day : QDate();
}

/// The day that a literal names: the one whose number is 0 is a day here, though it stands for no date in
/// values.
QDate dayOf(Date date) {
    return date.isEmpty() ? QDate(1899, 12, 30) : date.toQDate();
}

QTime timeOfDay(const QString& text) {
    const QTime time = QTime::fromString(text, Qt::ISODate);
    if (!time.isValid())
        raise(ErrorTypeMismatch);
    return time;
}

} // namespace

void markDateLiterals(QStringView sql, std::vector<SqlToken>& tokens, const DateColumns& columns) {
    DateLiteralMarker(sql, tokens, columns).run();
}

QString isoDate(const QString& text) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return QStringLiteral("1900-01-01");
    const auto isBeforeTime = [](QChar c) { return c == u' ' || c == u'T'; };
    const auto split = std::ranges::find_if(trimmed, isBeforeTime) - trimmed.begin();
    const QString dayText = trimmed.left(split);
    try {
        QDate day = isoDay(dayText);
        if (!day.isValid())
            day = dayOf(RegionalSettings().parseDate(dayText));
        const QTime time = split < trimmed.size() ? timeOfDay(trimmed.mid(split + 1)) : QTime(0, 0);
        const QString iso = day.toString(Qt::ISODate);
        return time == QTime(0, 0) ? iso : iso + u' ' + time.toString(QStringLiteral("HH:mm:ss"));
    } catch (const RunTimeError&) {
        throw RunTimeError(ErrorDateLiteral,
                           QStringLiteral("'%1' no es una fecha que la base de datos acepte").arg(text));
    }
}

} // namespace quorvane
