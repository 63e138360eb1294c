#include "platform/quorvane32/lookup/QueryDefinition.h"
#include "platform/quorvane32/base/NumberText.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/lookup/LookupErrors.h"

namespace quorvane {

namespace {

QString quoted(QString text) {
    text.replace(u'\'', QStringLiteral("''"));
    return u'\'' + text + u'\'';
}

QString literal(const QueryParameter& parameter, const QString& given, const RegionalSettings& regional) {
    const QString value =
        given.trimmed().isEmpty() && !parameter.whenEmpty.isEmpty() ? parameter.whenEmpty : given;
    switch (parameter.kind) {
    case ParameterKind::Text:
        break;
    case ParameterKind::Date:
        // The server reads literals as day, month, year whatever the user's own separator is.
        return value.trimmed().isEmpty() ? QStringLiteral("''")
                                         : quoted(regional.parseDate(value).toDayMonthYear(u'/'));
    case ParameterKind::Number:
        return generalNumber(regional.parseNumber(value), u'.');
    }
    if (value.contains(QChar(u'\0')))
        raise(ErrorInvalidCall);
    return quoted(value);
}

/// The literal, with an unreadable value's error telling which parameter it was.
QString checkedLiteral(const QueryDefinition& query, size_t index, const QString& value,
                       const RegionalSettings& regional) {
    const QueryParameter& parameter = query.parameters[index];
    try {
        return literal(parameter, value, regional);
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.number(),
                           QStringLiteral("%1 (parámetro '%2' de la consulta '%3', valor '%4')")
                               .arg(error.description(), parameter.name, query.name, value.left(40)));
    }
}

} // namespace

qsizetype placeholderEnd(QStringView sql, qsizetype start, int& number) {
    if (sql[start] != u'$')
        return start;
    number = 0;
    qsizetype i = start + 1;
    while (i < sql.size() && sql[i] >= u'0' && sql[i] <= u'9' && i - start <= 3)
        number = number * 10 + (sql[i++].unicode() - u'0');
    const bool closed = i > start + 1 && i < sql.size() && sql[i] == u'$';
    return closed ? i + 1 : start;
}

QString QueryDefinition::statement(const QStringList& values, const RegionalSettings& regional) const {
    const auto needed = static_cast<qsizetype>(parameters.size());
    if (values.size() < needed) {
        throw RunTimeError(ErrorTooFewParameters,
                           QStringLiteral("Pocos parámetros: la consulta '%1' espera %2 y se entregaron %3")
                               .arg(name)
                               .arg(needed)
                               .arg(values.size()));
    }
    QStringList literals;
    for (qsizetype i = 0; i < needed; ++i)
        literals += checkedLiteral(*this, static_cast<size_t>(i), values[i], regional);
    QString filled;
    walkStatement(
        sql, [&](QStringView text) { filled += text; },
        [&](int number) {
            if (number < 1 || number > literals.size())
                raise(ErrorSubscript);
            filled += literals[number - 1];
        });
    return filled;
}

} // namespace quorvane
