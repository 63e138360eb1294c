#pragma once

#include "demo/RowTarget.h"
#include <QDate>
#include <array>
#include <optional>

namespace dalvora::demo {

/// Inserts rows into one table, in whatever way its database takes many of them fast: a first start has
/// thousands of rows and less than a second. The database's errors leave it as RunTimeError.
class RowInserter {
public:
    /// `columns` as they stand between the parentheses of an INSERT.
    RowInserter(RowTarget& target, const char* table, const char* columns)
        : m_sink(target.open(table, columns)) {}

    /// Adds a row; one value for each column in their order. An invalid date is stored as the empty date.
    template<class... Values> void add(const Values&... values) {
        const std::array<Field, sizeof...(Values)> row{field(values)...};
        m_sink->add(row);
    }

private:
    static Field field(const QString& text) { return text; }
    static Field field(const char* text) { return QString::fromUtf8(text); }
    static Field field(qint64 number) { return number; }
    static Field field(int number) { return static_cast<qint64>(number); }
    static Field field(Amount amount) { return amount; }
    static Field field(const std::optional<Amount>& amount) { return amount ? Field(*amount) : Field(); }
    static Field field(QDate date) {
        return date.isValid() ? date.toString(Qt::ISODate) : QStringLiteral("1900-01-01");
    }

    std::unique_ptr<RowSink> m_sink;
};

} // namespace dalvora::demo
