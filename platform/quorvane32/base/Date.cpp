#include "platform/quorvane32/base/Date.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <cmath>

namespace quorvane {

namespace {

constexpr qint64 julianDayOfSerialZero = 2415019; // 30 December 1899
constexpr int firstYear = 100;
constexpr int lastYear = 9999;

} // namespace

Date Date::fromQDate(const QDate& date) {
    if (!date.isValid())
        return {};
    if (date.year() < firstYear || date.year() > lastYear)
        raise(ErrorOverflow);
    return Date(static_cast<double>(date.toJulianDay() - julianDayOfSerialZero));
}

QDate Date::toQDate() const {
    if (isEmpty())
        return {};
    // The fraction of a date before 1900 still counts forward from midnight, so the day is the truncated
    // part.
    return QDate::fromJulianDay(static_cast<qint64>(std::trunc(m_serial)) + julianDayOfSerialZero);
}

QString Date::toDayMonthYear(QChar separator) const {
    if (isEmpty())
        return {};
    const QDate day = toQDate();
    QString text(10, separator);
    const auto put = [&text](int position, int number, int digits) {
        for (int i = digits - 1; i >= 0; --i, number /= 10)
            text[position + i] = QChar(u'0' + number % 10);
    };
    put(0, day.day(), 2);
    put(3, day.month(), 2);
    put(6, day.year(), 4);
    return text;
}

} // namespace quorvane
