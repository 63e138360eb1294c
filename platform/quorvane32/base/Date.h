#pragma once

#include <QDate>
#include <QString>

namespace quorvane {

/// A date as the ERP keeps it: days since 30 December 1899 with the time of day as fraction; 0 is the empty
/// date.
class Date {
public:
    constexpr Date() = default;
    constexpr explicit Date(double serial) : m_serial(serial) {}
    /// Error 6 outside 01/01/0100 to 31/12/9999; an invalid QDate is the empty date.
    static Date fromQDate(const QDate& date);
    static Date fromYmd(int year, int month, int day) { return fromQDate(QDate(year, month, day)); }

    constexpr double serial() const { return m_serial; }
    constexpr bool isEmpty() const { return m_serial == 0; }
    /// The calendar day without its time; the empty date gives an invalid QDate.
    QDate toQDate() const;
    /// Two-digit day, two-digit month and four-digit year joined by the given separator; "" for the empty
    /// date.
    QString toDayMonthYear(QChar separator) const;

    friend constexpr bool operator==(const Date& a, const Date& b) = default;
    friend constexpr auto operator<=>(const Date& a, const Date& b) { return a.m_serial <=> b.m_serial; }

private:
    double m_serial = 0;
};

} // namespace quorvane
