#include "platform/reportengine/definition/ValueRule.h"

#include <QRegularExpression>
#include <QStringList>

namespace quorvane::report {

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype longestText = 1'000;
constexpr qsizetype longestName = 100;

/// A pattern for the whole of a value, compiled once: a file may hold a million values.
QRegularExpression pattern(const QString& text) {
    return QRegularExpression(QRegularExpression::anchoredPattern(text));
}

bool matches(const QString& value, const QRegularExpression& pattern) {
    return pattern.match(value).hasMatch();
}

/// Blanks around a number say nothing, as in any XML schema.
bool isDecimal(const QString& value, double least, double most) {
    static const QRegularExpression form = pattern(uR"([ \t\r\n]*[0-9]{1,4}(\.[0-9]{1,3})?[ \t\r\n]*)"_s);
    return matches(value, form) && value.toDouble() >= least && value.toDouble() <= most;
}

bool isWhole(const QString& value, double least, double most) {
    return !value.contains(u'.') && isDecimal(value, least, most);
}

bool isFormulaName(const QString& value) {
    static const QRegularExpression form = pattern(uR"(\{@[A-Za-z0-9_]{1,60}\})"_s);
    return matches(value, form);
}

bool isFileName(const QString& value) {
    static const QRegularExpression form = pattern(uR"([A-Za-z0-9_\-]{1,60}\.(png|jpg|svg))"_s);
    return matches(value, form);
}

bool isColour(const QString& value) {
    static const QRegularExpression form = pattern(u"#[0-9A-Fa-f]{6}"_s);
    return matches(value, form);
}

QStringList wordsOf(const char16_t* choices) {
    return QString::fromUtf16(choices).split(u'|');
}

} // namespace

bool ValueRule::accepts(const QString& value) const {
    switch (kind) {
    case Kind::Text:
        return value.size() <= longestText;
    case Kind::Name:
        return !value.isEmpty() && value.size() <= longestName;
    case Kind::FormulaName:
        return isFormulaName(value);
    case Kind::FileName:
        return isFileName(value);
    case Kind::Decimal:
        return isDecimal(value, least, most);
    case Kind::Whole:
        return isWhole(value, least, most);
    case Kind::Colour:
        return isColour(value);
    case Kind::Choice:
        return wordsOf(choices).contains(value);
    case Kind::Symbol:
        return static_cast<double>(value.size()) >= least && value.size() <= 1;
    }
    return false;
}

QString ValueRule::description() const {
    if (kind != Kind::Choice)
        return QString::fromUtf16(says);
    const QStringList words = wordsOf(choices);
    return u"'"_s + words.mid(0, words.size() - 1).join("', '"_L1) + u"' o '"_s + words.last() + u"'"_s;
}

} // namespace quorvane::report
