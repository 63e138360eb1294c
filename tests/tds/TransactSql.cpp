#include "tests/tds/TransactSql.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include "tests/tds/CodePage.h"
#include <QRegularExpression>

namespace dalvora::test::tds {

using quorvane::SqlToken;

namespace {

QString quoted(QString text) {
    return u'\'' + text.replace(u'\'', QStringLiteral("''")) + u'\'';
}

/// A literal of the form 05/03/2006 as the embedded engine shall read it: day, month, year.
QString inDayOrder(const QString& literal, const QString& dateFormat) {
    static const QRegularExpression form(QStringLiteral("^'(\\d\\d)/(\\d\\d)/(\\d{4})'$"));
    const auto match = form.match(literal);
    if (dateFormat == u"dmy" || !match.hasMatch())
        return literal;
    if (match.captured(1).toInt() > 12)
        throw quorvane::RunTimeError(quorvane::ErrorDateLiteral, literal);
    return QStringLiteral("'%1/%2/%3'").arg(match.captured(2), match.captured(1), match.captured(3));
}

class Rewriter {
public:
    Rewriter(const QString& sql, const SessionSettings& settings) : m_sql(sql), m_settings(settings) {
        tokenize(m_sql, m_tokens);
    }

    QString run() {
        for (std::size_t i = 0; i < m_tokens.size();)
            i = write(i);
        return m_out;
    }

private:
    QStringView text(std::size_t i) const { return m_tokens[i].text(m_sql); }
    bool isWord(std::size_t i, QStringView word) const {
        return i < m_tokens.size() && m_tokens[i].kind == SqlToken::Word &&
               text(i).compare(word, Qt::CaseInsensitive) == 0;
    }
    std::size_t following(std::size_t i) const {
        do
            ++i;
        while (i < m_tokens.size() && !m_tokens[i].significant());
        return i;
    }
    /// The place behind ( ... ) at `i`; `i` itself when there is none.
    std::size_t behindParenthesis(std::size_t i) const {
        if (i >= m_tokens.size() || text(i) != u"(")
            return i;
        while (i < m_tokens.size() && text(i) != u")")
            ++i;
        return i + 1;
    }

    /// Writes a token, or several; returns the next place.
    std::size_t write(std::size_t i) {
        if (m_tokens[i].kind == SqlToken::String) {
            m_out += inDayOrder(throughCodePage(text(i).toString()), m_settings.dateFormat);
            return i + 1;
        }
        if (isWord(i, u"N") && i + 1 < m_tokens.size() && m_tokens[i + 1].kind == SqlToken::String) {
            m_out += inDayOrder(text(i + 1).toString(), m_settings.dateFormat);
            return i + 2;
        }
        if (isWord(i, u"COLLATE")) {
            m_out += u"COLLATE ERP_ES";
            return following(i) + 1;
        }
        if ((isWord(i, u"int") || isWord(i, u"bigint")) && isWord(following(i), u"IDENTITY")) {
            m_out += u"INTEGER";
            return behindParenthesis(following(following(i)));
        }
        if ((isWord(i, u"varchar") || isWord(i, u"nvarchar")) && isWord(following(following(i)), u"max")) {
            m_out += text(i);
            return behindParenthesis(following(i));
        }
        return m_tokens[i].kind == SqlToken::Word ? writeValue(i) : writeAsItIs(i);
    }
    std::size_t writeAsItIs(std::size_t i) {
        m_out += text(i);
        return i + 1;
    }
    /// One of the server's own values, or the word as it is.
    std::size_t writeValue(std::size_t i) {
        const QString word = text(i).toString().toLower();
        const QString version = QStringLiteral("%1.0.2000.5").arg(m_settings.majorVersion);
        const QHash<QString, QString> variables{
            {QStringLiteral("@@version"), quoted(QStringLiteral("Test server %1").arg(version))},
            {QStringLiteral("@@spid"), QStringLiteral("51")},
            {QStringLiteral("@@trancount"), QString::number(m_settings.openTransactions)},
            {QStringLiteral("@@lock_timeout"), QString::number(m_settings.lockTimeout)},
            {QStringLiteral("@@servername"), quoted(QStringLiteral("PRUEBA"))},
            {QStringLiteral("@@language"), quoted(QStringLiteral("us_english"))},
        };
        if (variables.contains(word)) {
            m_out += variables.value(word);
            return i + 1;
        }
        if (word == u"sys" && isWord(i + 2, u"databases")) {
            m_out += QStringLiteral("(SELECT 1 AS database_id, %1 AS name, %2 AS snapshot_isolation_state)")
                         .arg(quoted(m_settings.database))
                         .arg(m_settings.allowsSnapshots ? 1 : 0);
            return i + 3;
        }
        const QHash<QString, QString> functions{
            {QStringLiteral("db_id"), QStringLiteral("1")},
            {QStringLiteral("db_name"), quoted(m_settings.database)},
            {QStringLiteral("suser_sname"), quoted(m_settings.login)},
            {QStringLiteral("system_user"), quoted(m_settings.login)},
        };
        const std::size_t open = following(i);
        if (functions.contains(word)) {
            m_out += functions.value(word);
            return behindParenthesis(open);
        }
        if (word != u"serverproperty")
            return writeAsItIs(i);
        const QString property =
            open + 1 < m_tokens.size() ? quorvane::literalText(text(following(open))).toLower() : QString();
        m_out += property == u"productmajorversion" ? quoted(QString::number(m_settings.majorVersion))
                 : property == u"productversion"    ? quoted(version)
                                                    : QStringLiteral("NULL");
        return behindParenthesis(open);
    }

    QString m_sql;
    const SessionSettings& m_settings;
    std::vector<SqlToken> m_tokens;
    QString m_out;
};

} // namespace

QString toEmbedded(const QString& sql, const SessionSettings& settings) {
    return Rewriter(sql, settings).run();
}

} // namespace dalvora::test::tds
