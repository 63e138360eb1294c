#include "demo/RowInserter.h"

#include <sqlite3.h>

namespace dalvora::demo {

namespace {

QByteArray insertStatement(const char* table, const char* columns) {
    const auto count = QByteArray(columns).count(',') + 1;
    QByteArray places("?");
    for (qsizetype i = 1; i < count; ++i)
        places += ",?";
    return QByteArray("INSERT INTO ") + table + " (" + columns + ") VALUES (" + places + ")";
}

} // namespace

RowInserter::RowInserter(sqlite3* database, const char* table, const char* columns)
    : m_database(database)
    , m_statement(quorvane::sqlite::prepare(database, insertStatement(table, columns))) {}

void RowInserter::bind(int position, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(m_statement.get(), position, utf8.constData(), static_cast<int>(utf8.size()),
                      SQLITE_TRANSIENT);
}

void RowInserter::bind(int position, qint64 number) {
    sqlite3_bind_int64(m_statement.get(), position, number);
}

void RowInserter::bind(int position, Amount amount) {
    sqlite3_bind_double(m_statement.get(), position, static_cast<double>(amount.hundredths) / 100);
}

void RowInserter::bind(int position, const std::optional<Amount>& amount) {
    if (amount)
        bind(position, *amount);
    else
        sqlite3_bind_null(m_statement.get(), position);
}

void RowInserter::bind(int position, QDate date) {
    bind(position, date.isValid() ? date.toString(Qt::ISODate) : QStringLiteral("1900-01-01"));
}

void RowInserter::step() {
    if (sqlite3_step(m_statement.get()) != SQLITE_DONE) {
        sqlite3_reset(m_statement.get());
        quorvane::sqlite::raiseLastError(m_database);
    }
    sqlite3_reset(m_statement.get());
}

} // namespace dalvora::demo
