#include "tools/quorvane-admin/RowText.h"

#include <QDateTime>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

RegionalSettings pointSettings() {
    RegionalSettings settings;
    settings.decimalSeparator = u'.';
    return settings;
}

QString dateText(const Date& date) {
    constexpr double secondsOfDay = 86400;
    const double whole = std::trunc(date.serial());
    const auto seconds = std::llround(std::abs(date.serial() - whole) * secondsOfDay);
    const QDate day = QDate(1899, 12, 30).addDays(static_cast<qint64>(whole));
    const QString text = day.toString(u"dd/MM/yyyy"_s);
    return seconds == 0
               ? text
               : text + u' ' + QTime(0, 0).addSecs(static_cast<int>(seconds)).toString(u"HH:mm:ss"_s);
}

/// The value in the one form that all engines share.
QString plainText(const Value& value) {
    static const RegionalSettings settings = pointSettings();
    if (const auto* text = value.get<QString>())
        return *text;
    if (const auto* date = value.get<Date>())
        return dateText(*date);
    if (const auto* number = value.get<Decimal>())
        return number->toText(u'.');
    if (const auto* number = value.get<double>())
        return Decimal::fromDouble(*number).toText(u'.');
    if (const auto* truth = value.get<bool>())
        return *truth ? u"1"_s : u"0"_s;
    return value.toText(settings);
}

bool isQuoted(const Value& value) {
    return value.get<QString>() || value.get<Date>() || value.get<bool>();
}

} // namespace

QString literalOf(const Value& value) {
    if (value.isNull())
        return u"NULL"_s;
    QString text = plainText(value);
    return isQuoted(value) ? u'\'' + text.replace(u'\'', u"''"_s) + u'\'' : text;
}

QString readable(const Value& value) {
    constexpr qsizetype longest = 60;
    if (value.isNull())
        return u"nulo"_s;
    const QString text = plainText(value);
    return u'«' + (text.size() > longest ? text.left(longest) + u'…' : text) + u'»';
}

bool isSame(const Value& a, const Value& b) {
    return a.isNull() == b.isNull() && (a.isNull() || plainText(a) == plainText(b));
}

// A row's sum is a Fowler-Noll-Vo hash of its values, each with its length behind it.
void RowSum::addValue(const Value& value) {
    constexpr quint64 prime = 1099511628211ULL;
    const auto mix = [&](quint64 unit) { m_row = (m_row ^ unit) * prime; };
    if (value.isNull()) {
        mix(~quint64{0});
        return;
    }
    const QString text = plainText(value);
    for (const QChar unit : text)
        mix(unit.unicode());
    mix(static_cast<quint64>(text.size()) << 16U);
}

void RowSum::endRow() {
    m_sum += m_row;
    m_row = start;
    ++m_rows;
}

QString RowSum::text() const {
    constexpr int digits = 16;
    return u"%1"_s.arg(m_sum, digits, 16, QChar(u'0'));
}

} // namespace quorvane::admin
