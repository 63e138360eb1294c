#include "tests/tds/SetStatement.h"

#include "platform/quorvane32/core/SqlLexer.h"
#include "tests/tds/ServerErrors.h"
#include <QStringList>

namespace dalvora::test::tds {

namespace {

const QStringList& acceptedOptions() {
    static const QStringList names{
        QStringLiteral("ansi_defaults"),      QStringLiteral("ansi_null_dflt_on"),
        QStringLiteral("ansi_nulls"),         QStringLiteral("ansi_padding"),
        QStringLiteral("ansi_warnings"),      QStringLiteral("arithabort"),
        QStringLiteral("arithignore"),        QStringLiteral("concat_null_yields_null"),
        QStringLiteral("datefirst"),          QStringLiteral("cursor_close_on_commit"),
        QStringLiteral("numeric_roundabort"), QStringLiteral("quoted_identifier"),
        QStringLiteral("rowcount"),           QStringLiteral("textsize"),
        QStringLiteral("deadlock_priority"),
    };
    return names;
}

QStringList words(const QString& sql) {
    std::vector<quorvane::SqlToken> tokens;
    quorvane::tokenize(sql, tokens);
    QStringList found;
    for (const quorvane::SqlToken& token : tokens)
        if (token.significant())
            found += quorvane::SqlToken::String == token.kind ? quorvane::literalText(token.text(sql))
                                                              : token.text(sql).toString();
    return found;
}

void applyOption(const QString& option, const QString& value, SessionSettings& settings) {
    const QString name = option.toLower();
    const bool on = value.compare(u"on", Qt::CaseInsensitive) == 0;
    if (name == u"dateformat")
        settings.dateFormat = value.toLower();
    else if (name == u"language")
        applyLanguage(value, settings);
    else if (name == u"lock_timeout")
        settings.lockTimeout = value.toInt();
    else if (name == u"xact_abort")
        settings.rollsBackOnError = on;
    else if (name == u"transaction")
        settings.snapshot = value.compare(u"snapshot", Qt::CaseInsensitive) == 0;
    else if (name == u"nocount")
        settings.counts = !on;
    else if ((name == u"implicit_transactions" && on) ||
             (name != u"implicit_transactions" && !acceptedOptions().contains(name)))
        throw ServerFault(195, option);
}

} // namespace

void applyLanguage(const QString& language, SessionSettings& settings) {
    const QString name = language.toLower();
    if (!name.isEmpty())
        settings.dateFormat =
            name.startsWith(u"espa") || name == u"spanish" ? QStringLiteral("dmy") : QStringLiteral("mdy");
}

void applySet(const QString& sql, SessionSettings& settings) {
    QStringList statement;
    const auto apply = [&] {
        if (statement.size() < 2)
            throw ServerFault(quorvane::ErrorSyntax, QStringLiteral("SET"));
        // "ANSI_NULLS, ANSI_PADDING ON": several options with one value; a number may stand behind its sign.
        const bool negative = statement.size() == 3 && statement[1] == u"-";
        const QString value = negative ? u'-' + statement.last() : statement.last();
        const qsizetype names = statement.contains(QStringLiteral(",")) ? statement.size() - 1 : 1;
        for (qsizetype i = 0; i < names; i += 2)
            applyOption(statement[i], value, settings);
        statement.clear();
    };
    const QStringList all = words(sql);
    for (const QString& word : all.mid(1)) {
        if (word.compare(u"set", Qt::CaseInsensitive) == 0)
            apply();
        else
            statement += word;
    }
    apply();
}

} // namespace dalvora::test::tds
