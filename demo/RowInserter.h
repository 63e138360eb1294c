#pragma once

#include "demo/Money.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <QDate>
#include <QString>
#include <optional>

namespace dalvora::demo {

/// An amount of money, a percentage or a quantity in hundredths, stored as a number with two decimals.
struct Amount {
    Hundredths hundredths = 0;
};

/// Inserts rows into one table with a statement that is prepared once: a first start has thousands of rows
/// and less than a second. The engine's errors leave it as RunTimeError.
class RowInserter {
public:
    /// `columns` as they stand between the parentheses of an INSERT.
    RowInserter(sqlite3* database, const char* table, const char* columns);

    /// Adds a row; one value for each column in their order. An invalid date is stored as the empty date.
    template<class... Values> void add(const Values&... values) {
        int position = 0;
        (bind(++position, values), ...);
        step();
    }

private:
    void bind(int position, const QString& text);
    void bind(int position, const char* text) { bind(position, QString::fromUtf8(text)); }
    void bind(int position, qint64 number);
    void bind(int position, int number) { bind(position, static_cast<qint64>(number)); }
    void bind(int position, Amount amount);
    void bind(int position, const std::optional<Amount>& amount);
    void bind(int position, QDate date);
    void step();

    sqlite3* m_database;
    quorvane::sqlite::Statement m_statement;
};

} // namespace dalvora::demo
