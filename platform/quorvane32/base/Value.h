#pragma once

#include "platform/quorvane32/base/Date.h"
#include "platform/quorvane32/base/Decimal.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include <QString>
#include <variant>

namespace quorvane {

/// The kind codes of a dynamically typed value; callers pass some of them as type codes.
enum class Kind : int {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Boolean = 11,
    Decimal = 14,
    Byte = 17,
};

/// A dynamically typed value: one of the kinds above with its payload.
class Value {
public:
    struct Null {};
    /// Fixed point with four decimals, kept as ten-thousandths.
    struct Currency {
        qint64 tenThousandths = 0;
    };

    Value() = default;
    Value(Null null) : m_data(null) {}
    Value(qint16 number) : m_data(number) {}
    Value(qint32 number) : m_data(number) {}
    Value(float number) : m_data(number) {}
    Value(double number) : m_data(number) {}
    Value(Currency amount) : m_data(amount) {}
    Value(Date date) : m_data(date) {}
    Value(QString text) : m_data(std::move(text)) {}
    Value(bool truth) : m_data(truth) {}
    Value(Decimal number) : m_data(number) {}
    Value(quint8 number) : m_data(number) {}
    Value(const char*) = delete;

    Kind kind() const;
    bool isNull() const { return std::holds_alternative<Null>(m_data); }

    /// The stored payload when the value is of that very kind, else a null pointer.
    template<class T> const T* get() const { return std::get_if<T>(&m_data); }

    /// The plain text form: numbers in general form and dates as the short date, both by the regional
    /// settings; Empty gives "". A Null raises error 94.
    QString toText(const RegionalSettings& regional) const;
    /// The number that the value holds (a date's serial number, -1 for true, a text read by the regional
    /// settings, 0 for Empty). Error 13 when a text is no number, 94 for a Null.
    double toNumber(const RegionalSettings& regional) const;
    /// True when the value is non-zero; a text must read as a number, "True" or "False".
    bool toBoolean(const RegionalSettings& regional) const;

private:
    std::variant<std::monostate, Null, qint16, qint32, float, double, Currency, Date, QString, bool, Decimal,
                 quint8>
        m_data;
};

} // namespace quorvane
